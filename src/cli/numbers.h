// Numbers in the arguments of a command.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "model/vectors.h"

namespace tvx {

// The number that a word of the call is. Throws WrongCall, with `what` for the name of the
// argument, if it is not wholly one finite number.
float NumberOf(const std::string& word, const std::string& what);

// The point that a word X,Y,Z of the call is. Throws WrongCall.
Vec3 ParsePoint(const std::string& word);

// "`what`: 'WORD' is no `form`".
std::string NoSuchForm(const std::string& what, const std::string& word, const std::string& form);

// The numbers of a word of the call, with a separator between them ("3,-4", "800x600"), one for
// each place of `numbers`. Throws WrongCall with NoSuchForm if there are more or
// fewer or if one is no finite number of 32 bits.
void ReadNumbers(const std::string& word, char separator, std::span<int32_t> numbers,
                 const std::string& what, const std::string& form);

}  // namespace tvx
