// Escapes and splits the lines of the protocol.
#include "reports/calc_lines.h"

namespace tvx {

std::string CalcLine(std::string_view word, std::string_view argument) {
  std::string line(word);
  line += ' ';
  for (const char letter : argument) {
    switch (letter) {
      case '\\':
        line += "\\\\";
        break;
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      default:
        line += letter;
    }
  }
  return line;
}

std::pair<std::string, std::string> SplitCalcLine(std::string_view line) {
  const size_t blank = line.find(' ');
  std::pair<std::string, std::string> parts(line.substr(0, blank), "");
  if (blank == std::string_view::npos) return parts;
  for (size_t i = blank + 1; i < line.size(); ++i) {
    char letter = line[i];
    if (letter == '\\' && i + 1 < line.size()) {
      letter = line[++i];
      if (letter == 'n') letter = '\n';
      if (letter == 'r') letter = '\r';
    }
    parts.second += letter;
  }
  return parts;
}

}  // namespace tvx
