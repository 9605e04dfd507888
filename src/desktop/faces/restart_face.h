// The face of the restart position of a job's file.
#pragma once

#include <array>

#include "desktop/faces/face.h"
#include "jobs/restart.h"

namespace tvx {

class RestartFace : public Face {
 public:
  RestartFace(CRestartDlg* dialog, QWidget* parent);

  void reject() override;

 private:
  void ShowNumber();

  CRestartDlg* dialog_;
  std::array<QLineEdit*, 2> numbers_{};
};

}  // namespace tvx
