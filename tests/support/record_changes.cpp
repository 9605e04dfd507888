#include "support/record_changes.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/format.h"

namespace tvx {

namespace {

std::string Text(int32_t value) {
  return Format("%d", value);
}
std::string Text(float value) {
  return ShortestFloat(value);
}
std::string Text(const std::string& value) {
  return value;
}
std::string Text(const std::vector<std::string>& value) {
  std::string words;
  for (const std::string& word : value) words += "[" + word + "]";
  return words;
}

}  // namespace

std::string Changes(const JobRecord& before, const JobRecord& after) {
  std::string changes;
  for (const JobField& field : JobFields()) {
    std::visit(
        [&](auto member) {
          if (before.*member == after.*member) return;
          if (!changes.empty()) changes += " ";
          changes += std::string(field.name) + "=" + Text(after.*member);
        },
        field.member);
  }
  return changes;
}

JobRecord Record(std::string_view changes) {
  JobRecord record;
  std::istringstream words{std::string(changes)};
  for (std::string word; words >> word;) {
    const size_t equals = word.find('=');
    EXPECT_TRUE(SetJobField(&record, word.substr(0, equals), word.substr(equals + 1))) << word;
  }
  return record;
}

}  // namespace tvx
