// The fast pass against the plain one, on random programs. Golden cases hold worked values.
#include "feed/feed_pass.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>

#include "base/format.h"
#include "feed/zones.h"
#include "feed_fixture.h"

namespace tvx {
namespace {

std::string Text(const FeedPassMemory& memory) {
  const auto text = [](float heading) {
    return std::isnan(heading) ? "none" : Format("%a", heading);
  };
  return text(memory.headings.forward) + " " + text(memory.headings.backward) + " " +
         std::to_string(memory.LastNextBlock);
}

// Runs both passes twice, so that the second run meets the zones of the first, and the headings go
// on from program to program.
struct Pair {
  NcProgram fast;
  BlockStore plain;
  FeedPassMemory fastMemory, plainMemory;

  void Compare(const std::vector<MotionBlock>& blocks, const JobRecord& job,
               const MasterGrid& master, unsigned seed) {
    Fill(&fast.store, blocks);
    Fill(&plain, blocks);
    for (const int run : {1, 2}) {
      FeedPass(&fast, job, &master, &fastMemory);
      ReferencePass(&plain, job, master, &plainMemory);
      for (uint32_t i = 0; i < plain.blockCount; ++i) {
        ASSERT_EQ(std::memcmp(fast.store.Peek(i), plain.Peek(i), sizeof(MotionBlock)), 0)
            << "seed " << seed << " run " << run << " block " << i;
      }
      ASSERT_EQ(Text(fastMemory), Text(plainMemory)) << "seed " << seed << " run " << run;
    }
  }
};

// A patch of walls near one of the moves.
MasterGrid RandomModel(const std::vector<MotionBlock>& blocks, Random* random) {
  const auto below = [random](size_t limit) { return static_cast<uint32_t>((*random)() % limit); };
  const MotionBlock& centre = blocks[below(blocks.size())];
  MasterGrid grid = EmptyGrid(static_cast<int32_t>(5 + below(40)),
                              static_cast<int32_t>(5 + below(40)), below(2) == 0 ? 1.0F : 0.7F);
  grid.OriginX = centre.x - static_cast<float>(below(30));
  grid.OriginY = centre.y - static_cast<float>(below(30));
  const uint32_t rarity = 1 + below(200);
  for (size_t i = 0; i < static_cast<size_t>(grid.CellCount); ++i) {
    grid.Cells[i].z = centre.z + static_cast<float>(below(12)) - 4;
    if (below(rarity) == 0) grid.Cells[i].angle = static_cast<int16_t>(below(91));
  }
  IndexCells(&grid);
  return grid;
}

TEST(FeedPass, LeavesTheBytesOfThePlainPassOnRandomPrograms) {
  auto pair = std::make_unique<Pair>();
  for (unsigned seed = 0; seed < 1200; ++seed) {
    Random random(seed);
    const size_t moves = seed % 10 == 0 ? 1500 : 1 + seed % 250;
    const std::vector<MotionBlock> blocks = RandomProgram(&random, moves);
    JobRecord job = RandomJob(&random);
    MasterGrid master;
    // The plain pass samples every move from end to end.
    if (seed % 3 != 0 && StaysWithin(5000, blocks)) {
      job.AfaByMaster = 1;
      master = RandomModel(blocks, &random);
    }
    pair->Compare(blocks, job, master, seed);
    if (HasFatalFailure()) return;
  }
}

// Comes from afar, circles through some levels of the index and more than one page of the store,
// and leaves.
TEST(FeedPass, LeavesTheBytesOfThePlainPassOnALongStayInOnePlace) {
  std::vector<MotionBlock> blocks;
  for (int i = 0; i < 3300; ++i) {
    const float angle = 0.05F * static_cast<float>(i);
    blocks.push_back({.x = 2 * std::cos(angle), .y = 2 * std::sin(angle), .type = BlockCut});
  }
  blocks[1].x = blocks.back().x = 50;
  std::make_unique<Pair>()->Compare(blocks, JobRecord(), MasterGrid(), 0);
}

// What must hold on any path with a usual job, whatever the rules do to it.
TEST(FeedPass, KeepsFeedsAndZonesInTheirRange) {
  NcProgram program;
  FeedPassMemory memory;
  for (unsigned seed = 0; seed < 300; ++seed) {
    Random random(seed);
    std::vector<MotionBlock> blocks = RandomProgram(&random, 200);
    for (MotionBlock& block : blocks) DropZones(&block);
    Fill(&program.store, blocks);
    FeedPass(&program, JobRecord(), nullptr, &memory);
    for (uint32_t i = 0; i < program.store.blockCount; ++i) {
      const MotionBlock& block = *program.store.Peek(i);
      if (!IsMoveType(block.type)) continue;
      const int zones = block.headPercent + block.tailPercent;
      const bool fits = 100 <= block.feed && block.feed <= 1000 && zones <= 80 &&
                        (block.headPercent == 0) == (block.headFeed == 0) &&
                        (!IsArcType(block.type) || zones == 0);
      ASSERT_TRUE(fits) << "seed " << seed << " block " << i;
    }
  }
}

}  // namespace
}  // namespace tvx
