// The small column of buttons that a left click opens. A pressed button sets a flag; the view acts
// on the flags after the pad has closed.
#pragma once

#include <span>

#include "platform/user_interface.h"
#include "session/command_id.h"

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
  static std::span<const Button> Buttons() {
    using enum CommandId;
    static constexpr Button kButtons[] = {
        {"Cut Time", &CCommandPadDlg::cutTime, kPadJobList, true},
        {"TVX 출력", nullptr, kResultList, false},
        {"급속이송", &CCommandPadDlg::rapids, kPadRapids, true},
        {"설정", &CCommandPadDlg::settings, kPadOptions, true},
        {"취소", nullptr, kPadCancel, true},
    };
    return kButtons;
  }

  void ClearFlags() { cutTime = rapids = settings = false; }

  // Sets the flag of a pressed button. Returns true if the pad closes. The button of the result
  // list leaves it open and sets no flag: the caller runs its command.
  bool Press(const Button& button) {
    if (button.flag != nullptr) this->*button.flag = true;
    return button.closes;
  }

  bool cutTime = false;   // multi-file run, then the list of results
  bool rapids = false;    // toggle of the rapid moves
  bool settings = false;  // options dialog
};

}  // namespace tvx
