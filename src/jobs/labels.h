// The labels of condition texts and information lists, in Korean and in English.
#pragma once

#include <cstdint>
#include <string>

#include "base/message.h"

namespace tvx {

inline constexpr int32_t kKoreanLabels = 1;
inline constexpr int32_t kEnglishLabels = 2;

// Any language but 2 is Korean.
inline Language LanguageOf(int32_t language) {
  return language == kEnglishLabels ? Language::kEnglish : Language::kKorean;
}

// Replaces every Korean label in the text by its English one if the language is 2; any other
// language returns the text unchanged. Takes a whole text: a label inside a value is replaced, too.
std::string ReplaceLabels(std::string text, int32_t language);

}  // namespace tvx
