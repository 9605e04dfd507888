// Measures the program check against a load of the same file. Each repetition is a new process that
// loads, checks, loads again and checks again.
#include <cstdio>

#include "insight/program_check.h"
#include "measuring.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

void MeasureKind(ProgramKind kind, const BenchOptions& options, const Table& table,
                 const Workspace& workspace) {
  for (const uint64_t lines : options.sizes) {
    const std::string path =
        workspace.Put({.kind = kind, .lines = lines, .spacing = options.spacing});
    Files* const files = workspace.HostFiles();
    const auto measure = [&]() -> std::vector<double> {
      LoadedProgram loaded;
      const auto load = [&] { loaded.Load(path, kind, files); };
      ProgramCheck check;
      const auto run = [&] {
        Result<ProgramCheck> checked = CheckProgram(path, {}, loaded.job, files);
        Require(checked.ok(), "the program cannot be checked");
        check = std::move(checked.value);
      };
      const double firstLoad = Seconds(load);
      const double firstCheck = Seconds(run);
      const double reload = Seconds(load);
      const double secondCheck = Seconds(run);
      Require(check.lines == lines, "the check lost lines");
      Require(check.Count(RemarkClass::kLost) == 0, "a clean program has lost remarks");
      return {firstLoad, reload, (firstCheck + secondCheck) / 2};
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
      "Program check against a load of the same file, ns per line. Ratio = check / load.\n");
  const Table table(
      {"kind          ", "lines", "first load", "reload", "check", "ratio first", "ratio reload"});
  const Workspace workspace;
  for (const ProgramKind kind : kProgramKinds) MeasureKind(kind, options, table, workspace);
  return 0;
}
