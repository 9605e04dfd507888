#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/job_record.h"

namespace tvx {

// The one text line that encodes all options of a file of a job list: what the lists hold beside
// each name, what a result carries, and what a run turns back into a record before it handles the
// file. The line has no line end; its fields are separated by blanks.

// Makes the line of a file that enters the job list. `options` are the dialog's current options,
// `restart` is the record of the restart dialog, of which only the restart position is taken,
// `fileSize` is in bytes, of which the low 32 bits are printed, and nothing for a file that was not
// found. With a spindle speed in 1/min the line ends in a key-code part of that speed's word.
//
// A line holds less than the record: numbers are rounded to the printed decimals, RestartTolerance,
// FeedChgAng, SideCorRat, ZupZdown, RapidFeed, InputFileType, IntNcdataFlg and MetafileCreateChk
// have no place in it, and with the adjustment off none of its conditions are written.
std::string BuildOptionLine(const JobRecord& options, const JobRecord& restart,
                            std::optional<uint64_t> fileSize, std::optional<int32_t> spindleSpeed);

// Appends the key-code part of a spindle speed in 1/min.
void AppendSpindleWord(int32_t spindleSpeed, std::string* line);

// What a line tells of its file beside the options.
struct LineFile {
  std::string currentDirectory;
  int32_t fileSize = 0;  // bytes, low 32 bits
};

// Fills a record from a line, and *file if it is not null. Each token is searched for in the whole
// line by itself, so their order is free, and any text that holds a token's text can be taken for
// it. A token without a value resets its field when it is missing; one with a value leaves its
// field alone when it is missing or its value does not read. The condition fields are left alone as
// well when the adjustment is off. Never fails.
void ParseOptionLine(JobRecord* record, std::string_view line, LineFile* file);

// The directory of a line: its second blank-separated word, empty if there is none. Returns 1.
int LineDirectory(std::string_view line, std::string* directory);

}  // namespace tvx
