#include "view/command_pad.h"

namespace tvx {

std::span<const CCommandPadDlg::Button> CCommandPadDlg::Buttons() {
  static constexpr Button kButtons[] = {
      {"Cut Time", &CCommandPadDlg::cutTime, 1000, true},
      {"TVX 출력", nullptr, kListCommand, false},
      {"급속이송", &CCommandPadDlg::rapids, 1005, true},
      {"설정", &CCommandPadDlg::settings, 1006, true},
      {"취소", nullptr, 1004, true},
  };
  return kButtons;
}

bool CCommandPadDlg::Press(const Button& button) {
  if (button.flag != nullptr) this->*button.flag = true;
  return button.closes;
}

}  // namespace tvx
