// Suggestions for misspelt names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// The name most like `word`, without regard to case, or an empty text if none is close enough to
// be what was meant.
std::string NearestName(std::string_view word, const std::vector<std::string>& names);

// "; did you mean 'NAME'?", or an empty text without such a name: the tail of an error line.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& names);

}  // namespace tvx
