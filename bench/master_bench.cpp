// Measures the stages of a master model build, and compares the lookups of the feed adjustment with
// a visit of every cell in the search square.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

#include "feed/master_pass.h"
#include "master/master_build.h"
#include "master/master_picture.h"
#include "measuring.h"
#include "model/walks.h"

namespace tvx::bench {

namespace {

constexpr float kPart = 100.0F;        // mm, length and width of the part
constexpr float kTolerance = 0.1F;     // mm: 1000 x 1000 cells
constexpr float kLookDistance = 5.0F;  // mm: squares of 101 x 101 cells

// Surfaces of the part: height in mm at x and y.
double Dome(double x, double y) {
  const double under = 45.0 * 45.0 - (x - 50) * (x - 50) - (y - 50) * (y - 50);
  return under > 0 ? std::sqrt(under) : 0;
}
double Waves(double x, double y) {
  return 4 * std::sin(x * 0.4) + 3 * std::cos(y * 0.3);
}
// Pockets of 12 mm with walls of 1 mm between levels.
double Pockets(double x, double y) {
  const double inX = std::abs(std::fmod(x, 20.0) - 10) - 6,
               inY = std::abs(std::fmod(y, 20.0) - 10) - 6;
  return 10 * std::min(1.0, std::max(0.0, std::max(inX, inY)));
}

using Surface = double (*)(double x, double y);
struct NamedSurface {
  const char* name;
  Surface height;
};
constexpr NamedSurface kSurfaces[] = {{"dome", Dome}, {"waves", Waves}, {"pockets", Pockets}};

void Append(BlockStore* store, BlockType type, double x, double y, double z) {
  store->CurrentBlock = {};
  store->CurrentBlock.x = static_cast<float>(x);
  store->CurrentBlock.y = static_cast<float>(y);
  store->CurrentBlock.z = static_cast<float>(z);
  store->CurrentBlock.feed = store->CurrentBlock.feedProgrammed = 1000;
  store->CurrentBlock.type = type;
  Require(store->WriteBlock(store->blockCount++) == 1, "the store is full");
}

// Fills the store with moves in rows over the part, at height(x, y).
template <typename Height>
void FillRows(uint64_t moves, Height height, BlockStore* store) {
  store->blockCount = 0;
  const auto rows = static_cast<uint64_t>(std::sqrt(static_cast<double>(moves)));
  const uint64_t points = moves / rows;
  Append(store, BlockRapidStart, 0, 0, 60);
  for (uint64_t row = 0; row < rows; ++row) {
    const double y = kPart * static_cast<double>(row) / static_cast<double>(rows - 1);
    for (uint64_t i = 0; i < points; ++i) {
      const double along = kPart * static_cast<double>(i) / static_cast<double>(points - 1);
      const double x = row % 2 == 0 ? along : kPart - along;
      Append(store, row + i == 0 ? BlockCutStart : BlockCut, x, y, height(x, y));
    }
  }
}

struct Stage {
  const char* name;
  double seconds;
};

// Runs the stages of BuildMaster one by one.
std::vector<Stage> BuildInStages(NcProgram* program, MasterGrid* grid) {
  BlockStore* store = &program->store;
  Vec3 minimum, maximum;
  int32_t k = 0;
  std::vector<Stage> stages;
  const auto stage = [&](const char* name, const std::function<void()>& work) {
    stages.push_back({name, Seconds(work)});
  };
  stage("extents", [&] {
    PathExtents(store, &minimum, &maximum);
    grid->OriginX = minimum.x - kTolerance;
    grid->OriginY = minimum.y - kTolerance;
    k = Refinement(std::trunc((maximum.x - grid->OriginX) / kTolerance),
                   std::trunc((maximum.y - grid->OriginY) / kTolerance));
    grid->CellSize = kTolerance / static_cast<float>(k);
  });
  stage("shift", [&] { ShiftPath(store, grid->OriginX, grid->OriginY); });
  stage("plunges", [&] { CleanPlunges(store); });
  stage("cells", [&] { Require(SizeGrid(store, k, grid), "no memory for the cells"); });
  stage("sampling", [&] { SamplePath(store, grid); });
  stage("gaps", [&] { FillGaps(grid); });
  stage("thinning", [&] { ThinOut(grid, k, kTolerance); });
  stage("angles", [&] { MasterAngles(grid); });
  stage("index", [&] { IndexCells(grid); });
  stage("picture", [&] { ShowMaster(*grid, program); });
  return stages;
}

// One walk over the moves with their vectors: the minimal cost of any pass over a program.
double WalkSeconds(BlockStore* store) {
  return Seconds([&] {
    double length = 0;
    for (uint32_t i = 1; i < store->blockCount; ++i) {
      if (!IsMoveBlock(store, i)) continue;
      Difference difference;
      Vec3 unit;
      BlockVector(store, i, PrevMove(store, i), &difference, &unit);
      length += difference.length;
    }
    Keep(length);
  });
}

void MeasureBuild(const BenchOptions& options) {
  std::printf(
      "\nBuild: milliseconds by stage; the last column is the whole build over one walk.\n");
  const Table table({"surface", "moves", "extents", "shift", "plunges", "cells", "sampling", "gaps",
                     "thinning", "angles", "index", "picture", "all", "x walk"});
  for (const NamedSurface& surface : kSurfaces) {
    for (const uint64_t moves : options.sizes) {
      const std::vector<double> medians = MediansOfFreshProcesses(options.repetitions, [&] {
        NcProgram program;
        MasterGrid grid;
        FillRows(moves, surface.height, &program.store);
        std::vector<double> seconds = {WalkSeconds(&program.store)};
        for (const Stage& stage : BuildInStages(&program, &grid)) seconds.push_back(stage.seconds);
        return seconds;
      });
      std::vector<std::string> cells = {surface.name, Grouped(moves)};
      double all = 0;
      for (size_t i = 1; i < medians.size(); ++i) {
        all += medians[i];
        cells.push_back(Fixed(medians[i] * 1e3, 1));
      }
      cells.push_back(Fixed(all * 1e3, 1));
      cells.push_back(Fixed(all / medians[0], 1));
      table.Row(cells);
    }
  }
}

MasterGrid ModelOf(Surface height) {
  NcProgram program;
  MasterGrid grid;
  FillRows(1'000'000, height, &program.store);
  BuildInStages(&program, &grid);
  return grid;
}

// A model of the same size with random cells.
MasterGrid NoiseModel() {
  MasterGrid grid = ModelOf(Waves);
  std::mt19937 random(1);
  for (int32_t i = 0; i < grid.CellCount; ++i) {
    grid.Cells[static_cast<size_t>(i)].z = static_cast<float>(random() % 40'000) / 1000;
    grid.Cells[static_cast<size_t>(i)].angle = static_cast<int16_t>(random() % 91);
  }
  IndexCells(&grid);
  return grid;
}

// Number of blocks in a batch of the feed pass.
constexpr uint32_t kBatch = 200;

// Runs the sub-pass over every n-th batch of the program. Returns the seconds per block.
double PassSeconds(const MasterGrid& grid, const JobRecord& job, uint32_t everyNth,
                   BlockStore* store) {
  const PathIndex path(store);
  FeedRecords records(path, 0, store->blockCount);
  MasterPass pass(path, job, grid);
  uint64_t blocks = 0;
  const double seconds = Seconds([&] {
    for (uint32_t first = 0; first < store->blockCount; first += kBatch * everyNth) {
      const uint32_t end = std::min(first + kBatch, store->blockCount);
      pass.SlowMoves(first, end, &records);
      blocks += end - first;
    }
  });
  return seconds / static_cast<double>(blocks);
}

void RequireSameFeeds(const BlockStore& fast, const BlockStore& plain, uint32_t everyNth) {
  for (uint32_t i = 0; i < plain.blockCount; ++i) {
    if (i / kBatch % everyNth != 0) continue;
    Require(fast.Peek(i)->feed == plain.Peek(i)->feed, "the pyramid gives other feeds");
  }
}

// Height of the tool above the part at x and y.
using Tool = double (*)(double x, double y);

struct PassCase {
  const char* model;
  const char* path;
  Tool height;
  float distance;  // mm
};

void MeasurePass(const PassCase& pass, const MasterGrid& indexed, const MasterGrid& plain,
                 uint64_t moves, int repetitions, const Table& table) {
  JobRecord job;
  job.SafetyDistance = pass.distance;
  // A visit of every cell is slow, so it runs over a fraction of the batches only.
  const uint32_t everyNth = pass.distance == kLookDistance ? 50 : 1;
  std::vector<double> fastSeconds, plainSeconds;
  for (int i = 0; i < repetitions; ++i) {
    BlockStore fastStore, plainStore;
    FillRows(moves, pass.height, &fastStore);
    FillRows(moves, pass.height, &plainStore);
    fastSeconds.push_back(PassSeconds(indexed, job, 1, &fastStore));
    plainSeconds.push_back(PassSeconds(plain, job, everyNth, &plainStore));
    RequireSameFeeds(fastStore, plainStore, everyNth);
  }
  const double fastNs = Median(fastSeconds) * 1e9;
  const double plainNs = Median(plainSeconds) * 1e9;
  table.Row({pass.model, pass.path, Fixed(static_cast<double>(pass.distance), 1), Grouped(moves),
             Fixed(plainNs, 0), Fixed(fastNs, 0), Fixed(plainNs / fastNs, 1)});
}

// The same cells without a pyramid, so that a lookup visits every cell in its square.
MasterGrid WithoutPyramid(const MasterGrid& grid) {
  MasterGrid plain;
  Require(AllocateGrid(&plain, grid.NX, grid.NY), "no memory for the cells");
  plain.CellSize = grid.CellSize;
  plain.OriginX = grid.OriginX;
  plain.OriginY = grid.OriginY;
  for (size_t i = 0; i < static_cast<size_t>(grid.CellCount); ++i) plain.Cells[i] = grid.Cells[i];
  return plain;
}

void MeasurePasses(const BenchOptions& options) {
  std::printf(
      "\nSub-pass over a program on a model of 1000 x 1000 cells, in nanoseconds per move, by a "
      "visit "
      "of every cell\nand by the pyramid; squares of 101 x 101 cells at 5 mm, 11 x 11 at 0.5 "
      "mm.\n");
  const Table table({"model  ", "path   ", "mm", "moves", "plain", "pyramid", "ratio"});
  const auto measure = [&](const char* model, Tool height, const MasterGrid& indexed) {
    const MasterGrid plain = WithoutPyramid(indexed);
    for (const uint64_t moves : options.sizes) {
      for (const float distance : {kLookDistance, 0.5F}) {
        MeasurePass({model, "surface", height, distance}, indexed, plain, moves,
                    options.repetitions, table);
        MeasurePass({model, "level 5", [](double, double) { return 5.0; }, distance}, indexed,
                    plain, moves, options.repetitions, table);
      }
    }
  };
  for (const NamedSurface& surface : kSurfaces) {
    measure(surface.name, surface.height, ModelOf(surface.height));
  }
  measure(
      "noise", [](double x, double) { return x * 0.4; }, NoiseModel());
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  MeasureBuild(options);
  MeasurePasses(options);
  return 0;
}
