// The lines of which the condition files and the parameter file consist: a key, a blank and a
// value. Each of the two formats is one table of these lines, and its reader and writer walk the
// table.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

#include "base/scan.h"
#include "model/job_record.h"

namespace tvx {

// What happened to a settings file that was read or written.
enum class SettingsResult { kDone, kCannotOpen, kCannotWrite };

// The one value of these files that is no field of the job record: a spindle speed, rev/min.
struct SpindleSpeed {};

using LineValue =
    std::variant<int32_t JobRecord::*, float JobRecord::*, std::string JobRecord::*, SpindleSpeed>;

enum class LineReading {
  kByPlace,  // the value is taken by its place in the file, whatever its key says
  kByKey,    // the value is taken wherever its key stands, the case of its letters apart
  kNever,    // written only
};

struct ParameterLine {
  const char* key;
  LineValue value;  // its kind is the printed form: a whole number %d, a float %f, a text %s
  LineReading reading;
};

// The lines as a file holds them, in their order, in CP949 and with CR LF.
std::string PrintLines(std::span<const ParameterLine> lines, const JobRecord& record,
                       int32_t spindle);

// Reads the lines that stand by place, each a word and a value, in the order of the table. A value
// that cannot be read leaves its field as it was; its text stays unread and is then the next line's
// key, so that every following line is read one word out of step until a text makes up for it.
void ReadLinesByPlace(std::span<const ParameterLine> lines, WordScanner* words, JobRecord* record,
                      int32_t* spindle);

// Reads pairs of a key and a value up to the end of the text. Unknown keys, and a last key without
// a value, are passed over; of a key that comes twice the last value stands. A value that is no
// number gives what the conversion gives. `spindle` may be null if no line of the table needs it.
void ReadLinesByKey(std::span<const ParameterLine> lines, WordScanner* words, JobRecord* record,
                    int32_t* spindle);

}  // namespace tvx
