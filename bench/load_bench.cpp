// Measures the load of a file into the store and compares it with a bare scan of the same file that
// only converts every number. Each repetition runs in a new process: scan, first load into memory
// that was never used, scan again, load again.
#include <charconv>
#include <cstdio>
#include <cstring>

#include "measuring.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

constexpr size_t kReadBytes = size_t{64} * 1024;

struct ScanResult {
  uint64_t numbers = 0;
  double sum = 0;
};

bool StartsNumber(char c) {
  return (c >= '0' && c <= '9') || c == '-' || c == '.';
}

// Converts the numbers of complete lines.
void ScanLines(const char* next, const char* end, ScanResult* result) {
  while (next != end) {
    double value = 0;
    if (StartsNumber(*next)) {
      const auto [behind, error] = std::from_chars(next, end, value);
      if (error == std::errc{}) {
        ++result->numbers;
        result->sum += value;
        next = behind;
        continue;
      }
    }
    ++next;
  }
}

// The minimal scan: large reads, and numbers converted in the read buffer.
ScanResult ScanFile(const std::string& path, Files* files) {
  const auto [file, opened] = files->OpenForReading(path);
  Require(opened.ok(), "the program cannot be read");
  ScanResult result;
  std::vector<char> buffer(kReadBytes);
  size_t kept = 0;  // bytes of the incomplete line at the end of the last read
  while (const size_t count = file->Read(buffer.data() + kept, buffer.size() - kept)) {
    const size_t filled = kept + count;
    const size_t lineFeed = std::string_view(buffer.data(), filled).rfind('\n');
    Require(lineFeed != std::string_view::npos, "a line is longer than a read");
    const char* const end = buffer.data() + lineFeed + 1;
    ScanLines(buffer.data(), end, &result);
    kept = filled - lineFeed - 1;
    std::memmove(buffer.data(), end, kept);
  }
  return result;
}

// Seconds per block for writing once to new pages as large as the store: the page faults of a first
// load.
double TouchSeconds(uint32_t blocks) {
  const uint32_t pages = blocks / BlockStore::blocksPerPage + 1;
  PageMemory* const memory = ProcessPageMemory();
  const double seconds = Seconds([&] {
    for (uint32_t i = 0; i < pages; ++i) {
      char* const page = static_cast<char*>(memory->Allocate());
      for (size_t offset = 0; offset < PageMemory::kPageBytes; offset += 4096) page[offset] = 1;
      Keep(page);
    }
  });
  return seconds / blocks;
}

void MeasureKind(ProgramKind kind, const BenchOptions& options, const Table& table,
                 const Workspace& workspace) {
  for (const uint64_t lines : options.sizes) {
    const std::string path =
        workspace.Put({.kind = kind, .lines = lines, .spacing = options.spacing});
    Files* const files = workspace.HostFiles();

    const auto measure = [&]() -> std::vector<double> {
      const auto scan = [&] {
        const ScanResult result = ScanFile(path, files);
        Require(result.numbers > lines, "the scan found too few numbers");
        Keep(result.sum);
      };
      LoadedProgram loaded;
      const auto load = [&] { loaded.Load(path, kind, files); };
      const double firstScan = Seconds(scan);
      const double firstLoad = Seconds(load);
      const double secondScan = Seconds(scan);
      const double secondLoad = Seconds(load);
      Require(loaded.program.store.blockCount >= lines, "the load lost lines");
      return {firstScan, firstLoad, secondScan, secondLoad,
              static_cast<double>(loaded.program.store.blockCount)};
    };
    const std::vector<double> medians = MediansOfFreshProcesses(options.repetitions, measure);
    const double scan = Median({medians[0], medians[2]});
    const double blocks = medians[4];
    const double touch = MediansOfFreshProcesses(options.repetitions, [&] {
      return std::vector<double>{TouchSeconds(static_cast<uint32_t>(blocks))};
    })[0];

    const auto perLine = [&](double seconds) {
      return Fixed(seconds * 1e9 / static_cast<double>(lines), 1);
    };
    table.Row({std::string(KindName(kind)), Grouped(lines),
               Fixed(blocks / static_cast<double>(lines), 2), perLine(scan), perLine(medians[1]),
               perLine(medians[3]), Fixed(touch * 1e9, 1), Fixed(medians[0] / medians[1], 2),
               Fixed(medians[2] / medians[3], 2)});
  }
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  std::printf("Load against a bare scan of the same file, times in ns. Ratio = scan / load.\n");
  const Table table({"kind          ", "lines", "blocks/line", "scan/line", "first/line",
                     "reload/line", "touch/block", "first", "reload"});
  const Workspace workspace;
  for (const ProgramKind kind : kProgramKinds) MeasureKind(kind, options, table, workspace);
  return 0;
}
