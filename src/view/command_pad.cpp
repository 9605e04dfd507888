#include "view/command_pad.h"

namespace tvx {

std::span<const CCommandPadDlg::Button> CCommandPadDlg::Buttons() {
  static constexpr Button kButtons[] = {
      {1000, "Cut Time", &CCommandPadDlg::cutTime, true},
      {kListCommand, "TVX 출력", nullptr, false},
      {1005, "급속이송", &CCommandPadDlg::rapids, true},
      {1006, "설정", &CCommandPadDlg::settings, true},
      {1004, "취소", nullptr, true},
  };
  return kButtons;
}

bool CCommandPadDlg::Press(const Button& button) {
  if (button.flag != nullptr) this->*button.flag = true;
  return button.closes;
}

}  // namespace tvx
