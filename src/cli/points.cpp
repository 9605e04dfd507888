#include "cli/points.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

#include "cli/errors.h"

namespace tvx {
namespace {

bool ReadNumber(std::string_view text, float* number) {
  if (!text.empty() && text[0] == '+') text.remove_prefix(1);
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, *number);
  return error == std::errc() && rest == end && std::isfinite(*number);
}

std::vector<std::string_view> SplitAtCommas(std::string_view text) {
  std::vector<std::string_view> parts;
  for (size_t start = 0; start <= text.size();) {
    const size_t comma = std::min(text.find(',', start), text.size());
    parts.push_back(text.substr(start, comma - start));
    start = comma + 1;
  }
  return parts;
}

}  // namespace

float NumberOf(const std::string& word, const std::string& what) {
  float number = 0;
  if (!ReadNumber(word, &number)) throw WrongCall{what + ": '" + word + "' is no number"};
  return number;
}

Vec3 PointOf(const std::string& word) {
  const std::vector<std::string_view> parts = SplitAtCommas(word);
  Vec3 point;
  if (parts.size() != 3 || !ReadNumber(parts[0], &point.x) || !ReadNumber(parts[1], &point.y) ||
      !ReadNumber(parts[2], &point.z)) {
    throw WrongCall{"'" + word + "' is no point X,Y,Z"};
  }
  return point;
}

}  // namespace tvx
