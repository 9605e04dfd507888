#include "feed/zones.h"

#include <gtest/gtest.h>

#include "path_builder.h"

namespace tvx {
namespace {

MotionBlock Zoned(int32_t feed, int16_t headPercent, int16_t headFeed, int16_t tailPercent,
                  int16_t tailFeed) {
  MotionBlock block;
  block.feedProgrammed = 1000;
  block.feed = feed;
  block.headPercent = headPercent;
  block.headFeed = headFeed;
  block.tailPercent = tailPercent;
  block.tailFeed = tailFeed;
  block.type = BlockCut;
  return block;
}

TEST(Zones, RoundDownToStepKeepsFeedsBelowOneStep) {
  const struct {
    int32_t feed, step, rounded;
  } cases[] = {{563, 10, 560}, {349, 50, 300}, {350, 50, 350},     {349, 1, 349}, {49, 50, 49},
               {0, 10, 0},     {-35, 10, -30}, {7, 2000000000, 7}, {563, 0, 563}, {563, -10, 563}};
  for (const auto& c : cases) EXPECT_EQ(RoundDownToStep(c.feed, c.step), c.rounded) << c.feed;
}

TEST(Zones, PercentIsTruncatedAndHeld) {
  const struct {
    float distance, length;
    int16_t percent;
  } cases[] = {{5.0F, 10.0F, 50},   {5.0F, 9.0F, 55},    {5.0F, 501.0F, 0},
               {1.5F, 2.5F, 60},    {5.0F, 4.0F, 125},   {5.0F, 0.001F, 32767},
               {5.0F, 0.0F, 32767}, {-5.0F, 10.0F, -50}, {-5.0F, 0.0001F, -32768},
               {0.0F, 0.0F, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(ZonePercent(c.distance, c.length), c.percent) << c.distance << "/" << c.length;
  }
}

TEST(Zones, WideningNeverShrinksAZoneOrRaisesItsFeed) {
  const struct {
    int16_t percent, zoneFeed;  // of the zone before
    int16_t newPercent;
    int32_t newFeed;
    int16_t percentAfter, zoneFeedAfter;
  } cases[] = {
      {0, 0, 40, 300, 40, 300},          {40, 300, 20, 200, 40, 200},  {20, 200, 40, 300, 40, 200},
      {20, 200, 40, 200, 40, 200},       {0, 0, 40, 40000, 40, 32767},  // held in the field
      {40, 32767, 40, 40000, 40, 32767}, {40, 0, 10, 0, 40, 0},
  };
  for (const auto& c : cases) {
    MotionBlock tail = Zoned(1000, 7, 70, c.percent, c.zoneFeed);
    WidenTailZone(&tail, c.newPercent, c.newFeed);
    EXPECT_EQ(FeedText(tail), FeedText(Zoned(1000, 7, 70, c.percentAfter, c.zoneFeedAfter)));
    MotionBlock head = Zoned(1000, c.percent, c.zoneFeed, 7, 70);
    WidenHeadZone(&head, c.newPercent, c.newFeed);
    EXPECT_EQ(FeedText(head), FeedText(Zoned(1000, c.percentAfter, c.zoneFeedAfter, 7, 70)));
  }
}

TEST(Zones, CoverTheMoveAboveEightyPerCentTogether) {
  EXPECT_FALSE(ZonesCoverMove(Zoned(1000, 40, 100, 40, 100)));
  EXPECT_TRUE(ZonesCoverMove(Zoned(1000, 41, 100, 40, 100)));
  EXPECT_TRUE(ZonesCoverMove(Zoned(1000, 50, 100, 40, 100)));
  EXPECT_FALSE(ZonesCoverMove(Zoned(1000, 0, 0, 80, 100)));
  EXPECT_TRUE(ZonesCoverMove(Zoned(1000, 32767, 0, 32767, 100)));
}

TEST(Zones, CollapseTakesTheLowestFeed) {
  const struct {
    int16_t headFeed, tailFeed;
    int32_t inHand;
    int32_t feed, feedInTens;
  } cases[] = {
      {345, 456, 500, 345, 340},  // head lowest
      {456, 345, 500, 345, 340},  // tail lowest
      {0, 345, 500, 345, 340},    // a zone feed that is not set takes the other
      {345, 0, 500, 345, 340},    //
      {345, 456, 229, 229, 220},  // the feed in hand lowest
      {0, 0, 229, 229, 220},      // no zone feed at all
  };
  for (const auto& c : cases) {
    for (const bool roundToTen : {false, true}) {
      MotionBlock block = Zoned(1000, 50, c.headFeed, 40, c.tailFeed);
      const int32_t expected = roundToTen ? c.feedInTens : c.feed;
      EXPECT_EQ(CollapseZones(&block, c.inHand, roundToTen), expected);
      EXPECT_EQ(FeedText(block), FeedText(Zoned(expected, 0, 0, 0, 0))) << c.headFeed << c.tailFeed;
      EXPECT_EQ(block.feedProgrammed, 1000);
    }
  }
}

TEST(Zones, LoweringAWholeMoveDropsFasterZonesOnly) {
  const struct {
    MotionBlock before;
    MotionBlock after;
    bool lowered;
  } cases[] = {
      {Zoned(1000, 0, 0, 0, 0), Zoned(300, 0, 0, 0, 0), true},
      {Zoned(1000, 20, 400, 30, 200), Zoned(300, 0, 0, 30, 200), true},
      {Zoned(1000, 20, 300, 30, 301), Zoned(300, 20, 300, 0, 0), true},
      {Zoned(300, 20, 400, 30, 500), Zoned(300, 20, 400, 30, 500), false},
      {Zoned(200, 20, 400, 30, 500), Zoned(200, 20, 400, 30, 500), false},
  };
  for (const auto& c : cases) {
    MotionBlock block = c.before;
    EXPECT_EQ(LowerWholeMove(&block, 300), c.lowered) << FeedText(c.before);
    EXPECT_EQ(FeedText(block), FeedText(c.after)) << FeedText(c.before);
  }
}

}  // namespace
}  // namespace tvx
