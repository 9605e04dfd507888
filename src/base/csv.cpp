// A cell is quoted only where RFC 4180 asks for it.
#include "base/csv.h"

#include <cmath>

#include "base/format.h"
#include "base/text.h"

namespace tvx {

namespace {

constexpr std::string_view kFormulaStarts = "=+-@\t\r";

}  // namespace

std::string CsvText(std::string_view utf8) {
  std::string text = DocumentText(utf8);
  if (!text.empty() && kFormulaStarts.find(text[0]) != std::string_view::npos) {
    text.insert(text.begin(), '\'');
  }
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  ReplaceAll("\"", "\"\"", &text);
  return '"' + text + '"';
}

std::string CsvNumber(float value) {
  return std::isfinite(value) ? ShortestFloat(value) : "";
}

std::string CsvNumber(double value) {
  return std::isfinite(value) ? ShortestDouble(value) : "";
}

std::string CsvRow(std::span<const std::string> cells) {
  std::string row;
  const char* separator = "";
  for (const std::string& cell : cells) {
    row += separator + cell;
    separator = ",";
  }
  return row + "\r\n";
}

}  // namespace tvx
