// Splits word-address lines into words.
#pragma once

#include <string_view>

#include "control/word_line.h"

namespace tvx {

// An O word with a keyword: the beginning or the end of a subroutine, or another statement that is
// not run.
struct OKeyword {
  enum class Kind : uint8_t { kSub, kEndSub, kOther };
  Kind kind = Kind::kOther;
  uint64_t name = 0;  // the same for the same number or name
};

// Reads the words of a line, up to its line feed. *words has to be clear. For a statement it
// receives the words before it; *keyword is set only for the form kOKeyword.
LineForm ScanWords(const char* text, WordLine* words, OKeyword* keyword);

// Takes one of the keywords of statements: IF, THEN, GOTO, WHILE, DO, END. False, with *text alone,
// if there is none.
bool TakeKeyword(const char** text);

}  // namespace tvx
