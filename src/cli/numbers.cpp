// Numbers of the command line: whole words, finite values.
#include "cli/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "cli/command.h"
#include "cli/tool_text.h"

namespace tvx {
namespace {

template <typename Number>
bool ReadNumber(std::string_view text, Number* number) {
  if (text.starts_with('+')) text.remove_prefix(1);
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, *number);
  return error == std::errc() && rest == end && std::isfinite(static_cast<double>(*number));
}

template <typename Number>
bool ReadAll(std::string_view text, char separator, std::span<Number> numbers) {
  for (size_t i = 0; i < numbers.size(); ++i) {
    const bool isLast = i + 1 == numbers.size();
    const size_t end = isLast ? text.size() : text.find(separator);
    if (end == std::string_view::npos || !ReadNumber(text.substr(0, end), &numbers[i]))
      return false;
    text.remove_prefix(isLast ? end : end + 1);
  }
  return true;
}

}  // namespace

float NumberOf(const std::string& word, const std::string& what) {
  float number = 0;
  if (!ReadNumber(word, &number)) {
    throw WrongCall{Say({"{what}: 숫자가 아닙니다: '{word}'", "{what}: '{word}' is no number"},
                        {{"what", what}, {"word", word}})};
  }
  return number;
}

Vec3 ParsePoint(const std::string& word) {
  std::array<float, 3> numbers;
  if (!ReadAll(word, ',', std::span<float>(numbers))) {
    throw WrongCall{
        Say({"점 X,Y,Z가 아닙니다: '{word}'", "'{word}' is no point X,Y,Z"}, {{"word", word}})};
  }
  return {numbers[0], numbers[1], numbers[2]};
}

std::string NoSuchForm(const std::string& what, const std::string& word, const std::string& form) {
  return Say({"{what}: {form} 형식이 아닙니다: '{word}'", "{what}: '{word}' is no {form}"},
             {{"what", what}, {"word", word}, {"form", form}});
}

void ReadNumbers(const std::string& word, char separator, std::span<int32_t> numbers,
                 const std::string& what, const std::string& form) {
  if (!ReadAll(word, separator, numbers)) {
    throw WrongCall{NoSuchForm(what, word, form)};
  }
}

}  // namespace tvx
