// Checks of the fields of dialogs: numbers, and names that files of words can hold.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "platform/user_interface.h"

namespace tvx {

// The check of a dialog's number field when the dialog is accepted: one number with nothing after
// it, within a range whose ends count. Returns true and sets *value; otherwise shows the user what
// is wanted, returns false and leaves *value alone. An infinite value or a NaN is no number.
bool AcceptNumber(std::string_view text, float lowest, float highest, UserInterface* ui,
                  float* value);
bool AcceptWholeNumber(std::string_view text, int32_t lowest, int32_t highest, UserInterface* ui,
                       int32_t* value);

// The same without a range.
inline bool AcceptNumber(std::string_view text, UserInterface* ui, float* value) {
  constexpr float kHighest = std::numeric_limits<float>::max();
  return AcceptNumber(text, -kHighest, kHighest, ui, value);
}
inline bool AcceptWholeNumber(std::string_view text, UserInterface* ui, int32_t* value) {
  using Limits = std::numeric_limits<int32_t>;
  return AcceptWholeNumber(text, Limits::min(), Limits::max(), ui, value);
}

// Tells the user the range of a field whose value has been refused.
void ShowRange(float lowest, float highest, UserInterface* ui);

// True for a name that lists and settings files can hold: they would cut it at a blank. Otherwise
// shows the user the name and the reason.
bool AcceptWord(const std::string& name, UserInterface* ui);

}  // namespace tvx
