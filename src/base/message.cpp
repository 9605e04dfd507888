#include "base/message.h"

#include <algorithm>

namespace tvx {

namespace {

// What replaces a place; the place itself if there is no value for it.
std::string_view ValueOf(std::string_view place, std::initializer_list<NamedValue> values) {
  const std::string_view name = place.substr(1, place.size() - 2);
  const auto* const value = std::ranges::find(values, name, &NamedValue::name);
  return value == values.end() ? place : value->text;
}

}  // namespace

std::string Say(const Message& message, Language language,
                std::initializer_list<NamedValue> values) {
  std::string said;
  std::string_view rest = message.In(language);
  while (!rest.empty()) {
    const size_t length = PlaceLength(rest);
    if (length > 0) {
      said += ValueOf(rest.substr(0, length), values);
    } else {
      said += rest.front();
    }
    rest.remove_prefix(std::max<size_t>(length, 1));
  }
  return said;
}

}  // namespace tvx
