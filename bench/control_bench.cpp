// Measures the control reading against a load of the same file. Each repetition is a new process
// that loads, reads, loads again and reads again.
#include <cstdio>

#include "control/control_reading.h"
#include "measuring.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

class SummingReceiver : public MoveReceiver {
 public:
  void Move(const ControlMove& move) override {
    ++moves;
    length += move.length;
  }
  void Event(const ControlEvent&) override {}

  uint64_t moves = 0;
  double length = 0;  // mm
};

void MeasureKind(ProgramKind kind, const BenchOptions& options, const Table& table,
                 const Workspace& workspace) {
  for (const uint64_t lines : options.sizes) {
    const std::string path =
        workspace.Put({.kind = kind, .lines = lines, .spacing = options.spacing});
    Files* const files = workspace.HostFiles();
    const auto measure = [&]() -> std::vector<double> {
      LoadedProgram loaded;
      const auto load = [&] { loaded.Load(path, kind, files); };
      const auto read = [&] {
        SummingReceiver receiver;
        ReadingRemarks remarks;
        const Status status = ReadAsControl(path, {}, files, &receiver, &remarks);
        Require(status.ok(), "the program cannot be read");
        Require(receiver.moves + 20 > lines, "the reading lost moves");
        Require(remarks.Sorted().empty(), "a clean program has remarks");
        Keep(receiver.length);
      };
      const double firstLoad = Seconds(load);
      const double firstRead = Seconds(read);
      const double reload = Seconds(load);
      const double secondRead = Seconds(read);
      return {firstLoad, reload, (firstRead + secondRead) / 2};
    };
    const std::vector<double> medians = MediansOfFreshProcesses(options.repetitions, measure);
    const auto perLine = [&](double seconds) {
      return Fixed(seconds * 1e9 / static_cast<double>(lines), 1);
    };
    table.Row({std::string(KindName(kind)), Grouped(lines), perLine(medians[0]),
               perLine(medians[1]), perLine(medians[2]), Fixed(medians[2] / medians[0], 2),
               Fixed(medians[2] / medians[1], 2)});
  }
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  std::printf(
      "Control reading against a load of the same file, ns per line. Ratio = reading / load.\n");
  const Table table({"kind          ", "lines", "first load", "reload", "reading", "ratio first",
                     "ratio reload"});
  const Workspace workspace;
  for (const ProgramKind kind : {ProgramKind::kRaster, ProgramKind::kArcs}) {
    MeasureKind(kind, options, table, workspace);
  }
  return 0;
}
