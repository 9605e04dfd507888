// The face of the command pad: a small column of buttons.
#pragma once

#include <QDialog>

#include "session/command_pad.h"

namespace tvx {

class CommandPadFace : public QDialog {
  Q_OBJECT

 public:
  CommandPadFace(CCommandPadDlg* pad, QWidget* parent);
};

}  // namespace tvx
