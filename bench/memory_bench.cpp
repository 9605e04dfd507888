// Measures memory: the peak after load, feed pass and cut time in bytes per block, and the growth
// of the peak over a hundred repetitions in one process.
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>

#include "feed/feed_pass.h"
#include "measuring.h"
#include "stats/cut_time.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

// Allowance for everything except the blocks: code, libraries, buffers.
constexpr double kBaseBytes = 16.0 * 1024 * 1024;
constexpr int kJobs = 100;

// A memory figure of this process from /proc, in bytes: "VmHWM:" is the peak so far, "VmRSS:" the
// current use.
double MemoryFigure(std::string_view name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (!line.starts_with(name)) continue;
    const size_t digits = std::min(line.find_first_of("0123456789"), line.size());
    double kilobytes = 0;
    std::from_chars(line.data() + digits, line.data() + line.size(), kilobytes);
    return kilobytes * 1024;
  }
  Require(false, "the system does not report the memory of a process");
  return 0;
}

struct Job {
  LoadedProgram loaded;
  FeedPassMemory memory;
  CutTimeEntry entry;

  BlockStore* store() { return &loaded.program.store; }
  void Pass() { FeedPass(&loaded.program, loaded.job, nullptr, &memory); }
  void CutTime() { ComputeCutTime(store(), loaded.job, &entry); }
};

void MeasurePeaks(ProgramKind kind, uint64_t lines, const BenchOptions& options, const Table& table,
                  const Workspace& workspace) {
  const std::string path =
      workspace.Put({.kind = kind, .lines = lines, .spacing = options.spacing});
  const std::vector<double> figures = InFreshProcess([&]() -> std::vector<double> {
    Job job;
    job.loaded.Load(path, kind, workspace.HostFiles());
    const double afterLoad = MemoryFigure("VmHWM:");
    job.Pass();
    const double afterPass = MemoryFigure("VmHWM:");
    job.CutTime();
    return {static_cast<double>(job.store()->blockCount), afterLoad, afterPass,
            MemoryFigure("VmHWM:")};
  });
  const double blocks = figures[0];
  const auto beyondBase = [&](double bytes) { return Fixed((bytes - kBaseBytes) / blocks, 2); };
  table.Row({std::string(KindName(kind)), Grouped(static_cast<uint64_t>(blocks)),
             beyondBase(figures[1]), beyondBase(figures[2]), beyondBase(figures[3]),
             Fixed(figures[3] / (1024 * 1024), 1)});
}

// Loads the same program repeatedly, as a run over a job list does.
void MeasureGrowth(ProgramKind kind, uint64_t lines, const Table& table,
                   const Workspace& workspace) {
  const std::string path = workspace.Put({.kind = kind, .lines = lines});
  const std::vector<double> peaks = InFreshProcess([&] {
    Job job;
    std::vector<double> afterEach;
    for (int i = 0; i < kJobs; ++i) {
      job.loaded.Load(path, kind, workspace.HostFiles());
      job.Pass();
      job.CutTime();
      afterEach.push_back(MemoryFigure("VmHWM:"));
    }
    return afterEach;
  });
  const auto kilobytes = [](double bytes) { return Grouped(static_cast<uint64_t>(bytes) / 1024); };
  table.Row({std::string(KindName(kind)), Grouped(lines), kilobytes(peaks[0]), kilobytes(peaks[1]),
             kilobytes(peaks.back() - peaks[1])});
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  const Workspace workspace;
  std::printf("Peak in bytes per block beyond 16 MiB, after each step.\n");
  const Table table({"kind          ", "blocks", "load", "pass", "cut time", "peak, MiB"});
  // With less than a million blocks the allowance of 16 MiB would hide the figures.
  const uint64_t blocks = std::max<uint64_t>(options.sizes.back(), 1'000'000);
  MeasurePeaks(ProgramKind::kRaster, blocks, options, table, workspace);
  // Two lines of this program are stored as three blocks.
  MeasurePeaks(ProgramKind::kArcs, blocks * 2 / 3, options, table, workspace);
  MeasurePeaks(ProgramKind::kConversational, blocks, options, table, workspace);

  std::printf("\nPeak over %d loads, passes and cut times in one process, in KB.\n", kJobs);
  const Table growth({"kind          ", "lines", "the 1st", "the 2nd", "added by the rest"});
  for (const ProgramKind kind : kProgramKinds) {
    MeasureGrowth(kind, std::min<uint64_t>(blocks, 100'000), growth, workspace);
  }
  return 0;
}
