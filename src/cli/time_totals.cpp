#include "cli/time_totals.h"

#include "base/format.h"
#include "cli/output.h"

namespace tvx {

void NoteLongerTime(const std::string& file, const ProgrammedTime& before, float after,
                    int32_t MaxFeed) {
  if (IsQuiet() || !(after > before.minutes) || MaxFeed >= before.feed) return;
  PrintRemark(file + Format(": the adjustment takes %.2f min longer: the highest feed of the "
                            "conditions is %d, that of the program %d",
                            after - before.minutes, MaxFeed, before.feed));
}

std::string TimeTotals::Line(bool adjusts) const {
  const auto text = [](const char* what, double minutes) {
    return Format("%s %.2f min (%s)", what, minutes, ClockText(minutes).c_str());
  };
  std::string line = text("programmed", programmed);
  if (adjusts) {
    line += ", " + text("adjusted", adjusted) + ", " + text("saved", programmed - adjusted);
  }
  return line + "\n";
}

}  // namespace tvx
