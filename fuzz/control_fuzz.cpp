// Fuzzes the control reading of word-address programs. The first byte of the input selects integer
// data (I). The moves have to form one path of finite values, and line ends of the other kind must
// not change it.

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <tuple>

#include "control/control_reading.h"
#include "fuzz_world.h"

namespace {

using namespace tvx;

// Enough for loops and calls, and soon at an end.
constexpr uint64_t kSteps = 3000;

bool AreFinite(const Point& point) {
  return std::all_of(point.begin(), point.end(), [](double value) { return std::isfinite(value); });
}

class CheckingReceiver : public MoveReceiver {
 public:
  void Move(const ControlMove& move) override {
    Require(move.start == end_ && AreFinite(move.end));
    Require(std::isfinite(move.feed) && move.feed >= 0);
    Require(std::isfinite(move.length) && move.length > 1e-9);
    Require(move.kind != MoveKind::kRapid || move.feed == 0);
    if (move.kind == MoveKind::kArc) {
      Require(std::isfinite(move.sweep) && std::abs(move.sweep) > 0);
      Require(std::isfinite(move.centre[0]) && std::isfinite(move.centre[1]));
    }
    Step(move.line, move.run);
    end_ = move.end;
  }
  void Event(const ControlEvent& event) override {
    Require(std::isfinite(event.value));
    Require(event.kind != EventKind::kDwell || event.value > 0);
    Step(event.line, event.run);
  }

  uint64_t count = 0;
  uint64_t lastLine = 0;  // the largest

  const Point& End() const { return end_; }

 private:
  void Step(uint64_t line, uint64_t run) {
    Require(line >= 1 && run >= run_);
    run_ = run;
    lastLine = std::max(lastLine, line);
    ++count;
  }

  Point end_{};
  uint64_t run_ = 0;
};

void CheckRemarks(ReadingRemarks* remarks, uint64_t lines) {
  const ReadingRemark* before = nullptr;
  for (const ReadingRemark& remark : remarks->Sorted()) {
    Require(remark.line >= 1 && remark.line <= lines);
    Require(before == nullptr ||
            std::tie(before->line, before->id) < std::tie(remark.line, remark.id));
    before = &remark;
  }
}

std::string WithCarriageReturns(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

CheckingReceiver Read(std::string_view text, bool isIntegerData) {
  FuzzFiles files(text);
  CheckingReceiver receiver;
  ReadingRemarks remarks;
  const ReadingOptions options{.isIntegerData = isIntegerData, .stepsBeyondLines = kSteps};
  Require(ReadAsControl("c:\\fuzz.nc", options, &files, &receiver, &remarks).ok());
  const auto lines = static_cast<uint64_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  Require(receiver.lastLine <= lines);
  CheckRemarks(&remarks, lines);
  return receiver;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string_view text = AsText(data + 1, size - 1);
  const CheckingReceiver first = Read(text, data[0] == 'I');
  const CheckingReceiver second = Read(WithCarriageReturns(text), data[0] == 'I');
  Require(first.count == second.count && first.End() == second.End());
  return 0;
}
