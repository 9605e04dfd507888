// Checks of fields with the messages of the dialogs.
#include "platform/number_field.h"

#include <cmath>
#include <string>

#include "base/format.h"
#include "base/scan.h"

namespace tvx {

namespace {

void Refuse(const Message& message, UserInterface* ui, const std::string& path = {},
            std::initializer_list<NamedValue> values = {}) {
  ui->ShowMessage({.text = ui->Say(message, values),
                   .path = path,
                   .caption = "TVX",
                   .icon = MessageIcon::kExclamation});
}

bool EndsHere(WordScanner* scanner) {
  std::string rest;
  return !scanner->ReadWord(&rest);
}

}  // namespace

bool AcceptNumber(std::string_view text, float lowest, float highest, UserInterface* ui,
                  float* value) {
  WordScanner scanner(text);
  float number = 0;
  if (!scanner.ReadFloat(&number) || !EndsHere(&scanner) || !std::isfinite(number)) {
    Refuse({"숫자를 입력하십시오.", "Please enter a number."}, ui);
    return false;
  }
  if (number < lowest || number > highest) {
    ShowRange(lowest, highest, ui);
    return false;
  }
  *value = number;
  return true;
}

bool AcceptWholeNumber(std::string_view text, int32_t lowest, int32_t highest, UserInterface* ui,
                       int32_t* value) {
  WordScanner scanner(text);
  int32_t number = 0;
  if (!scanner.ReadInt(&number) || !EndsHere(&scanner)) {
    Refuse({"정수를 입력하십시오.", "Please enter an integer."}, ui);
    return false;
  }
  // A number of more than 32 bits is held at their end, so the range is asked of the text's value.
  const double exact = TextToDouble(text);
  if (exact < lowest || exact > highest) {
    ShowRange(static_cast<float>(lowest), static_cast<float>(highest), ui);
    return false;
  }
  *value = number;
  return true;
}

void ShowRange(float lowest, float highest, UserInterface* ui) {
  Refuse({"{lowest} 이상 {highest} 이하의 값을 입력하십시오.",
          "Please enter a value from {lowest} to {highest}."},
         ui, "", {{"lowest", ShortestFloat(lowest)}, {"highest", ShortestFloat(highest)}});
}

bool AcceptWord(const std::string& name, UserInterface* ui) {
  if (name.find_first_of(" \t\n\v\f\r") == std::string::npos) return true;
  Refuse({"빈칸이 있는 이름은 리스트와 설정 화일에 적을 수 없습니다.",
          "The name has a blank; lists and settings files cannot hold it."},
         ui, name);
  return false;
}

}  // namespace tvx
