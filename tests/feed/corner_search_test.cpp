// Corner searches: fresh and shared ones write the same bytes.
#include "feed/corner_search.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/format.h"
#include "support/random_program.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

std::string HeadingsOf(CornerHeadings headings) {
  return Format("%a %a", headings.forward.Degrees(), headings.backward.Degrees());
}

// A search reuses measurements of the search before.
TEST(CornerSearch, SharedSearchWritesTheBytesOfAFreshOneForEachMove) {
  for (uint32_t seed = 0; seed < 150; ++seed) {
    Random random(seed);
    const std::vector<MotionBlock> blocks = RandomProgram(&random, 100 + seed, true);
    const JobRecord job =
        Record(random.OneOf({"", "XyChgReduceCheck=1", "SafetyDistance=1 CornerMinAngle=0"}));
    BlockStore sharedStore, freshStore;
    Fill(&sharedStore, blocks);
    Fill(&freshStore, blocks);
    const PathIndex sharedPath(&sharedStore), freshPath(&freshStore);
    FeedRecords sharedRecords(sharedPath, 0, sharedPath.BlockCount());
    FeedRecords freshRecords(freshPath, 0, freshPath.BlockCount());
    CornerSearch shared(sharedPath, job);
    CornerHeadings headings;
    for (uint32_t i = 0; i < sharedStore.blockCount; ++i) {
      const uint32_t type = sharedPath.Block(i).type;
      if (!IsCutType(type) && !IsArcType(type)) continue;
      for (const auto search : {&CornerSearch::XyCornerSearch, &CornerSearch::ZCornerSearch}) {
        CornerSearch fresh(freshPath, job);
        fresh.headings = headings;
        EXPECT_EQ((fresh.*search)(i, &freshRecords), (shared.*search)(i, &sharedRecords))
            << "seed " << seed << " block " << i;
        headings = fresh.headings;
      }
    }
    ASSERT_TRUE(Bytes(sharedStore) == Bytes(freshStore)) << "seed " << seed;
    ASSERT_EQ(HeadingsOf(headings), HeadingsOf(shared.headings));
  }
}

Difference Way(double heading, double elevation, double length) {
  const double plan = length * std::cos(elevation);
  return Subtract(
      {static_cast<float>(std::cos(heading) * plan), static_cast<float>(std::sin(heading) * plan),
       static_cast<float>(std::sin(elevation) * length)},
      {});
}

// Where a shortcut says yes the measured angle must agree; most angles below the limit must get it.
TEST(Directions, ShortcutsAgreeWithTheMeasuredAngle) {
  Random random(5);
  int yes[3] = {};
  for (int round = 0; round < 200'000; ++round) {
    const float limit = random.OneOf({0.2F, 0.3F, 10.0F, 45.0F, 89.0F, 90.0F});
    const double near = (limit + random.Real(-0.5, 0.5)) * kRadiansPerDegree;
    const double heading = random.Real(0, 6.28), elevation = random.Real(-1.57, 1.57);
    const double length = random.OneOf({0.02, 1.0, 30'000.0});
    const float squared = SurelyStraightSquared(limit);
    const auto check = [&](int shortcut, bool says, float from, float to) {
      yes[shortcut] += says ? 1 : 0;
      const float turn = std::fabs(from - to);
      EXPECT_TRUE(!says || std::min(turn, 360 - turn) <= limit) << shortcut << " " << turn;
    };
    const auto unit = [](const Difference& way) { return Chord(way).Unit(); };
    const Difference a = Way(heading, elevation, length), slope = Way(heading, near, length);
    const Difference rising = Way(heading, elevation + near, 1);
    const Difference turned = Way(heading + near, random.OneOf({0.0, elevation}), 1);
    check(0, std::fabs(double{unit(slope).z}) <= SurelyFlatRise(limit), Elevation(unit(slope)), 0);
    check(1, HeadingsHaveCosine(a, turned, squared), Heading(unit(a)), Heading(unit(turned)));
    check(2, ElevationsHaveCosine(a, rising, squared), Elevation(unit(a)), Elevation(unit(rising)));
  }
  EXPECT_GT(std::min({yes[0], yes[1], yes[2]}), 40'000);
}

}  // namespace
}  // namespace tvx
