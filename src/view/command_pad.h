// The small column of buttons that a left click brings up. A button leaves a flag, and the view
// acts on the flags when the pad has closed.
#pragma once

#include <cstdint>
#include <span>

#include "platform/user_interface.h"

namespace tvx {

class CCommandPadDlg final : public Dialog {
 public:
  struct Button {
    const char* text;
    bool CCommandPadDlg::*flag;  // set by a press; null for none
    int id;
    bool closes;
  };

  // The buttons from top to bottom.
  static std::span<const Button> Buttons();

  // One command is not the pad's own and runs while the pad stays open: the one that shows the list
  // of results.
  static constexpr int kListCommand = 32774;

  void ClearFlags() { cutTime = rapids = settings = false; }

  // A press of a button. Returns true if the pad closes. The list command is for the caller's
  // command table.
  bool Press(const Button& button);

  bool cutTime = false;   // multi-file run, then the list of results
  bool rapids = false;    // toggle of the rapid moves
  bool settings = false;  // options dialog
};

}  // namespace tvx
