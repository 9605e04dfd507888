// The option line: one text line that encodes all options of a file of a job list. The lists store
// it beside each name, a result records it, and a run parses it before it handles the file. Its
// fields are separated by blanks; it has no line end.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/job_record.h"

namespace tvx {

// Makes the line of a file that enters the job list. `options` are the dialog's current options.
// Of `restart`, the record of the restart dialog, only the restart position is used. `fileSize` is
// in bytes, of which the low 32 bits are printed; a file that was not found has none. With a
// spindle speed in 1/min the line ends in a key-code part with the word of that speed.
//
// A line holds less than the record: numbers are rounded to the printed decimals, RestartTolerance,
// FeedChgAng, SideCorRat, ZupZdown, RapidFeed, InputFileType, IntNcdataFlg and MetafileCreateChk
// are not written, and with the adjustment off no condition is written.
std::string BuildOptionLine(const JobRecord& options, const JobRecord& restart,
                            std::optional<uint64_t> fileSize, std::optional<int32_t> spindleSpeed);

// What a line holds about its file beside the options.
struct LineFile {
  std::string currentDirectory;
  int32_t fileSize = 0;  // bytes, low 32 bits
};

// Fills a record from a line, and *file if it is not null. Each token is searched for in the whole
// line, so tokens can have any order, and any text that contains a token is taken for it. A missing
// token resets its field if the token has no value. A token with a value leaves its field unchanged
// if it is missing or its value cannot be read. With the adjustment off, the condition fields are
// unchanged too. Never fails.
void ParseOptionLine(JobRecord* record, std::string_view line, LineFile* file);

// The directory of a line: its second blank-separated word, empty if there is none. Returns 1.
int LineDirectory(std::string_view line, std::string* directory);

// The master model file that a line names for the adjustment: the word after the first word "MMA".
// Returns false and leaves *path alone if there is none.
bool AdjustmentMaster(std::string_view line, std::string* path);

// The master model file that a line names for a copy of it: the word after the one that contains
// the first "MMA". Returns false and leaves *path alone if there is none.
bool LineMasterFile(std::string_view line, std::string* path);

}  // namespace tvx
