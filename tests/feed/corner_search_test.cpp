// Corner searches: fresh and shared ones write the same bytes.
#include "feed/corner_search.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/format.h"
#include "support/random_program.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

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
    CornerSearch shared(&sharedStore, sharedPath, job, {});
    CornerHeadings headings;
    for (uint32_t i = 0; i < sharedStore.blockCount; ++i) {
      const uint32_t type = sharedPath.Block(i).type;
      if (!IsCutType(type) && !IsArcType(type)) continue;
      for (const auto search : {&CornerSearch::XyCornerSearch, &CornerSearch::ZCornerSearch}) {
        CornerSearch fresh(&freshStore, freshPath, job, headings);
        EXPECT_EQ((fresh.*search)(i), (shared.*search)(i)) << "seed " << seed << " block " << i;
        headings = fresh.Headings();
      }
    }
    ASSERT_TRUE(Bytes(sharedStore) == Bytes(freshStore)) << "seed " << seed;
    ASSERT_EQ(Format("%a %a", headings.forward, headings.backward),
              Format("%a %a", shared.Headings().forward, shared.Headings().backward));
  }
}

Vec3 Unit(double heading, double elevation) {
  const double plan = std::cos(elevation);
  return {static_cast<float>(std::cos(heading) * plan),
          static_cast<float>(std::sin(heading) * plan), static_cast<float>(std::sin(elevation))};
}

// Where a shortcut says yes the measured angle must agree; most angles below the limit must get it.
TEST(Directions, ShortcutsAgreeWithTheMeasuredAngle) {
  Random random(5);
  int yes[3] = {};
  for (int round = 0; round < 200'000; ++round) {
    const float limit = random.OneOf({0.3F, 10.0F, 45.0F, 89.0F, 90.0F, 179.0F});
    const double near = (limit + random.Real(-0.5, 0.5)) * kRadiansPerDegree;
    const double heading = random.Real(0, 6.28), elevation = random.Real(-1.57, 1.57);
    const double cosine = SurelyStraightCosine(limit);
    const auto check = [&](int shortcut, bool says, float from, float to) {
      yes[shortcut] += says ? 1 : 0;
      const float turn = std::fabs(from - to);
      EXPECT_TRUE(!says || std::min(turn, 360 - turn) <= limit) << shortcut << " " << turn;
    };
    const Vec3 a = Unit(heading, elevation), slope = Unit(heading, near);
    const Vec3 rising = Unit(heading, elevation + near);
    const Vec3 turned = Unit(heading + near, random.OneOf({0.0, elevation}));
    check(0, std::fabs(double{slope.z}) <= SurelyFlatRise(limit), Elevation(slope), 0);
    check(1, HeadingsHaveCosine(a, turned, cosine), Heading(a), Heading(turned));
    check(2, ElevationsHaveCosine(a, rising, cosine), Elevation(a), Elevation(rising));
  }
  EXPECT_GT(std::min({yes[0], yes[1], yes[2]}), 50'000);
}

}  // namespace
}  // namespace tvx
