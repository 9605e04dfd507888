#include "base/message.h"

#include <algorithm>

namespace tvx {

std::string Say(const Message& message, Language language,
                std::initializer_list<NamedValue> values) {
  std::string said;
  std::string_view rest = message.In(language);
  while (!rest.empty()) {
    const std::string_view piece = rest.substr(0, std::max<size_t>(PlaceLength(rest), 1));
    const std::string_view name = piece.size() > 1 ? piece.substr(1, piece.size() - 2) : "";
    const auto* const value = std::ranges::find(values, name, &NamedValue::name);
    said += value == values.end() ? piece : std::string_view(value->text);
    rest.remove_prefix(piece.size());
  }
  return said;
}

}  // namespace tvx
