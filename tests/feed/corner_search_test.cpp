#include "feed/corner_search.h"

#include <gtest/gtest.h>

#include <cmath>

#include "path_builder.h"

namespace tvx {
namespace {

struct CornerTest : testing::Test {
  BlockStore store;
  JobRecord job;
  CornerHeadings headings;

  int Xy(uint32_t i) { return Search(i, &CornerSearch::XyCornerSearch); }
  int Z(uint32_t i) { return Search(i, &CornerSearch::ZCornerSearch); }

 private:
  int Search(uint32_t i, int (CornerSearch::*search)(uint32_t)) {
    const PathIndex path(&store);
    CornerSearch corners(&store, path, job, headings);
    const int result = (corners.*search)(i);
    headings = corners.Headings();
    return result;
  }
};

using XyCorner = CornerTest;
using ZCorner = CornerTest;

std::vector<MotionBlock> Cuts(const std::vector<Vec3>& points) {
  std::vector<MotionBlock> blocks;
  blocks.reserve(points.size());
  for (const Vec3& p : points) blocks.push_back(Move(BlockCut, p.x, p.y, p.z));
  return blocks;
}

TEST_F(XyCorner, OfLongMovesMakesZones) {
  Fill(&store, Cuts({{0, 0, 0}, {20, 0, 0}, {20, 40, 0}}));
  EXPECT_EQ(Xy(1), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000 tail 25% 100; 1000 head 12% 100");
  EXPECT_EQ(headings.forward, 90.0F);
  EXPECT_EQ(headings.backward, 0.0F);
}

TEST_F(XyCorner, OfShortMovesLowersThemWhole) {
  const std::vector<Vec3> points = {{-9, 0, 0}, {-6, 0, 0}, {-3, 0, 0}, {0, 0, 0},
                                    {0, 3, 0},  {0, 6, 0},  {0, 9, 0}};
  Fill(&store, Cuts(points));
  EXPECT_EQ(Xy(3), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000; 1000; 100; 100; 1000; 1000");

  // Of the next move only one that goes on a run.
  for (const BlockType next : {BlockCutStart, BlockRapid, BlockArcCcw}) {
    Fill(&store, Cuts(points));
    store.ReadBlock(4);
    store.CurrentBlock.type = next;
    store.WriteBlock(4);
    EXPECT_EQ(Xy(3), 1) << next;
    EXPECT_EQ(FeedTexts(store), "1000; 1000; 1000; 100; 1000; 1000; 1000") << next;
  }
}

TEST_F(XyCorner, OfMovesAsLongAsTheLookDistanceLowersThemWhole) {
  Fill(&store, Cuts({{-5, 0, 0}, {0, 0, 0}, {0, 5, 0}}));
  EXPECT_EQ(Xy(1), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 100; 100");
}

TEST_F(XyCorner, CountsAboveTheSmallestAngleOnly) {
  const std::vector<MotionBlock> blocks = Cuts({{0, 0, 0}, {20, 0, 0}, {40, 20, 0}});
  const float angle = Angle(1, 1);
  Fill(&store, blocks);
  job.CornerMinAngle = angle;
  EXPECT_EQ(Xy(1), 0);
  EXPECT_EQ(FeedTexts(store), "1000; 1000; 1000");
  job.CornerMinAngle = std::nextafter(angle, 0.0F);
  EXPECT_EQ(Xy(1), 1);
  // 45.00133 degrees: -11 * 15.00133 + 729 = 563
  EXPECT_EQ(FeedTexts(store), "1000; 1000 tail 25% 560; 1000 head 17% 560");
}

TEST_F(XyCorner, SeesAGentleTurnOfShortFacetsAtTheLookDistance) {
  // Facets of 1 mm that turn by 6 degrees each, so by about 30 degrees over the look distance.
  std::vector<Vec3> points;
  Vec3 at;
  for (int i = 0; i < 30; ++i) {
    points.push_back(at);
    at.x += static_cast<float>(std::cos(i * 0.1047));
    at.y += static_cast<float>(std::sin(i * 0.1047));
  }
  Fill(&store, Cuts(points));
  EXPECT_EQ(Xy(15), 1);
  store.ReadBlock(15);
  // The angle of the facets alone would be no corner. Near 30 degrees the curve gives 730.
  EXPECT_NEAR(store.CurrentBlock.feed, 730, 20);
}

TEST_F(XyCorner, ZonesThatCoverTheMoveCollapse) {
  const struct {
    int16_t headPercent, headFeed;
    float length;
    const char* feeds;
  } cases[] = {
      {40, 300, 12.5F, "1000 head 40% 300 tail 40% 100"},  // 80 per cent together stay
      {41, 300, 12.5F, "100"},
      {40, 80, 10.0F, "80"},  // the feed of the other zone is lower
      {40, 0, 10.0F, "100"},
  };
  for (const auto& c : cases) {
    Fill(&store, Cuts({{0, 0, 0}, {c.length, 0, 0}, {c.length, 3, 0}, {c.length, 9, 0}}));
    store.ReadBlock(1);
    store.CurrentBlock.headPercent = c.headPercent;
    store.CurrentBlock.headFeed = c.headFeed;
    store.WriteBlock(1);
    EXPECT_EQ(Xy(1), 1);
    EXPECT_EQ(FeedText(*store.Peek(1)), c.feeds) << c.headPercent << "% " << c.headFeed;
    // The collapse hands its feed on to the next move.
    EXPECT_EQ(store.Peek(2)->feed, std::min(100, c.headFeed == 80 ? 80 : 100));
  }
}

TEST_F(XyCorner, ReducedReachShortensTheZones) {
  job.SafetyDistance = 10;
  const std::vector<MotionBlock> blocks =
      Cuts({{-20, 0, 0}, {-10, 0, 0}, {-5, 0, 0}, {0, 0, 0}, {0, 5, 0}, {0, 10, 0}});
  Fill(&store, blocks);
  EXPECT_EQ(Xy(3), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000; 1000; 100; 100; 1000");
  Fill(&store, blocks);
  job.XyChgReduceCheck = 1;
  EXPECT_EQ(Xy(3), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000; 1000; 1000 tail 60% 100; 1000 head 60% 100; 1000");
}

TEST_F(XyCorner, SmallArcsCountAtBothEnds) {
  const struct {
    float radius;
    bool reduced;
    int32_t feed;
  } cases[] = {
      {5.9F, false, 100},   // below 0.6 tool diameters: as 90 degrees
      {6.0F, false, 660},   // 90 - 54 = 36 degrees: -11 * 6 + 729 = 663
      {6.0F, true, 660},    // the look distance does not matter
      {8.0F, false, 830},   // 18 degrees: -9 * 18 + 1000 = 838
      {9.0F, false, 1000},  // 9 degrees are no corner
      {10.0F, false, 1000},
  };
  for (const auto& c : cases) {
    job.XyChgReduceCheck = c.reduced ? 1 : 0;
    const int32_t zoneFeed = c.feed == 1000 ? 0 : c.feed;
    // The chord goes straight on, so that only the radius makes a corner.
    MotionBlock centre = Move(BlockArcCentre, c.radius, 0, 0);
    Fill(&store, {Move(BlockCut, -40, 0, 0), Move(BlockCut, 0, 0, 0), Move(BlockArcCw, 16, 0, 0),
                  centre, Move(BlockCut, 40, 0, 0), Move(BlockCut, 60, 0, 0)});
    Xy(1);  // the walk ends on the arc
    EXPECT_EQ(store.Peek(1)->tailFeed, zoneFeed) << c.radius;
    Xy(2);  // the arc itself
    EXPECT_EQ(store.Peek(2)->tailFeed, zoneFeed) << c.radius;
    EXPECT_EQ(store.Peek(4)->headFeed, zoneFeed) << c.radius;
  }
}

TEST_F(XyCorner, SteepArrivalHasNoTurn) {
  // Down steeply, then on at a right angle in plan view: the plan part of the arrival is too small.
  Fill(&store, Cuts({{0, 0, 20}, {2, 0, 0}, {2, 20, 0}}));
  EXPECT_EQ(Xy(1), 0);
  // A little flatter than the square root of 0.1, and it counts.
  Fill(&store, Cuts({{0, 0, 20}, {6.4F, 0, 0}, {6.4F, 20, 0}}));
  EXPECT_EQ(Xy(1), 1);
}

TEST_F(XyCorner, EndsWithTheStoreUnchanged) {
  const struct {
    const char* what;
    std::vector<MotionBlock> blocks;
    uint32_t i;
  } cases[] = {
      {"no next move", Cuts({{0, 0, 0}, {20, 0, 0}}), 1},
      {"no next move but lines without one",
       {Move(BlockCut, 0, 0, 0), Move(BlockCut, 20, 0, 0), Move(BlockNone, 20, 20, 0)},
       1},
      {"drop ahead", Cuts({{0, 0, 0}, {20, 0, 0}, {20, 0, -20}}), 1},
      {"drop behind", Cuts({{0, 0, 20}, {0, 0, 0}, {20, 0, 0}}), 1},
      {"path ends too near", Cuts({{0, 0, 0}, {20, 0, 0}, {20, 4, 0}}), 1},
      {"path begins too near", Cuts({{17, 0, 0}, {20, 0, 0}, {20, 20, 0}}), 1},
      {"no earlier move", Cuts({{20, 0, 0}, {20, 20, 0}}), 0},
      // The rapid stops the walk on the move that doubles a point: that segment has no length.
      {"doubled point before a rapid",
       {Move(BlockCut, 0, 0, 0), Move(BlockCut, 20, 0, 0), Move(BlockCut, 20, 4, 0),
        Move(BlockCut, 20, 4, 0), Move(BlockRapidStart, 20, 40, 0)},
       1},
  };
  for (const auto& c : cases) {
    Fill(&store, c.blocks);
    EXPECT_EQ(Xy(c.i), 0) << c.what;
    for (const MotionBlock& block : Contents(store)) EXPECT_EQ(FeedText(block), "1000") << c.what;
  }
}

TEST_F(XyCorner, RapidsStopTheWalks) {
  // Ahead: the walk ends at (20, 4), and the point it looks at lies beyond on the same line.
  Fill(&store,
       {Move(BlockRapidStart, 0, 0, 0), Move(BlockCutStart, 20, 0, 0), Move(BlockCut, 20, 2, 0),
        Move(BlockCut, 20, 4, 0), Move(BlockRapidStart, 0, 4, 0)});
  EXPECT_EQ(Xy(1), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000 tail 25% 100; 100; 1000; 1000");

  // The next move may itself be a rapid, and takes a zone like any other.
  Fill(&store, Cuts({{0, 0, 0}, {20, 0, 0}, {20, 20, 0}}));
  store.ReadBlock(2);
  store.CurrentBlock.type = BlockRapidStart;
  store.WriteBlock(2);
  EXPECT_EQ(Xy(1), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000 tail 25% 100; 1000 head 25% 100");

  // Behind: rapids at 0 and 1, and the short first cut.
  Fill(&store, {Move(BlockRapidStart, 0, 0, 0), Move(BlockRapid, 16, 0, 0),
                Move(BlockCutStart, 20, 0, 0), Move(BlockCut, 20, 20, 0)});
  EXPECT_EQ(Xy(2), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000; 100; 1000 head 25% 100");
}

TEST_F(XyCorner, KeepsTheHeadingOfMovesTooShortToHaveOne) {
  headings = {10.0F, 200.0F};
  Fill(&store, Cuts({{0, 0, 0}, {0.005F, 0, 0}, {0.005F, 0.005F, 0}}));
  EXPECT_EQ(Xy(1), 0);
  EXPECT_EQ(headings.forward, 10.0F);
  EXPECT_EQ(headings.backward, 200.0F);
}

TEST_F(ZCorner, RisingCountsAlwaysAndFallingWithConvexCornersOnly) {
  const struct {
    const char* what;
    float before, after;  // rise of the two moves over 20 mm
    int ConCorChk;
    const char* feeds;
  } cases[] = {
      {"level to up", 0, 20, 0, "1000; 1000 tail 25% 560; 1000 head 17% 560"},
      {"down to level", -20, 0, 0, "1000; 1000 tail 17% 560; 1000 head 25% 560"},
      {"up to steeper", 5, 20, 0, "1000; 1000 tail 24% 710; 1000 head 17% 710"},
      {"level to down", 0, -20, 0, "1000; 1000; 1000"},
      {"up to level", 20, 0, 0, "1000; 1000; 1000"},
      {"level to down, finishing", 0, -20, 1, "1000; 1000 tail 25% 560; 1000 head 17% 560"},
      {"up to down, finishing", 20, -20, 1, "1000; 1000 tail 17% 100; 1000 head 17% 100"},
      {"straight on", 20, 20, 1, "1000; 1000; 1000"},
  };
  for (const auto& c : cases) {
    job.ConCorChk = c.ConCorChk;
    Fill(&store, Cuts({{0, 0, 0}, {20, 0, c.before}, {40, 0, c.before + c.after}}));
    Z(1);
    EXPECT_EQ(FeedTexts(store), c.feeds) << c.what;
  }
}

TEST_F(ZCorner, NextMoveARapidIsNoCorner) {
  Fill(&store,
       {Move(BlockCut, 0, 0, 0), Move(BlockCut, 20, 0, 0), Move(BlockRapidStart, 40, 0, 20)});
  EXPECT_EQ(Z(1), 0);
  EXPECT_EQ(FeedTexts(store), "1000; 1000; 1000");
}

TEST_F(ZCorner, LooksAtTheWholeSafetyDistance) {
  job.XyChgReduceCheck = 1;
  Fill(&store, Cuts({{0, 0, 0}, {20, 0, 0}, {40, 0, 20}}));
  EXPECT_EQ(Z(1), 1);
  EXPECT_EQ(store.Peek(1)->tailPercent, 25);
}

// Behind a rapid the neighbouring move takes a zone also where it is shorter than the look
// distance.
TEST_F(ZCorner, ZoneOfAShortMoveCoversItAndCollapses) {
  Fill(&store, {Move(BlockRapidStart, 0, 0, 0), Move(BlockCutStart, 20, 0, 0),
                Move(BlockCut, 20, 2, 2), Move(BlockRapidStart, 0, 4, 30)});
  EXPECT_EQ(Z(1), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 1000 tail 25% 560; 560; 1000");
}

TEST_F(ZCorner, CollapsesOnlyWhereItLoweredTheFeed) {
  Fill(&store, Cuts({{0, 0, 0}, {20, 0, 0}, {40, 0, 20}}));
  store.ReadBlock(1);
  store.CurrentBlock.feed = 50;
  store.CurrentBlock.headPercent = 60, store.CurrentBlock.headFeed = 40;
  store.CurrentBlock.tailPercent = 60, store.CurrentBlock.tailFeed = 30;
  store.WriteBlock(1);
  EXPECT_EQ(Z(1), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 50 head 60% 40 tail 60% 30; 1000 head 17% 560");
}

TEST_F(XyCorner, CollapsesAlsoWhereItLoweredNothing) {
  Fill(&store, Cuts({{0, 0, 0}, {20, 0, 0}, {20, 20, 0}}));
  store.ReadBlock(1);
  store.CurrentBlock.feed = 50;
  store.CurrentBlock.headPercent = 60, store.CurrentBlock.headFeed = 40;
  store.CurrentBlock.tailPercent = 60, store.CurrentBlock.tailFeed = 30;
  store.WriteBlock(1);
  EXPECT_EQ(Xy(1), 1);
  EXPECT_EQ(FeedTexts(store), "1000; 30; 1000 head 25% 30");
}

TEST_F(XyCorner, HoldsFeedsAndZones) {
  const std::vector<MotionBlock> blocks = Cuts({{0, 0, 0}, {2000, 0, 0}, {2000, 20, 0}});
  const struct {
    int32_t MaxFeed, FeedChgAng;
    float CornerMaxRatio;
    const char* feeds;
  } cases[] = {
      // The zone of a long move is at least one per cent.
      {1000, 10, 0.1F, "1000; 1000 tail 1% 100; 1000 head 25% 100"},
      {1000, 30, 0.1F, "1000; 1000 tail 1% 90; 1000 head 25% 90"},
      {1000, 0, 0.155F, "1000; 1000 tail 1% 168; 1000 head 25% 168"},  // 408 - 8 * 30
      {1000, 200, 0.1F, "1000; 1000 tail 1% 100; 1000 head 25% 100"},  // never down to 0
      {1000, 10, 1.0F, "1000; 1000; 1000"},  // not below the feed in force
      // A feed beyond the field of a zone.
      {100000, 10, 0.5F, "100000; 100000 tail 1% 32767; 100000 head 25% 32767"},
  };
  for (const auto& c : cases) {
    Fill(&store, blocks);
    for (uint32_t i = 0; i < 3; ++i) {
      store.ReadBlock(i);
      store.CurrentBlock.feed = c.MaxFeed;
      store.WriteBlock(i);
    }
    job.MaxFeed = c.MaxFeed;
    job.FeedChgAng = c.FeedChgAng;
    job.CornerMaxRatio = c.CornerMaxRatio;
    EXPECT_EQ(Xy(1), 1);
    EXPECT_EQ(FeedTexts(store), c.feeds) << c.MaxFeed << " " << c.FeedChgAng;
  }
}

TEST(ArcRadius, ComesFromTheCentreRecord) {
  BlockStore store;
  Fill(&store, {Move(BlockArcCw, 100, 100, 0), Move(BlockArcCentre, -3, 4, 7)});
  EXPECT_EQ(ArcRadius(&store, 0), 5.0F);
}

}  // namespace
}  // namespace tvx
