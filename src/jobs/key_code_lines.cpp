// Key codes as functions from a line and a word to a new line.

#include "jobs/key_code_lines.h"

#include <algorithm>

#include "base/text.h"

namespace tvx {

namespace {

constexpr size_t kFileBytes = 99;  // what is read of a key-code file, but for the rest of a word

size_t PartStart(std::string_view line) {
  return std::min(line.find(kKeyCodeWord), line.size());
}

std::string WithPartStarted(std::string_view line) {
  std::string newLine(line);
  if (KeyCodePart(line).empty()) newLine.append(" ").append(kKeyCodeWord).append(" ");
  return newLine;
}

}  // namespace

std::string_view KeyCodePart(std::string_view line) {
  return line.substr(PartStart(line));
}

std::string WithKeyCodePart(std::string_view line, std::string_view part) {
  return std::string(line.substr(0, PartStart(line))).append(part);
}

std::string WithKeyCode(std::string_view line, std::string_view text) {
  return WithPartStarted(line).append(" ").append(text);
}

std::optional<std::string> WithKeyCodeBefore(std::string_view line, std::string_view word,
                                             std::string_view text) {
  std::string newLine = WithPartStarted(line);
  const size_t at = newLine.find(word);
  if (at == std::string::npos) return std::nullopt;
  return newLine.insert(at, std::string(text) + "  ");
}

bool HasKeyCode(std::string_view line, std::string_view word) {
  const size_t at = line.find(word);
  return !KeyCodePart(line).empty() && at != std::string_view::npos && at >= PartStart(line);
}

std::string WithKeyCodeReplaced(std::string_view line, std::string_view word,
                                std::string_view text) {
  std::string newLine(line);
  return newLine.replace(newLine.find(word), word.size(), text);
}

std::string KeyCodePartOfFile(std::string_view bytes) {
  std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  if (line.size() > kFileBytes) line = line.substr(0, line.find(' ', kFileBytes - 1));
  return DecodeCp949(line);
}

}  // namespace tvx
