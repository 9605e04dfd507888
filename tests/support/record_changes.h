// Job records as text, for comparisons in tests.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "base/format.h"
#include "model/job_record.h"

namespace tvx {

inline std::string FieldText(int32_t value) {
  return std::to_string(value);
}
inline std::string FieldText(float value) {
  return ShortestFloat(value);
}
inline std::string FieldText(const std::string& value) {
  return value;
}
inline std::string FieldText(const std::vector<std::string>& value) {
  std::string words;
  for (const std::string& word : value) words += "[" + word + "]";
  return words;
}

// The fields of a record that differ from those of another, as "NAME=VALUE NAME=VALUE" in the order
// of the record; a list as "NAME=[WORD][WORD]". A test that compares this with a text also shows
// that every other field stayed as it was.
inline std::string Changes(const JobRecord& before, const JobRecord& after) {
  std::string changes;
  for (const JobField& field : JobFields()) {
    std::visit(
        [&](auto member) {
          if (before.*member == after.*member) return;
          if (!changes.empty()) changes += " ";
          changes += std::string(field.name) + "=" + FieldText(after.*member);
        },
        field.member);
  }
  return changes;
}

// The other way round: a record of defaults with such changes, all but those of lists.
inline JobRecord Record(const std::string& changes) {
  JobRecord record;
  std::istringstream words(changes);
  for (std::string word; words >> word;) {
    const size_t equals = word.find('=');
    EXPECT_TRUE(SetJobField(&record, word.substr(0, equals), word.substr(equals + 1))) << word;
  }
  return record;
}

}  // namespace tvx
