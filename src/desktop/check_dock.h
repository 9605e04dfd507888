// The program check beside the picture: what path and figures leave out or understand otherwise
// than a machine, by kind and line.
#pragma once

#include <memory>

#include "desktop/docks.h"
#include "insight/program_check.h"
#include "insight/source_lines.h"

class QLabel;
class QTextEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace tvx {

// One row for each kind of remark, those of a class together, each with its lines below it. The
// text of the line in work, and what can be done about it, stand under the rows.
class CheckDock : public ViewDock {
  Q_OBJECT

 public:
  explicit CheckDock(const DockContext& context, QWidget* parent = nullptr);

  void ShowProgram(CTVXView* /*view*/) override {}
  void ShowCheck(const CTVXView* view) override;

 private:
  void ShowKinds();
  void AddLines(QTreeWidgetItem* kindRow);
  void ShowRemark(QTreeWidgetItem* row);
  QString LineHtml(uint64_t line);

  QLabel* status_;
  QTreeWidget* rows_;
  QTextEdit* remark_;  // about the row in work
  CheckState state_ = CheckState::kNoProgram;
  std::shared_ptr<const ProgramCheck> check_;  // that is shown
  ProgramSource source_;                       // without its map of lines
  std::unique_ptr<SourceLines> lines_;
};

}  // namespace tvx
