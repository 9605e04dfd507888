// Lines with variables, expressions and keywords.
#pragma once

#include <cstdint>

#include "control/variables.h"
#include "control/word_line.h"

namespace tvx {

// A line of the form kMacro. A line may hold both words and assignments, keywords only at its
// beginning or after an N word:
//   words and #n = value
//   GOTO n, IF [condition] GOTO n, IF [condition] THEN #n = value
//   WHILE [condition] DO k, END k
struct MacroStatement {
  enum class Kind : uint8_t { kWords, kGoto, kWhile, kEnd };
  Kind kind = Kind::kWords;
  bool isTrue = true;     // the condition of IF and WHILE
  double number = 0;      // n of GOTO, k of WHILE and END; may be vacant
  bool hasFault = false;  // an operation had no value, or an assignment no variable
};

// True if the whole line has one of the forms. *statement receives its kind, and its number unless
// that is computed. Nothing is assigned.
bool CheckMacro(const char* text, MacroStatement* statement);

// Reads the words of a line that CheckMacro accepts as if all variables were vacant: those whose
// values need no variable. *words has to be clear.
void ReadMacroWords(const char* text, WordLine* words);

// Runs a line that CheckMacro accepts: first all of its assignments, then *words, which has to be
// clear, receives its words. A vacant word does not count.
void RunMacro(const char* text, Variables* variables, MacroStatement* statement, WordLine* words);

}  // namespace tvx
