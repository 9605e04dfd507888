// From stored moves to device calls: pens by feed, colour ramps, arcs as chords.
#include "view/path_drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/numbers.h"
#include "model/walks.h"

namespace tvx {
namespace {

// Two feeds are drawn as a ramp if the lower one is below this fraction of the higher one.
constexpr double kFeedStepFactor = 0.8;

constexpr double kChordsPerPixel = 0.33333334;
constexpr double kRadiansPerAngleDegree = 0.01745277777777778;  // 3.1415 / 180, as in Angle
constexpr int64_t kChordsToTest = 64;  // a longer range of chords is tested for sight as a whole

// As fractions of FeedBase. A band does not include its lower end, except the last.
struct FeedBand {
  double above;
  double upTo;
};
constexpr FeedBand kFeedBandTable[kFeedBands] = {
    {0.87, 100.0}, {0.75, 0.87}, {0.62, 0.75}, {0.5, 0.62}, {0.37, 0.5}, {0.25, 0.37}, {0.0, 0.25},
};

// A coordinate at an offset from another, rounded to single precision once.
float Along(float from, double offset) {
  return static_cast<float>(from + offset);
}

// The limit applies to the truncated coordinate, so 30000.9 is within it. A NaN is not.
bool IsWithinLimit(double coordinate) {
  return std::abs(coordinate) < kDrawnPixels + 1;
}

// The fraction of the base that selects the band. Single precision can raise it above an end.
float FeedFraction(int64_t feed, int32_t FeedBase) {
  return static_cast<float>(static_cast<double>(feed) / FeedBase);
}

// The last feed whose fraction is at most the given one.
int64_t LastFeedUpTo(double fraction, int32_t FeedBase) {
  auto feed = static_cast<int64_t>(std::floor(fraction * FeedBase));
  while (FeedFraction(feed, FeedBase) > fraction) --feed;
  while (FeedFraction(feed + 1, FeedBase) <= fraction) ++feed;
  return feed;
}

}  // namespace

const Palette kScreenPalette = {
    penWhite, {penWhite, penLightGrey, penGreen, penDarkGreen, penDarkBlue, penBlue, penRed}};
const Palette kPicturePalette = {
    penBlack, {penBlack, penGrey, penGreen, penDarkGreen, penDarkBlue, penBlue, penRed}};

FeedRange FeedsOfBand(size_t i, int32_t FeedBase) {
  const FeedBand& band = kFeedBandTable[i];
  const bool isSlowest = i + 1 == kFeedBands;
  return {isSlowest ? 0 : LastFeedUpTo(band.above, FeedBase) + 1,
          LastFeedUpTo(band.upTo, FeedBase)};
}

std::optional<size_t> BandOfFeed(int32_t feed, int32_t FeedBase) {
  if (FeedBase == 0) return std::nullopt;
  const float fraction = FeedFraction(feed, FeedBase);
  if (fraction > kFeedBandTable[0].upTo || fraction < 0.0F) return std::nullopt;
  // The index of the band is the number of bands that begin at or above the fraction. Counting them
  // takes no branch that changing feeds would mispredict.
  size_t band = 0;
  for (size_t i = 0; i < kFeedBands - 1; ++i) band += fraction > kFeedBandTable[i].above ? 0 : 1;
  return band;
}

std::optional<Pen> PenForFeed(int32_t feed, int32_t FeedBase, const Palette& palette) {
  if (FeedBase == 0) return penBlue;
  const std::optional<size_t> band = BandOfFeed(feed, FeedBase);
  return band ? std::optional(palette.band[*band]) : std::nullopt;
}

void PathDrawing::SelectPenForFeed(int32_t feed) {
  if (const auto pen = PenForFeed(feed, program_->FeedBase, palette_)) device_->SelectPen(*pen);
}

inline bool PathDrawing::StepTo(Pixel pixel, bool isVisible) {
  const bool isFirst = program_->firstPoint != 0;
  if (isFirst) program_->firstPoint = 0;
  if (isFirst || !isVisible) {
    device_->MoveTo(pixel);
    return false;
  }
  device_->LineTo(pixel);
  return true;
}

void PathDrawing::DrawTo(const Vec3& point, int32_t feed, uint32_t type) {
  const ProjectedPixels exact = ProjectToPixels(view_, point);
  if (!IsWithinLimit(exact.x) || !IsWithinLimit(exact.y)) return;
  const Pixel pixel = {static_cast<int32_t>(exact.x), static_cast<int32_t>(exact.y)};
  switch (type) {
    case BlockRapidStart:
      device_->SelectPen(penRapid);
      StepTo(pixel, rapidVisible_);
      break;
    case BlockRapid:
      StepTo(pixel, rapidVisible_);
      break;
    case BlockCutStart:
      SelectPenForFeed(feed);
      if (StepTo(pixel)) state_->lastPenFeed = feed;
      break;
    case BlockCut:
      if (feed != state_->lastPenFeed) {
        SelectPenForFeed(feed);
        state_->lastPenFeed = feed;
      }
      StepTo(pixel);
      break;
    case BlockArcCcw:
    case BlockArcCw:
      device_->LineTo(pixel);
      break;
    default:
      break;
  }
}

Pen PathDrawing::DrawAxes() {
  struct Axis {
    Vec3 direction;
    double arm;  // pixels
    const char* name;
  };
  constexpr double kLetterPixels = 70.0;
  constexpr Axis kAxes[] = {
      {{1, 0, 0}, 50.0, "X"},
      {{0, 1, 0}, 50.0, "Y"},
      {{0, 0, 1}, 40.0, "Z"},
  };
  const Pen previous = device_->SelectPen(palette_.start);
  const Pixel origin = Project(view_, {0, 0, 0});
  for (const Axis& axis : kAxes) {
    const auto pointAt = [&](double pixels) {
      const auto length = static_cast<float>(pixels / view_->viewScale);
      const Vec3& d = axis.direction;
      return Project(view_, {d.x * length, d.y * length, d.z * length});
    };
    device_->MoveTo(origin);
    device_->LineTo(pointAt(axis.arm));
    device_->Text(pointAt(kLetterPixels), axis.name);
  }
  return previous;
}

void PathDrawing::DrawPath() {
  const Pen previous = device_->SelectPen(palette_.start);
  state_->prevEnd = {};
  if (store_->blockCount == 0) return;
  program_->firstPoint = 1;
  constexpr uint32_t kBlocksPerStep = 1 << 14;
  const uint32_t count = store_->blockCount;
  for (uint32_t index = 0; index < count && progress_->Step(index, count);) {
    const uint32_t end = std::min(count, index + kBlocksPerStep);
    while (index < end) index = DrawStored(index);
  }
  ReadAfterLastMove();
  device_->SelectPen(previous);
}

uint32_t PathDrawing::DrawBlock(uint32_t index) {
  return DrawStored(index);
}

// In place in the loop over all blocks.
[[gnu::always_inline]] inline uint32_t PathDrawing::DrawStored(uint32_t index) {
  if (store_->ReadBlock(index) == 0 || !IsMoveType(store_->CurrentBlock.type)) return index + 1;
  const MotionBlock block = store_->CurrentBlock;
  const Vec3 end = EndPoint(block);
  if (!IsArcType(block.type)) {
    DrawMove(index, block);
    state_->prevEnd = end;
    return index + 1;
  }
  const Vec3 start = std::exchange(state_->prevEnd, end);
  store_->ReadBlock(index + 1);
  const MotionBlock& offset = store_->CurrentBlock;
  DrawArc(start, end, {Along(start.x, offset.x), Along(start.y, offset.y), end.z}, block.type);
  return index + 2;
}

// Drawing a move reads its previous move, even when smooth change is off and nothing is drawn from
// it. DrawWithoutPortions omits that read for moves without portions. The read of the last move
// determines the block register afterwards, so it is made here.
void PathDrawing::ReadAfterLastMove() {
  const uint32_t last = store_->blockCount - 1;
  const MotionBlock& block = store_->CurrentBlock;
  if (afaEnabled_ && !smooth_ && IsCutType(block.type) && block.headPercent == 0 &&
      block.tailPercent == 0) {
    PrevMove(store_, last);
  }
}

void PathDrawing::DrawMove(uint32_t index, const MotionBlock& block) {
  if (IsRapidType(block.type) || !afaEnabled_) {
    DrawTo(EndPoint(block), block.feed, block.type);
  } else if (block.headPercent == 0 && block.tailPercent == 0) {
    DrawWithoutPortions(index, block);
  } else {
    DrawWithPortions(index, block);
  }
}

void PathDrawing::DrawWithoutPortions(uint32_t index, const MotionBlock& block) {
  if (smooth_) {
    const Ramp ramp = RampToNeighbours(index, block);
    const auto [low, high] = std::minmax(ramp.fromFeed, ramp.toFeed);
    if (kFeedStepFactor * high > low) {
      DrawPortion(ramp, block.feed, 1, block.type);
      return;
    }
  }
  DrawTo(EndPoint(block), block.feed, block.type);
}

// A continuing move ramps up to a clearly faster next move, else down from a clearly faster
// previous one. Only one of the two is drawn.
PathDrawing::Ramp PathDrawing::RampToNeighbours(uint32_t index, const MotionBlock& block) {
  PrevMove(store_, index);
  const MotionBlock previous = store_->CurrentBlock;
  Ramp ramp{EndPoint(previous), EndPoint(block), block.feed, block.feed};
  if (block.type == BlockCutStart) return ramp;
  NextMove(store_, index);
  // Without a next move the register still holds a block read before; that one is compared.
  const MotionBlock& next = store_->CurrentBlock;
  const int32_t prevFeed = previous.tailPercent > 0 ? previous.tailFeed : previous.feed;
  const int32_t nextFeed = next.headPercent > 0 ? next.headFeed : next.feed;
  if (block.feed < kFeedStepFactor * nextFeed) {
    ramp.toFeed = nextFeed;
  } else if (block.feed < kFeedStepFactor * prevFeed) {
    ramp.fromFeed = prevFeed;
  }
  return ramp;
}

void PathDrawing::DrawWithPortions(uint32_t index, const MotionBlock& block) {
  PrevMove(store_, index);
  const Vec3 start = EndPoint(store_->CurrentBlock);
  const Vec3 end = EndPoint(block);
  const Vec3 move = {end.x - start.x, end.y - start.y, end.z - start.z};
  // The point at a percentage of the move from another point.
  const auto pointFrom = [&](const Vec3& point, double percent) -> Vec3 {
    return {Along(point.x, percent * move.x * 0.01), Along(point.y, percent * move.y * 0.01),
            Along(point.z, percent * move.z * 0.01)};
  };
  if (block.headPercent > 0) {
    const Vec3 headEnd = pointFrom(start, block.headPercent);
    DrawPortion({start, headEnd, block.headFeed, block.feed}, block.headFeed, 1, block.type);
  }
  if (block.tailPercent > 0) {
    const Vec3 tailStart = pointFrom(end, -block.tailPercent);
    DrawTo(tailStart, block.feed, block.type);
    // The last step stops short of the end; the next move continues from there.
    DrawPortion({tailStart, end, block.feed, block.tailFeed}, block.tailFeed, 0, block.type);
  } else {
    DrawTo(end, block.feed, block.type);
  }
}

// A part of a move: in colour steps counted from firstStep, or as one line in the colour of `feed`
// where smooth change is off or the part is too short for two steps.
void PathDrawing::DrawPortion(const Ramp& ramp, int32_t feed, int32_t firstStep, uint32_t type) {
  const int32_t steps = smooth_ ? RampSteps(ramp) : 0;
  if (steps >= 2) {
    DrawRamp(ramp, steps, firstStep, type);
  } else {
    DrawTo(ramp.to, feed, type);
  }
}

// Number of colour steps: one for each half unit of length, ten on a long ramp. Below two there is
// no ramp.
int32_t PathDrawing::RampSteps(const Ramp& ramp) {
  Difference difference;
  Vec3 unit;
  DiffVectors(ramp.to, ramp.from, &difference, &unit);
  if (difference.length > 5.0F) return 10;
  return TruncateToInt(2.0 * difference.length + 1.0);
}

// Draws the steps firstStep to firstStep + steps - 1 of a ramp.
void PathDrawing::DrawRamp(const Ramp& ramp, int32_t steps, int32_t firstStep, uint32_t type) {
  for (int32_t k = firstStep; k < firstStep + steps; ++k) {
    const auto at = [&](float from, float to) {
      return Along(from, k * (static_cast<double>(to) - from) / steps);
    };
    const int64_t fall = static_cast<int64_t>(ramp.fromFeed) - ramp.toFeed;
    const auto feed = static_cast<int32_t>(ramp.fromFeed - k * fall / steps);
    DrawTo({at(ramp.from.x, ramp.to.x), at(ramp.from.y, ramp.to.y), at(ramp.from.z, ramp.to.z)},
           feed, type);
  }
}

void PathDrawing::DrawArc(const Vec3& start, const Vec3& end, const Vec3& centre, uint32_t type) {
  Arc arc{centre, {}, type, 0, 0};
  ArcGeometry(start, end, centre, type, &arc.measures);
  const double chords =
      static_cast<double>(arc.measures.length) * view_->viewScale * kChordsPerPixel + 1.0;
  if (!(chords <= kMostChords)) return;
  arc.chords = TruncateTo<int64_t>(chords);
  // Points and angles are rounded to single precision; the slack is far above that error.
  const double reach = std::abs(static_cast<double>(centre.x)) +
                       std::abs(static_cast<double>(centre.y)) +
                       std::abs(static_cast<double>(centre.z)) + arc.measures.radius;
  arc.slack = reach * view_->viewScale * 4e-6 + 4.0;
  DrawChords(arc, 1, arc.chords);
}

Vec3 PathDrawing::Arc::PointAt(int64_t chord) const {
  const double turned = static_cast<double>(chord) * measures.sweep / static_cast<double>(chords);
  const auto degrees = static_cast<float>(type == BlockArcCcw ? measures.startAngle + turned
                                                              : measures.startAngle - turned);
  const double angle = degrees * kRadiansPerAngleDegree;
  return {Along(centre.x, std::cos(angle) * measures.radius),
          Along(centre.y, std::sin(angle) * measures.radius), centre.z};
}

// A circle that is certain to hold the lines of the chords `first` to `last`: no point of them is
// further from the middle one than half the length of that arc.
PathDrawing::Circle PathDrawing::CircleAround(const Arc& arc, int64_t first, int64_t last) {
  const int64_t middle = first + (last - first) / 2;
  const double turned =
      arc.measures.sweep * kRadiansPerAngleDegree / static_cast<double>(arc.chords);
  const auto chords = static_cast<double>(last - middle + 1);
  return {ProjectToPixels(view_, arc.PointAt(middle)),
          chords * turned * arc.measures.radius * view_->viewScale + arc.slack};
}

// True if all of the circle is drawn, and none of it within the focus. The line of a first chord
// that comes from beyond the limit may be anywhere.
bool PathDrawing::IsFarFromFocus(const Circle& chords) const {
  const auto& [x, y] = chords.middle;
  return focus_ && std::max(std::abs(x), std::abs(y)) + chords.radius < kDrawnPixels &&
         std::hypot(x - focus_->pixel.x, y - focus_->pixel.y) > chords.radius + focus_->reach;
}

bool PathDrawing::IsBeyondLimit(const Circle& chords) {
  const double limit = chords.radius + kDrawnPixels;
  return std::abs(chords.middle.x) > limit || std::abs(chords.middle.y) > limit;
}

// Draws the chords `first` to `last`. A long range is halved, and a half that is out of sight costs
// one test, so the time for an arc of any radius depends on its visible part only.
void PathDrawing::DrawChords(const Arc& arc, int64_t first, int64_t last) {
  if (last - first >= kChordsToTest) {
    const Circle circle = CircleAround(arc, first, last);
    if (IsBeyondLimit(circle)) return;
    if (first > 1 && IsFarFromFocus(circle)) {
      device_->MoveTo(Project(view_, arc.PointAt(last)));
      return;
    }
    const int64_t middle = first + (last - first) / 2;
    DrawChords(arc, first, middle);
    DrawChords(arc, middle + 1, last);
    return;
  }
  for (int64_t chord = first; chord <= last; ++chord) DrawTo(arc.PointAt(chord), 0, arc.type);
}

void Paint(const Scene& scene, DrawingDevice* device) {
  const ViewTransform& view = scene.view->transform;
  constexpr Colour kBlack = 0x000000;
  // Twice the area in each direction covers it wherever the origin is.
  device->FillRectangle(-view.clientWidth, -view.clientHeight, view.clientWidth, view.clientHeight,
                        kBlack);
  PathDrawing drawing(scene, &scene.view->screen, kScreenPalette, device);
  device->SelectPen(drawing.DrawAxes());
  drawing.DrawPath();
}

void DrawPicture(const Scene& scene, DrawingDevice* device) {
  PathDrawing drawing(scene, &scene.view->picture, kPicturePalette, device);
  drawing.DrawAxes();  // the start pen stays selected
  drawing.DrawPath();
}

}  // namespace tvx
