// Texts of the small settings files, whose lengths are limited in bytes of the file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/scan.h"

namespace tvx {

// Longest word, in bytes, of the configuration file and of the two lists.
inline constexpr size_t kWordBytes = 51;

// Decodes at most `limit` bytes of CP949. A character of two bytes that the limit would split is
// left out.
std::string DecodeShortText(std::string_view bytes, size_t limit);

// Reads the next word of a CP949 text, cut at kWordBytes; the rest of a longer word is dropped.
// Returns false and leaves *word alone at the end of the text.
bool ReadShortWord(WordScanner* bytes, std::string* word);

}  // namespace tvx
