// The machine's time: closed forms, and properties on generated programs.
#include "insight/machine_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "insight/machine_fit.h"

namespace tvx {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kSecondsPerMinute = 60;

// A machine with round figures: 100 mm/s on all axes, 1000 mm/s^2.
MachineProfile RoundMachine() {
  MachineProfile profile;
  profile.RapidFeed = {6000, 6000, 6000};
  profile.CutFeed = {6000, 6000, 6000};
  profile.Acceleration = {1000, 1000, 1000};
  return profile;
}

using Records = std::vector<MotionBlock>;

MotionBlock To(BlockType type, float x, float y, float z, int32_t feed = 6000) {
  return {.x = x, .y = y, .z = z, .feedProgrammed = feed, .feed = feed, .type = type};
}

std::unique_ptr<BlockStore> StoreOf(const Records& records) {
  auto store = std::make_unique<BlockStore>();
  for (const MotionBlock& record : records) {
    store->CurrentBlock = record;
    store->WriteBlock(store->blockCount++);
  }
  return store;
}

double TotalSeconds(const Records& records, const MachineProfile& profile) {
  return ComputeMachineTime(StoreOf(records).get(), profile).totalMinutes * kSecondsPerMinute;
}

MotionBlock Cut(float x, float y = 0) {
  return To(BlockCut, x, y, 0);
}
MotionBlock Centre(float i, float j) {
  return To(BlockArcCentre, i, j, 0);
}

const MotionBlock kOrigin = To(BlockRapidStart, 0, 0, 0);
const MotionBlock kCut = To(BlockCutStart, 100, 0, 0);
const MotionBlock kRapid = To(BlockRapidStart, 200, 0, 0, 0);
const MotionBlock kQuarter = To(BlockArcCcw, 10, 10, 0);
const MotionBlock kSide = To(BlockRapidStart, 10, 0, 0);

TEST(MachineTime, SingleMovesAndCornersTakeTheTimeOfTheirClosedForm) {
  const MachineProfile machine = RoundMachine();
  MachineProfile exact = machine, passing = machine, slowControl = machine, skewed = machine;
  exact.CornerTolerance = 0;
  passing.StopAtRapids = false;
  slowControl.BlockTime = 0.1;
  skewed.CutFeed = {6000, 3000, 6000};
  skewed.Factor = 2;

  MotionBlock zones = kCut;
  zones.headPercent = 20;
  zones.headFeed = 1200;
  zones.tailPercent = 10;
  zones.tailFeed = 600;
  MotionBlock feedlessZone = kCut;
  feedlessZone.headPercent = 20;
  feedlessZone.tailPercent = 110;  // as much as the head leaves
  feedlessZone.tailFeed = 3000;

  // At a right angle: the change of direction has both axes at 1/sqrt(2).
  const double corner = std::sqrt(1000 * std::numbers::sqrt2 * 0.02 * std::cos(kPi / 4) /
                                  (2 * std::pow(std::sin(kPi / 8), 2)));
  const double toCorner =
      0.1 + (100 - corner) / 1000 + (100 - 5 - (100 * 100 - corner * corner) / 2000) / 100;
  const double centripetal = 1000 / std::numbers::sqrt2;
  const double circleSpeed = std::sqrt(centripetal * 10);
  const double circle = 20 * kPi / circleSpeed + circleSpeed / centripetal;
  const double helixLength = std::hypot(20 * kPi, 30);
  const double helixPlane = 20 * kPi / helixLength;
  const double helix = helixLength * helixPlane / circleSpeed + circleSpeed / centripetal;
  // A quarter of the circle, then straight on, faster and to a stop.
  const double speedSquared = circleSpeed * circleSpeed;
  const double quarter =
      circleSpeed / centripetal + (5 * kPi - speedSquared / (2 * centripetal)) / circleSpeed;
  const double toEnd =
      (100 - circleSpeed) / 1000 + 0.1 + (100 - (100 * 100 - speedSquared) / 2000 - 5) / 100;
  // Chords of a circle of radius 100: its speed, not that of the tolerance.
  Records chords{To(BlockRapidStart, 100, 0, 0)};
  const double turn = 2 * kPi / 720;
  for (int i = 1; i <= 720; ++i) {
    chords.push_back(Cut(static_cast<float>(100 * std::cos(i * turn)),
                         static_cast<float>(100 * std::sin(i * turn))));
  }

  const struct {
    const char* name;
    Records records;
    double seconds;
    const MachineProfile* profile = nullptr;  // null: machine
    double tolerance = 1e-9;
  } kCases[] = {
      {"reaches its feed", {kOrigin, kCut}, 1.1},
      {"too short", {kOrigin, Cut(4)}, 2 * std::sqrt(0.004)},
      {"right angle, stop", {kOrigin, kCut, Cut(100, 100)}, 2.2, &exact},
      {"right angle, tolerance", {kOrigin, kCut, Cut(100, 100)}, 2 * toCorner},
      {"reversal", {kOrigin, kCut, Cut(0)}, 2.2},
      {"full circle", {kSide, To(BlockArcCcw, 10, 0, 0), Centre(-10, 0)}, circle},
      {"helix", {kSide, To(BlockArcCw, 10, 0, -30), Centre(-10, 0)}, helix},
      {"arc into tangent", {kOrigin, kQuarter, Centre(0, 10), Cut(10, 110)}, quarter + toEnd},
      {"arc without a centre is straight", {kOrigin, To(BlockArcCcw, 100, 0, 0), Cut(200)}, 2.1},
      {"head and tail zones", {kOrigin, zones}, 1.01 + 0.7725 + 1.005},
      {"tail up to the head", {kOrigin, feedlessZone}, 0.1 + 0.1125 + 0.1 + (80 - 1.25) / 50},
      {"rapid between cuts", {kOrigin, kCut, kRapid, Cut(300)}, 3.3},
      {"rapid between cuts, passed", {kOrigin, kCut, kRapid, Cut(300)}, 3.1, &passing},
      {"block time", {kOrigin, Cut(1), Cut(2), Cut(3)}, 0.31, &slowControl},
      {"axis limit and factor", {kOrigin, Cut(0, 100)}, 2 * 2.05, &skewed},
      {"same point twice", {kOrigin, kCut, Cut(100), Cut(200)}, 2.1},
      {"cut without feed", {kOrigin, kCut, To(BlockCut, 150, 0, 0, 0), Cut(250)}, 2.2},
      {"nothing", {}, 0},
      {"chords of a circle", chords, 200 * kPi / 100 + 0.1, &machine, 0.02},
  };
  for (const auto& example : kCases) {
    const MachineProfile& profile = example.profile != nullptr ? *example.profile : machine;
    EXPECT_NEAR(TotalSeconds(example.records, profile), example.seconds, example.tolerance)
        << example.name;
  }
}

TEST(MachineTime, PausesAndMovesWithoutFeedAreReported) {
  MachineProfile machine = RoundMachine();
  machine.ToolChange = 6;
  machine.Factor = 2;
  const auto store = StoreOf({kOrigin, kCut, To(BlockCut, 100, 9, 0, 0)});
  const MachineTime time = ComputeMachineTime(store.get(), machine, {30, 5});
  EXPECT_DOUBLE_EQ(time.dwellMinutes, 1);
  EXPECT_DOUBLE_EQ(time.toolMinutes, 1);
  EXPECT_DOUBLE_EQ(time.totalMinutes, 2 + 2.2 / 60);
  EXPECT_DOUBLE_EQ(time.steadyCutMinutes, 1.0 / 60);
  EXPECT_EQ(time.movesWithoutFeed, 1u);
}

// A program of straight moves, arcs and rapids; zones and short moves if wanted.
Records RandomProgram(unsigned seed, bool withArcs, bool withZones, int step = 1) {
  std::mt19937 random(seed);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  Records records{kOrigin};
  for (int i = 0; i < 200; ++i) {
    const auto at = [&] { return static_cast<float>(below(2000 / step) * step) / 8; };
    const int32_t feed = 100 + below(9000);
    const int choice = below(10);
    if (choice == 0) {
      records.push_back(To(BlockRapidStart, at(), at(), at(), feed));
    } else if (choice < 4 && withArcs) {
      records.push_back(To(choice == 1 ? BlockArcCw : BlockArcCcw, at(), at(), at(), feed));
      records.push_back(To(BlockArcCentre, at() - 120, at() - 120, 0, feed));
    } else {
      MotionBlock cut = To(BlockCut, at(), at(), at(), feed);
      if (withZones && choice > 6) {
        cut.headPercent = static_cast<int16_t>(below(60));
        cut.headFeed = static_cast<int16_t>(below(2000));
        cut.tailPercent = static_cast<int16_t>(below(60));
        cut.tailFeed = static_cast<int16_t>(below(2000));
      }
      records.push_back(cut);
    }
    if (below(8) == 0) records.push_back(To(BlockNone, 0, 0, 0, 0));
  }
  return records;
}

MachineProfile WithAcceleration(double factor) {
  MachineProfile profile = RoundMachine();
  for (double& value : profile.Acceleration) value *= factor;
  return profile;
}

TEST(MachineTime, WithoutInertiaItIsTheSteadyTime) {
  MachineProfile profile;
  profile.CutFeed = {1e15, 1e15, 1e15};
  profile.Acceleration = {1e25, 1e25, 1e25};
  profile.CornerTolerance = 1e15;
  for (unsigned seed = 0; seed < 50; ++seed) {
    const auto store = StoreOf(RandomProgram(seed, true, true));
    const MachineTime time = ComputeMachineTime(store.get(), profile);
    const double steady = time.steadyCutMinutes + time.steadyRapidMinutes;
    EXPECT_NEAR(time.totalMinutes, steady, 1e-9 * steady) << seed;
  }
}

TEST(MachineTime, NeverRisesWithHigherLimits) {
  const auto tolerance = [](double mm) {
    MachineProfile profile = RoundMachine();
    profile.CornerTolerance = mm;
    return profile;
  };
  const auto cutFeed = [](double feed) {
    MachineProfile profile = RoundMachine();
    profile.CutFeed = {feed, feed, feed / 2};
    return profile;
  };
  for (unsigned seed = 0; seed < 20; ++seed) {
    const Records records = RandomProgram(seed, true, true);
    double accelerated = INFINITY, tolerated = INFINITY, fed = INFINITY;
    for (const double step : {0.001, 0.1, 0.5, 1.0, 4.0, 100.0}) {
      const auto falls = [&](double* before, const MachineProfile& profile) {
        const double seconds = TotalSeconds(records, profile);
        EXPECT_LE(seconds, *before * (1 + 1e-12)) << seed << " at " << step;
        *before = seconds;
      };
      falls(&accelerated, WithAcceleration(step));
      falls(&tolerated, tolerance(step));
      falls(&fed, cutFeed(step * 2000));
    }
  }
}

TEST(MachineTime, NoStretchBreaksItsLimits) {
  for (unsigned seed = 0; seed < 50; ++seed) {
    const auto store = StoreOf(RandomProgram(seed, true, true));
    const MachineProfile profile = WithAcceleration(seed % 2 == 0 ? 1 : 0.01);
    double previousEnd = 0, seconds = 0;
    bool everReachesLimit = false;
    const MachineTime time =
        ComputeMachineTime(store.get(), profile, {}, [&](const StretchRun& run) {
          EXPECT_EQ(run.startSpeed, previousEnd);
          EXPECT_LE(run.startSpeed, run.limit * (1 + 1e-12));
          EXPECT_LE(run.endSpeed, run.limit * (1 + 1e-12));
          const double change =
              std::abs(run.endSpeed * run.endSpeed - run.startSpeed * run.startSpeed);
          EXPECT_LE(change, 2 * run.acceleration * run.length * (1 + 1e-9) + 1e-9);
          everReachesLimit |= run.endSpeed > run.limit * (1 - 1e-9);
          previousEnd = run.endSpeed;
          seconds += run.seconds;
        });
    EXPECT_EQ(previousEnd, 0);
    EXPECT_TRUE(everReachesLimit);
    EXPECT_NEAR(seconds / kSecondsPerMinute, time.totalMinutes, 1e-9 * time.totalMinutes);
  }
}

TEST(MachineTime, AReversedProgramTakesAsLong) {
  for (unsigned seed = 0; seed < 50; ++seed) {
    Records forward = RandomProgram(seed, false, false);
    std::erase_if(forward, [](const MotionBlock& block) { return block.type == BlockNone; });
    Records backward = forward;
    for (size_t i = 0; i < forward.size(); ++i) {
      // The type and the feed belong to the move that ends at a point.
      const MotionBlock& move = forward[i == 0 ? 0 : forward.size() - i];
      const MotionBlock& point = forward[forward.size() - 1 - i];
      backward[i] = To(static_cast<BlockType>(move.type), point.x, point.y, point.z, move.feed);
    }
    const double seconds = TotalSeconds(forward, RoundMachine());
    EXPECT_NEAR(TotalSeconds(backward, RoundMachine()), seconds, 1e-9 * seconds) << seed;
  }
}

// Long moves, so that no corner is limited by the length of its moves.
TEST(MachineTime, SplittingAStraightMoveChangesNothing) {
  for (unsigned seed = 0; seed < 50; ++seed) {
    const Records whole = RandomProgram(seed, false, false, 200);
    Records split;
    const MotionBlock* previous = &whole[0];
    for (const MotionBlock& block : whole) {
      if (!IsMoveType(block.type)) continue;
      MotionBlock half = block;
      half.x = (previous->x + block.x) / 2;
      half.y = (previous->y + block.y) / 2;
      half.z = (previous->z + block.z) / 2;
      split.insert(split.end(), {half, block});
      previous = &block;
    }
    const double seconds = TotalSeconds(whole, RoundMachine());
    EXPECT_NEAR(TotalSeconds(split, RoundMachine()), seconds, 1e-9 * seconds) << seed;
  }
}

TEST(MachineFit, FindsTheScaleAndFactorThatMadeTheTimes) {
  std::vector<std::unique_ptr<BlockStore>> stores;
  for (unsigned seed = 0; seed < 6; ++seed) {
    // From long moves at high feed to short ones that never reach it.
    Records records = RandomProgram(seed, true, true);
    for (MotionBlock& block : records) {
      for (float* value : {&block.x, &block.y, &block.z}) *value /= static_cast<float>(1 << seed);
    }
    stores.push_back(StoreOf(records));
  }
  for (const auto& [scale, factor] : {std::pair(0.5, 1.2), std::pair(3.0, 0.9)}) {
    MachineProfile real = WithAcceleration(scale);
    real.Factor = factor;
    std::vector<MeasuredProgram> measured;
    for (const auto& store : stores) {
      measured.push_back(
          {store.get(), {12, 0}, ComputeMachineTime(store.get(), real, {12, 0}).totalMinutes});
    }
    const MachineFit fit = FitMachine(RoundMachine(), measured);
    EXPECT_NEAR(fit.scale, scale, 0.01 * scale);
    EXPECT_NEAR(fit.profile.Factor, factor, 0.01 * factor);
    EXPECT_GT(RelativeError(measured, fit.before), 0.05);
    EXPECT_LT(RelativeError(measured, fit.after), 1e-4);
  }
}

TEST(MachineFit, OneProgramDeterminesOnlyTheFactor) {
  const auto store = StoreOf({kOrigin, kCut});
  const MeasuredProgram measured[] = {{store.get(), {}, 2.2 / kSecondsPerMinute}};
  const MachineFit fit = FitMachine(RoundMachine(), measured);
  EXPECT_EQ(fit.scale, 1);
  EXPECT_NEAR(fit.profile.Factor, 2, 1e-9);
}

}  // namespace
}  // namespace tvx
