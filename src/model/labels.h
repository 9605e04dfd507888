#pragma once

#include <cstdint>
#include <string>

namespace tvx {

inline constexpr int32_t kKoreanLabels = 1;
inline constexpr int32_t kEnglishLabels = 2;

// The language of the labels in condition texts and information lists. Set once at the start of the
// program.
inline int32_t LabelLanguage = kKoreanLabels;

// Replaces every Korean label in the text by its English one if LabelLanguage is 2; otherwise gives
// the text as it is. Meant for whole finished texts, so a label inside a value is replaced as well.
std::string ReplaceLabels(std::string text);

}  // namespace tvx
