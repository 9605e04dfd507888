#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/user_interface.h"

namespace tvx {

// A pad of buttons for composing a short text without a keyboard at the machine: key codes, a file
// mask, a user key.
class CKeyCodeDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "Key code를 입력하시요 !!";
  static constexpr char kClear[] = "Clear";

  // `userKeys` is the program's list and is read at the moment of a press; it outlives the pad.
  explicit CKeyCodeDlg(const std::vector<std::string>* userKeys) : userKeys_(userKeys) {}

  // The captions of the character and code buttons, in rows.
  static std::span<const std::vector<const char*>> Rows();
  // The captions of the buttons of user keys 1, 2, and so on.
  static std::span<const char* const> UserKeyCaptions();

  // The field starts with KeyText.
  void Open() { field = KeyText; }

  // A caption button appends its caption, the button of user key n that key and a blank.
  void Press(const char* caption) { field += caption; }
  void PressUserKey(size_t n);
  void Clear() { field.clear(); }

  // "OK": takes what stands in the field. A cancel leaves KeyText as it was.
  Closing Accept() {
    KeyText = field;
    return Closing::kAccepted;
  }

  std::string KeyText;  // stays from one opening to the next
  std::string field;    // the edit field; the user may also type into it

 private:
  const std::vector<std::string>* userKeys_;
};

// Opens the pad and tells whether it was accepted.
bool RunKeyCodePad(CKeyCodeDlg* pad, UserInterface* ui);

}  // namespace tvx
