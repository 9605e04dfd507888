#include "cli/tool_text.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "base/text.h"

namespace tvx {

namespace {

bool IsHangul(std::string_view character) {
  return character >= "\uAC00" && character <= "\uD7A3";
}

size_t ColumnsOf(std::string_view text) {
  size_t columns = 0;
  for (size_t at = 0; at < text.size();) {
    const size_t end = CharacterEnd(text, at);
    columns += IsHangul(text.substr(at, end - at)) ? 2 : 1;
    at = end;
  }
  return columns;
}

std::string Blanks(const std::string& text, size_t columns) {
  return std::string(columns - std::min(columns, ColumnsOf(text)), ' ');
}

}  // namespace

Language ToolLanguage() {
  const char* const language = std::getenv("TVX_LANGUAGE");
  return language != nullptr && std::string_view(language) == "ko" ? Language::kKorean
                                                                   : Language::kEnglish;
}

std::string Say(const Message& message, std::initializer_list<NamedValue> values) {
  return Say(message, ToolLanguage(), values);
}

std::string PadLeft(const std::string& text, size_t columns) {
  return Blanks(text, columns) + text;
}

std::string PadRight(const std::string& text, size_t columns) {
  return text + Blanks(text, columns);
}

}  // namespace tvx
