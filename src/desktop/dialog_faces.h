// The faces of the dialogs: each shows the fields of its logic and calls its operations.
#pragma once

#include <QDialog>
#include <memory>

#include "platform/user_interface.h"

namespace tvx {

// The face of a dialog, by the class of its logic; null for a dialog that has none yet.
std::unique_ptr<QDialog> MakeFace(Dialog* dialog, QWidget* parent);

}  // namespace tvx
