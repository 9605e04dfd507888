// One recorded result: the figures and the options that led to them.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <variant>

#include "model/job_record.h"

namespace tvx {

struct EntryDetails;  // reports/entry_details.h

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
  // Number of the program check (shell/view_check.h) in the window that recorded the entry; 0 for
  // none. It is no field of any file.
  uint32_t check = 0;
  // The program or its master model could not be read whole, or could not be checked for what was
  // wanted. It is no field of any file.
  bool isPart = false;
  // For the job sheet; null unless the result table keeps them. In no file of its own.
  std::shared_ptr<EntryDetails> details;
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
