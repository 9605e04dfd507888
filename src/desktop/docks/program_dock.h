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

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ShowProgram();
  void ShowLine();
  void ReadProgram();
  void AskForLine();
  void GoToTypedLine();

  QLineEdit* number_;
  ProgramText* text_;
};

}  // namespace tvx
