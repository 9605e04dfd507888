// Bytes as text.
#pragma once

#include <string>
#include <string_view>

namespace tvx {

// Base64 with padding and without line ends.
std::string Base64(std::string_view bytes);

}  // namespace tvx
