// The lines of condition files and of the parameter file: a key, a blank and a value, which is
// kEmptyWord for an empty text. Each of the two formats is one table of lines, which its reader and
// its writer walk.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "base/scan.h"
#include "model/job_record.h"
#include "model/option_fields.h"

namespace tvx {

// What happened to a settings file that was read or written.
// The only value in these files that is not a field of the job record: a spindle speed, rev/min.
struct SpindleSpeed {};

using LineValue =
    std::variant<int32_t JobRecord::*, float JobRecord::*, std::string JobRecord::*, SpindleSpeed>;

struct ParameterLine {
  FileLine line;
  LineValue value;  // its kind is the printed form: a whole number %d, a float %f, a text %s
};

// The lines of a file in their order: its own lines and those of the parameters of the feed
// adjustment that it holds.
std::vector<ParameterLine> LinesOfFile(std::vector<ParameterLine> own, FileLine FeedField::*file);

// The bytes of a file with these lines in their order: CP949, lines end in CR LF.
std::string PrintLines(std::span<const ParameterLine> lines, const JobRecord& record,
                       int32_t spindle);

// Reads the lines of kind kByPlace, each a word and a value, in the order of the table. A value
// that cannot be read leaves its field as it was; its text stays unread and becomes the key of the
// next line, so that the following lines are read one word out of step until another such text.
void ReadLinesByPlace(std::span<const ParameterLine> lines, WordScanner* words, JobRecord* record,
                      int32_t* spindle);

// Reads pairs of a key and a value up to the end of the text. Unknown keys and a last key without a
// value are skipped; of a repeated key the last value counts. A value that is no number is
// converted as far as it can be; one that overflows leaves its field as it was. `spindle` may be
// null if no line of the table needs it.
void ReadLinesByKey(std::span<const ParameterLine> lines, WordScanner* words, JobRecord* record,
                    int32_t* spindle);

}  // namespace tvx
