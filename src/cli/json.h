// Records and results as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace tvx {

// Keys in the order in which they were put in.
using Json = nlohmann::ordered_json;

// The text of a document, one value a line, ended by a line feed. Real numbers are printed in the
// shortest plain form that reads back to the same value of 64 bits; what is infinite is the largest
// of 32 bits, and what is no number is 0.
std::string JsonText(const Json& document);

// A value of 32 bits, which is printed in the shortest form that reads back to the same 32 bits:
// 0.1 and not 0.10000000149.
Json SingleJson(float value);

// The slots of a list up to the first empty one.
Json ListJson(const std::vector<std::string>& list);

// Every field of a record by its name, from the record's own table of fields (JobFields()).
template <typename Record, typename Fields>
Json FieldsJson(const Record& record, const Fields& fields) {
  Json object = Json::object();
  for (const auto& field : fields) {
    std::visit(
        [&](auto member) {
          const auto& value = record.*member;
          if constexpr (std::is_same_v<decltype(value), const std::vector<std::string>&>) {
            object[field.name] = ListJson(value);
          } else if constexpr (std::is_same_v<decltype(value), const float&>) {
            object[field.name] = SingleJson(value);
          } else {
            object[field.name] = value;
          }
        },
        field.member);
  }
  return object;
}

}  // namespace tvx
