// Texts of the tool in its language, and the columns of its tables.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>

#include "base/message.h"

namespace tvx {

// Korean if the environment asks for it (TVX_LANGUAGE=ko), else English. Names in JSON and
// comma-separated values are English in either.
Language ToolLanguage();

// A message in that language.
std::string Say(const Message& message, std::initializer_list<NamedValue> values = {});

// The text with blanks before or after it, so that it takes so many columns of a terminal. Hangul
// takes two columns a character.
std::string PadLeft(const std::string& text, size_t columns);
std::string PadRight(const std::string& text, size_t columns);

}  // namespace tvx
