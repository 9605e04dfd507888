// The small column of buttons that a left click opens. A button sets a flag, and the view acts on
// the flags when the pad has closed.
#pragma once

#include <cstdint>
#include <span>

#include "platform/user_interface.h"
#include "view/command_id.h"

namespace tvx {

class CCommandPadDlg final : public Dialog {
 public:
  struct Button {
    const char* text;
    bool CCommandPadDlg::*flag;  // set by a press; null for none
    CommandId id;
    bool closes;
  };

  // The buttons from top to bottom.
  static std::span<const Button> Buttons();

  void ClearFlags() { cutTime = rapids = settings = false; }

  // A press of a button. Returns true if the pad closes. The button of the result list leaves it
  // open and sets no flag: its command is the caller's to run.
  bool Press(const Button& button);

  bool cutTime = false;   // multi-file run, then the list of results
  bool rapids = false;    // toggle of the rapid moves
  bool settings = false;  // options dialog
};

}  // namespace tvx
