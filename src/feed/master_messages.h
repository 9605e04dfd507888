// The messages that more than one operation on the master model shows.
#pragma once

#include "platform/user_interface.h"

namespace tvx {

inline void ShowNoMemory(UserInterface* ui) {
  ui->ShowMessage({.text = "Memory를 할당할 수 없습니다!!!", .caption = " Message"});
}

// For a master file that cannot be opened, written, or taken for one.
inline void ShowCannotOpen(UserInterface* ui) {
  ui->ShowMessage({.text = "화일을 열수 없습니다.\n", .caption = "Error message"});
}

}  // namespace tvx
