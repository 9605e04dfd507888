#include "control/word_state.h"

#include <algorithm>

#include "base/format.h"

namespace tvx {

bool WordState::IsPTaken() const {
  return groups.TakesP() || std::any_of(words.mWords.begin(), words.mWords.end(),
                                        [](double m) { return m == 97 || m == 98; });
}

CutFeed WordState::Feed() const {
  switch (modes.feedMode) {
    case FeedMode::kInverseTime:
      return {words.Or('F', 0), true};
    case FeedMode::kPerTurn:
      return {modes.feed * modes.spindle, false};
    default:
      return {modes.feed, false};
  }
}

std::string WordText(char letter, double value) {
  return letter + ShortestDouble(value);
}

}  // namespace tvx
