#include "cli/time_totals.h"

#include "base/format.h"
#include "cli/output.h"
#include "cli/tool_text.h"

namespace tvx {

namespace {

constexpr Message kLonger{
    "{file}: 조정 후의 시간이 {minutes} min 더 깁니다. 조건의 최대피드는 {condition}, 프로그램의 "
    "최대피드는 {program}입니다",
    "{file}: the adjustment takes {minutes} min longer: the highest feed of the conditions is "
    "{condition}, that of the program {program}"};

}  // namespace

void NoteLongerTime(const std::string& file, const ProgrammedTime& before, float after,
                    int32_t MaxFeed) {
  if (IsQuiet() || !(after > before.minutes) || MaxFeed >= before.feed) return;
  PrintRemark(Say(kLonger, {{"file", file},
                            {"minutes", Format("%.2f", after - before.minutes)},
                            {"condition", MaxFeed},
                            {"program", before.feed}}));
}

std::string TimeTotals::Line(bool adjusts) const {
  const auto text = [](const Message& what, double minutes) {
    return Say(what) + Format(" %.2f min (%s)", minutes, ClockText(minutes).c_str());
  };
  std::string line = text({"조정 전", "programmed"}, programmed);
  if (adjusts) {
    line += ", " + text({"조정 후", "adjusted"}, adjusted) + ", " +
            text({"절약", "saved"}, programmed - adjusted);
  }
  return line + "\n";
}

}  // namespace tvx
