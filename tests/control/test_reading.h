// Runs programs from texts and lists what the control reading makes of them.
#pragma once

#include <cstdlib>
#include <numbers>
#include <string>
#include <vector>

#include "base/format.h"
#include "control/control_reading.h"
#include "support/memory_files.h"

namespace tvx {

// Keeps everything.
class KeepingReceiver : public MoveReceiver {
 public:
  void Move(const ControlMove& move) override {
    moves.push_back(move);
    Add(move.line, MoveText(move));
  }
  void Event(const ControlEvent& event) override {
    constexpr const char* kNames[] = {"dwell", "tool", "stop", "code"};
    Add(event.line, Format("%s %.6g", kNames[static_cast<size_t>(event.kind)], event.value));
  }

  std::vector<ControlMove> moves;
  std::string list;   // "; " between its entries
  std::string lines;  // the source line of each entry

 private:
  static std::string MoveText(const ControlMove& move) {
    const auto number = [](double value) {
      return Format("%.6g", std::abs(value) < 1e-9 ? 0 : value);
    };
    std::string text = move.kind == MoveKind::kRapid ? "rapid"
                       : move.kind == MoveKind::kCut ? "cut"
                                                     : "arc";
    for (const double value : move.end) text += " " + number(value);
    if (move.kind != MoveKind::kRapid) text += " F" + number(move.feed);
    if (move.kind != MoveKind::kArc) return text;
    text.append(" ").append(PlaneName(move.plane));
    for (const double value : move.centre) text += " " + number(value);
    return text + " " + number(move.sweep * 180 / std::numbers::pi);
  }

  void Add(uint64_t line, const std::string& text) {
    list += (list.empty() ? "" : "; ") + text;
    lines += (lines.empty() ? "" : " ") + std::to_string(line);
  }
};

struct TestReading {
  explicit TestReading(const std::string& text, const ReadingOptions& options = {}) {
    files.Put("c:\\a.nc", text);
    result = ReadAsControl("c:\\a.nc", options, &files, &receiver, &remarks);
  }

  // "2 not-read, 5 macro": lines and ids.
  std::string Remarks() {
    std::string text;
    for (const ReadingRemark& remark : remarks.Sorted()) {
      text += (text.empty() ? "" : ", ") + std::to_string(remark.line) + " ";
      text += ReadingRemarkName(remark.id);
    }
    return text;
  }

  MemoryFiles files;
  KeepingReceiver receiver;
  ReadingRemarks remarks;
  Status result;
};

// A program, and what the control reading makes of it.
struct ReadingCase {
  const char* program;
  const char* moves;
  const char* remarks = "";
};

// Moves and events: "rapid X Y Z; cut X Y Z F; arc X Y Z F plane centre degrees; dwell 0.5".
inline std::string Moves(const std::string& program, const ReadingOptions& options = {}) {
  return TestReading(program, options).receiver.list;
}

}  // namespace tvx

// Runs each case of a table.
#define EXPECT_READINGS(cases)                                  \
  for (const ReadingCase& row : (cases)) {                      \
    TestReading reading(row.program);                           \
    EXPECT_EQ(reading.receiver.list, row.moves) << row.program; \
    EXPECT_EQ(reading.Remarks(), row.remarks) << row.program;   \
  }                                                             \
  static_assert(true)
