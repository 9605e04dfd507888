#pragma once

#include <string>

#include "model/path.h"

namespace tvx {

// The number that a word of the call is. Throws WrongCall, with `what` for the name of the
// argument, if it is not wholly one finite number.
float NumberOf(const std::string& word, const std::string& what);

// The point that a word X,Y,Z of the call is. Throws WrongCall.
Vec3 PointOf(const std::string& word);

}  // namespace tvx
