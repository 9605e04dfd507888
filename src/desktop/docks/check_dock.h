// The program check beside the picture: what path and figures leave out or understand otherwise
// than a machine, by kind and line.
#pragma once

#include <memory>
#include <vector>

#include "desktop/docks/docks.h"
#include "evaluate/program_checks.h"
#include "insight/program_check.h"
#include "insight/source_lines.h"

class QComboBox;
class QLabel;
class QTextEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace tvx {

// "빠짐 3, 다름 1"
QString CountsText(const ProgramCheck& check);

// One row for each kind of remark, those of a class together, each with its lines below it. Under
// the rows: the text of the line in work, and what can be done about it. Above them, if results are
// recorded: the choice among their programs and the one in the picture, which is chosen first.
class CheckDock : public ViewDock {
  Q_OBJECT

 public:
  explicit CheckDock(const DockContext& context, QWidget* parent = nullptr);

 private:
  void ShowCheck();
  void NameFiles();
  void ShowFile();
  void ShowKinds();
  void AddLines(QTreeWidgetItem* kindRow);
  void ShowRemark(QTreeWidgetItem* row);
  QString LineHtml(uint64_t line);

  QComboBox* choice_;  // of the file
  QLabel* status_;
  QTreeWidget* rows_;
  QTextEdit* remark_;                                    // about the row in work
  std::vector<std::shared_ptr<const FileCheck>> files_;  // rows of the choice
  std::shared_ptr<const FileCheck> loaded_;              // of the program in the picture, or null
  std::shared_ptr<const FileCheck> file_;                // that is shown, or null
  CheckState state_ = CheckState::kNoProgram;            // of it, as it is shown
  ProgramSource source_;                                 // without its map of lines
  std::unique_ptr<SourceLines> lines_;
};

}  // namespace tvx
