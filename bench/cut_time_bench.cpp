// Measures ComputeCutTime and compares it with a bare walk over the same records, which adds
// distances and times only: no types, no repair, no single-precision sums. The records are measured
// as loaded, and with a head and a tail zone on every move.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

#include "measuring.h"
#include "stats/cut_time.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

// Sum of all distances and times. The records of a page are contiguous.
double BareWalk(const BlockStore& store) {
  double length = 0;
  double minutes = 0;
  const MotionBlock* previous = store.Peek(0);
  for (uint32_t first = 0; first < store.blockCount; first += BlockStore::blocksPerPage) {
    const MotionBlock* block = store.Peek(first);
    const uint32_t count = std::min(BlockStore::blocksPerPage, store.blockCount - first);
    for (const MotionBlock* const end = block + count; block != end; previous = block++) {
      const double dx = block->x - previous->x;
      const double dy = block->y - previous->y;
      const double dz = block->z - previous->z;
      const double distance = std::sqrt(dx * dx + dy * dy + dz * dz);
      length += distance;
      minutes += distance / block->feed;
    }
  }
  return length + minutes;
}

// Sets a feed in every record, so that the bare walk never divides by 0, and zones if `zones`.
void Prepare(BlockStore* store, bool zones) {
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    store->ReadBlock(i);
    MotionBlock* const block = &store->CurrentBlock;
    block->feed = 500 + static_cast<int32_t>(i % 1000);
    if (zones) {
      block->headPercent = 20;
      block->headFeed = 250;
      block->tailPercent = 30;
      block->tailFeed = 200;
    }
    store->WriteBlock(i);
  }
}

void Measure(LoadedProgram* loaded, const char* name, int repetitions, const Table& table) {
  BlockStore* const store = &loaded->program.store;
  std::vector<double> bare;
  std::vector<double> cutTime;
  std::vector<double> ratios;
  CutTimeEntry entry;
  for (int i = 0; i < repetitions; ++i) {
    bare.push_back(Seconds([&] { Keep(BareWalk(*store)); }));
    cutTime.push_back(Seconds([&] { ComputeCutTime(store, loaded->job, &entry); }));
    ratios.push_back(cutTime.back() / bare.back());
  }
  const double toNanoseconds = 1e9 / store->blockCount;
  table.Row({name, Grouped(store->blockCount), Fixed(Median(bare) * toNanoseconds, 2),
             Fixed(Median(cutTime) * toNanoseconds, 2), Fixed(Median(ratios), 2)});
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  std::printf("Cut time, times in ns per block. Ratio = cut time / bare walk.\n");
  const Table table({"records   ", "blocks", "bare walk", "cut time", "ratio"});
  const Workspace workspace;
  for (const uint64_t blocks : options.sizes) {
    const auto loaded = std::make_unique<LoadedProgram>();
    const std::string file =
        workspace.Put({.kind = ProgramKind::kRaster, .lines = blocks, .spacing = options.spacing});
    loaded->Load(file, ProgramKind::kRaster, workspace.HostFiles());
    for (const bool zones : {false, true}) {
      Prepare(&loaded->program.store, zones);
      Measure(loaded.get(), zones ? "with zones" : "as loaded", options.repetitions, table);
    }
  }
  return 0;
}
