// The preview of an NC file in the job dialog.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// The rows for the bytes of a file: up to 30 lines of its head, three rows " ." for the gap, and
// the lines of its last 200 bytes. A line of more than 79 bytes is split into pieces.
std::vector<std::string> PreviewLines(std::string_view bytes);

}  // namespace tvx
