// The text of the program beside its picture, around the line in work.
#pragma once

#include "desktop/docks/docks.h"

class QLineEdit;

namespace tvx {

class ProgramText;

class ProgramDock : public ViewDock {
  Q_OBJECT

 public:
  explicit ProgramDock(const DockContext& context, QWidget* parent = nullptr);

  void ShowProgram(CTVXView* view) override;
  void ShowLine(CTVXView* view, uint64_t line) override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ReadProgram();
  void AskForLine();
  void GoToTypedLine();

  DockContext context_;
  QLineEdit* number_;
  ProgramText* text_;
  const CTVXView* shownView_ = nullptr;  // compared only
  uint32_t shownEdition_ = 0;
};

}  // namespace tvx
