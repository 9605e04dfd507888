// JSON text with numbers that read back to the same value.
#include "cli/json.h"

#include <cfloat>
#include <cmath>
#include <cstdlib>

#include "base/format.h"

namespace tvx {
namespace {

std::string ScalarText(const Json& value) {
  if (value.is_number_float()) {
    const double number = value.get<double>();
    // What is no number reads as 0 in every language, and "null" in none that expects a number.
    if (std::isnan(number)) return "0";
    if (std::isinf(number)) return ShortestFloat(std::copysign(FLT_MAX, number > 0 ? 1.F : -1.F));
    return ShortestDouble(number);
  }
  // A file name of the host may hold any bytes.
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void Append(const Json& value, const std::string& indent, std::string* text) {
  if (!value.is_structured() || value.empty()) {
    *text += ScalarText(value);
    return;
  }
  const std::string inner = indent + "  ";
  *text += value.is_object() ? "{" : "[";
  bool first = true;
  for (const auto& item : value.items()) {
    *text += (first ? "\n" : ",\n") + inner;
    if (value.is_object()) *text += ScalarText(item.key()) + ": ";
    Append(item.value(), inner, text);
    first = false;
  }
  *text += "\n" + indent + (value.is_object() ? "}" : "]");
}

}  // namespace

Json SingleJson(float value) {
  return std::isfinite(value) ? std::strtod(ShortestFloat(value).c_str(), nullptr) : double{value};
}

Json ListJson(const std::vector<std::string>& list) {
  Json words = Json::array();
  for (const std::string& word : list) {
    if (word.empty()) break;
    words.push_back(word);
  }
  return words;
}

std::string JsonText(const Json& document) {
  std::string text;
  Append(document, "", &text);
  return text + "\n";
}

}  // namespace tvx
