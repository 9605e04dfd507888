// A pad of buttons for composing a short text without a keyboard at the machine: key codes, a file
// mask, a user key.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/user_interface.h"

namespace tvx {

class CKeyCodeDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "Key code를 입력하시요 !!";
  static constexpr char kClear[] = "Clear";

  // `userKeys` is the program's list. It outlives the pad and is read at each press.
  explicit CKeyCodeDlg(const std::vector<std::string>* userKeys) : userKeys_(userKeys) {}

  // The captions of the character and code buttons, in rows.
  static std::span<const std::vector<const char*>> Rows();
  // The captions of the buttons of user keys 1, 2, and so on.
  static std::span<const char* const> UserKeyCaptions();

  // The field starts with KeyText.
  void Open() { field = KeyText; }

  // A caption button appends its caption; the button of user key n appends that key and a blank.
  void Press(const char* caption) { field += caption; }
  void PressUserKey(size_t n);
  void Clear() { field.clear(); }

  // "OK": KeyText becomes the text of the field. A cancel leaves KeyText as it was.
  Closing Accept() {
    KeyText = field;
    return Closing::kAccepted;
  }

  std::string KeyText;  // kept from one opening to the next
  std::string field;    // the edit field; the user may also type into it

 private:
  const std::vector<std::string>* userKeys_;
};

// Opens the pad. Returns true if it was accepted.
bool RunKeyCodePad(CKeyCodeDlg* pad, UserInterface* ui);

}  // namespace tvx
