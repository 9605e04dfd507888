// The control reading: a program as a machine control runs it, with its cycles, subprograms,
// variables, planes and units. The plain reading of the loader is the other one.
#pragma once

#include <cstdint>
#include <string>

#include "control/moves.h"
#include "control/reading_remarks.h"
#include "platform/files/files.h"
#include "platform/progress.h"

namespace tvx {

struct ReadingOptions {
  bool isConversational = false;
  bool isIntegerData = false;  // word-address lengths without a decimal point are thousandths
  // A run that takes so many lines more than the program has does not end by itself.
  uint64_t stepsBeyondLines = 10'000'000;
  Progress* progress = NoProgress();  // gets the bytes read
};

// Runs a program, a drive path, to its end, or to the limit of a program that does not end
// (kEndless). The receiver gets moves and events while the program runs, the remarks are added to
// those that are there. Fails with kWrongFormat if the format has no control reading, and with
// kStopped if the user stopped it. A read that fails (kReadFailed, kChanged) ends the program.
Status ReadAsControl(const std::string& path, const ReadingOptions& options, Files* files,
                     MoveReceiver* receiver, ReadingRemarks* remarks);

}  // namespace tvx
