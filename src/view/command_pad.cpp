#include "view/command_pad.h"

namespace tvx {

std::span<const CCommandPadDlg::Button> CCommandPadDlg::Buttons() {
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

bool CCommandPadDlg::Press(const Button& button) {
  if (button.flag != nullptr) this->*button.flag = true;
  return button.closes;
}

}  // namespace tvx
