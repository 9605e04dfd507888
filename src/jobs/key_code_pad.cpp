// The captions of the key-code pad, and its user keys.

#include "jobs/key_code_pad.h"

namespace tvx {

std::span<const std::vector<const char*>> CKeyCodeDlg::Rows() {
  static const std::vector<const char*> kRows[] = {
      {"1", "2", "3", "4", "5", "6", "7", "8", "9", "0"},
      {"+", "-", "/", "*", ".", ",", "(", ")", "[", "]"},
      {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J"},
      {"K", "L", "M", "N", "O", "P", "Q", "R", "S", "T"},
      {"U", "V", "W", "X", "Y", "Z", "#", "{", "}", "0"},
      {"M01", "M02", "M03", "M20", "M21", "M22", "M87", "M88"},
      {"G17", "G18", "G19", "G40", "G41", "G42", "G43", "G44"},
      {"G49", "G51", "G52", "G53", "G54", "G55", "G56", "G57"},
      {"G58", "G59", "G90", "G91", "G92"},
  };
  return kRows;
}

std::span<const char* const> CKeyCodeDlg::UserKeyCaptions() {
  static constexpr const char* kCaptions[] = {"UK 1", "UK2", "UK3", "UK4",  "UK5", "UK6",
                                              "UK7",  "UK8", "UK9", "UK10", "UK11"};
  return kCaptions;
}

void CKeyCodeDlg::PressUserKey(size_t n) {
  if (n < userKeys_->size()) field += (*userKeys_)[n];
  field += ' ';
}

bool RunKeyCodePad(CKeyCodeDlg* pad, UserInterface* ui) {
  pad->Open();
  return ui->RunModal(pad);
}

}  // namespace tvx
