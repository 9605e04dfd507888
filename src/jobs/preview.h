#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// The head and the tail of an NC file as the job dialog previews it: up to 30 lines, three rows "
// ." for the gap, and the lines of its last 200 bytes. Long lines come in pieces.
std::vector<std::string> PreviewLines(std::string_view bytes);

}  // namespace tvx
