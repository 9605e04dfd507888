#include "control/word_state.h"

#include <algorithm>

#include "base/format.h"

namespace tvx {

bool WordState::IsPTaken() const {
  return groups.TakesP() || std::any_of(words.mWords.begin(), words.mWords.end(),
                                        [](double m) { return m == 97 || m == 98; });
}

std::string WordText(char letter, double value) {
  return letter + ShortestDouble(value);
}

}  // namespace tvx
