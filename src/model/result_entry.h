// One recorded result: the figures and the options that led to them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

#include "model/job_record.h"

namespace tvx {

// The record of one finished cut-time run: the file, the options it ran with, and the figures.
struct CutTimeEntry : FeedOptions, RestartOptions {
  int32_t RapidFeed = 0;    // mm/min
  int32_t averageFeed = 0;  // mm/min
  float cutLength = 0;      // mm, straight cuts
  float rapidLength = 0;    // mm
  float cutMinutes = 0;
  float rapidMinutes = 0;
  float totalMinutes = 0;
  std::string fileName;     // without directory
  std::string dirName;      // set by the multi-file run only
  std::string pictureName;  // empty when no picture was made
  std::string optionLine;   // set by the multi-file run only
};

using EntryMember =
    std::variant<int32_t CutTimeEntry::*, float CutTimeEntry::*, std::string CutTimeEntry::*>;

struct EntryField {
  const char* name;
  EntryMember member;
};

// All fields in their order.
std::span<const EntryField> EntryFields();

// Copies the option fields of a record into an entry; figures and names stay as they are.
void CopyOptions(const JobRecord& record, CutTimeEntry* entry);

}  // namespace tvx
