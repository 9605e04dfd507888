// Measures the feed pass on paths of several point densities. The cost per block must not grow with
// the density, nor on a path that stays within the look distance forever. The paths are measured in
// turns; each ratio is to the raster at 0.1 mm of the same turn.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>

#include "feed/feed_pass.h"
#include "feed/zones.h"
#include "insight/feed_causes.h"
#include "measuring.h"
#include "platform/workers.h"
#include "view/path_drawing.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

struct MeasuredPath {
  std::string name;
  std::unique_ptr<LoadedProgram> loaded = std::make_unique<LoadedProgram>();
  std::vector<double> seconds = {};
  std::vector<double> ratios = {};
  std::vector<double> causeRatios = {};  // pass that is followed / pass
  std::vector<double> counts = {};       // seconds per block
  std::vector<double> speedups = {};     // wall time on one core / on all
  FeedPassDivision::Seams seams = {};
};

double ToThreeDecimals(double value) {
  return std::round(value * 1000.0) / 1000.0;
}

// Circles in one place: with a radius of 2 mm no two points are as far apart as the default look
// distance.
void FillHelix(BlockStore* store, uint64_t blocks, double radius, double spacing) {
  store->blockCount = 0;
  store->CurrentBlock = MotionBlock();
  store->CurrentBlock.type = BlockRapidStart;
  for (uint64_t i = 0; i < blocks; ++i) {
    const double angle = static_cast<double>(i) * spacing / radius;
    store->CurrentBlock.x = static_cast<float>(ToThreeDecimals(radius * std::cos(angle)));
    store->CurrentBlock.y = static_cast<float>(ToThreeDecimals(radius * std::sin(angle)));
    Require(store->WriteBlock(store->blockCount++) == 1, "no memory for the path");
    store->CurrentBlock.type = BlockCut;
  }
}

// Every move ends in a right angle and has room for a zone at each end: all of them change.
void FillStairs(BlockStore* store, uint64_t blocks) {
  constexpr float kStep = 12.0F;  // mm
  constexpr uint64_t kTurns = 1000;
  store->blockCount = 0;
  store->CurrentBlock = MotionBlock();
  store->CurrentBlock.type = BlockRapidStart;
  for (uint64_t i = 0; i < blocks; ++i) {
    const auto turn = static_cast<float>(i % kTurns);
    float* const moved = i % 2 == 0 ? &store->CurrentBlock.x : &store->CurrentBlock.y;
    *moved = (i / kTurns % 2 == 0 ? turn : -turn) * kStep;
    Require(store->WriteBlock(store->blockCount++) == 1, "no memory for the path");
    store->CurrentBlock.type = BlockCut;
  }
}

std::vector<MeasuredPath> MakePaths(uint64_t blocks, const Workspace& workspace) {
  std::vector<MeasuredPath> paths;
  const auto addFile = [&](const char* name, ProgramKind kind, double spacing) {
    paths.push_back({name});
    const std::string file = workspace.Put({.kind = kind, .lines = blocks, .spacing = spacing});
    paths.back().loaded->Load(file, kind, workspace.HostFiles());
  };
  addFile("raster 0.1 mm", ProgramKind::kRaster, 0.1);  // the reference of the ratios
  addFile("raster 1 mm", ProgramKind::kRaster, 1.0);
  addFile("raster 0.01 mm", ProgramKind::kRaster, 0.01);
  addFile("arcs 0.1 mm", ProgramKind::kArcs, 0.1);
  paths.push_back({"stairs"});
  FillStairs(&paths.back().loaded->program.store, blocks);
  for (const double spacing : {0.1, 0.01}) {
    paths.push_back({"helix of 4 mm, " + Fixed(spacing, 2) + " mm"});
    FillHelix(&paths.back().loaded->program.store, blocks, 2.0, spacing);
  }
  return paths;
}

// The pass keeps the zones of an earlier one; without them every pass changes as much.
void DropAllZones(BlockStore* store) {
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    store->ReadBlock(i);
    DropZones(&store->CurrentBlock);
    store->WriteBlock(i);
  }
}

// Counts what the window shows of the causes.
void CountAll(NcProgram* program, const FeedCauses& causes) {
  constexpr size_t kPlaces = 100;
  const int32_t base = program->FeedBase;
  Keep(CountCauses(&program->store, base, causes));
  Keep(MinutesByFeed(&program->store, kFeedBands,
                     [base](int32_t feed) { return BandOfFeed(feed, base); }));
  Keep(CostliestPlaces(&program->store, base, causes, kPlaces));
}

// Wall time, unlike the other figures: the time of all cores together is no less than that of one.
double WallSeconds(MeasuredPath* path, const FeedPassDivision& division) {
  FeedPassMemory memory;
  DropAllZones(&path->loaded->program.store);
  const auto begin = std::chrono::steady_clock::now();
  FeedPass(&path->loaded->program, path->loaded->job, nullptr, &memory, {}, NoProgress(), division);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void MeasureCores(MeasuredPath* path) {
  const double one = WallSeconds(path, {});
  const double all = WallSeconds(path, {.threads = CoreCount(), .seams = &path->seams});
  path->speedups.push_back(one / all);
}

void MeasurePass(MeasuredPath* path) {
  FeedPassMemory memory;
  NcProgram* const program = &path->loaded->program;
  const JobRecord& job = path->loaded->job;
  DropAllZones(&program->store);
  const double seconds = Seconds([&] { FeedPass(program, job, nullptr, &memory); });
  DropAllZones(&program->store);
  FeedCauses causes;
  const double followed = Seconds(
      [&] { FeedPass(program, job, nullptr, &memory, causes.Follow(program->store.blockCount)); });
  path->seconds.push_back(seconds / program->store.blockCount);
  path->causeRatios.push_back(followed / seconds);
  const double count = Seconds([&] { CountAll(program, causes); });
  path->counts.push_back(count / program->store.blockCount);
}

void MeasureSize(uint64_t blocks, int repetitions, const Table& table, const Workspace& workspace) {
  std::vector<MeasuredPath> paths = MakePaths(blocks, workspace);
  for (int i = 0; i < repetitions; ++i) {
    for (MeasuredPath& path : paths) MeasurePass(&path);
    for (MeasuredPath& path : paths) MeasureCores(&path);
    for (MeasuredPath& path : paths) {
      path.ratios.push_back(path.seconds.back() / paths.front().seconds.back());
    }
  }
  for (const MeasuredPath& path : paths) {
    table.Row({path.name, Grouped(path.loaded->program.store.blockCount),
               Fixed(Median(path.seconds) * 1e9, 0), Fixed(Median(path.ratios), 2),
               Fixed(Median(path.causeRatios), 2), Fixed(Median(path.counts) * 1e9, 0),
               Fixed(Median(path.speedups), 2), Grouped(path.seams.parts),
               Grouped(path.seams.redone)});
  }
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  std::printf(
      "Feed pass with the default parameters, times in ns. Ratio = path / raster 0.1 mm;\n"
      "causes = pass whose causes are followed / pass; count = of the causes, as the window shows "
      "them;\ncores = wall time on one core / on %u, and the parts that were done at the same time "
      "and again.\n",
      tvx::CoreCount());
  const Table table({"path                   ", "blocks", "pass/block", "ratio", "causes",
                     "count/block", "cores", "parts", "redone"});
  const Workspace workspace;
  for (const uint64_t blocks : options.sizes) {
    MeasureSize(blocks, options.repetitions, table, workspace);
  }
  return 0;
}
