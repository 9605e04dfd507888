#include "view/path_drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/numbers.h"
#include "model/walks.h"

namespace tvx {
namespace {

constexpr int32_t kPixelLimit = 30000;  // what lies beyond is not drawn

// A neighbour's feed counts as a step only beyond this factor.
constexpr double kFeedStepFactor = 0.8;

constexpr double kChordsPerPixel = 0.33333334;
constexpr double kRadiansPerAngleDegree = 0.01745277777777778;  // 3.1415 / 180, as in Angle
constexpr int64_t kChordsWorthATest = 64;

constexpr FeedBand kFeedBandTable[kFeedBands] = {
    {0.87, 100.0}, {0.75, 0.87}, {0.62, 0.75}, {0.5, 0.62}, {0.37, 0.5}, {0.25, 0.37}, {0.0, 0.25},
};

// A coordinate `share` times a difference away from another.
float Along(float from, double offset) {
  return static_cast<float>(from + offset);
}

// Whole coordinates up to the limit are drawn, so a fraction more is, too. What is no number is
// not.
bool IsWithinLimit(double coordinate) {
  return std::abs(coordinate) < kPixelLimit + 1;
}

}  // namespace

const Palette kScreenPalette = {
    penWhite, {penWhite, penLightGrey, penGreen, penDarkGreen, penDarkBlue, penBlue, penRed}};
const Palette kPicturePalette = {
    penBlack, {penBlack, penGrey, penGreen, penDarkGreen, penDarkBlue, penBlue, penRed}};

std::span<const FeedBand, kFeedBands> FeedBands() {
  return kFeedBandTable;
}

std::optional<Pen> PenForFeed(int32_t feed, int32_t FeedBase, const Palette& palette) {
  if (FeedBase == 0) return penBlue;
  const auto fraction = static_cast<float>(static_cast<double>(feed) / FeedBase);
  if (fraction > kFeedBandTable[0].upTo || fraction < 0.0F) return std::nullopt;
  // As many bands as it does not rise above lie before its own. Counting has no branch that a feed
  // changing all the time would spoil.
  size_t band = 0;
  for (size_t i = 0; i < kFeedBands - 1; ++i) band += fraction > kFeedBandTable[i].above ? 0 : 1;
  return palette.band[band];
}

void PathDrawing::SelectPenForFeed(int32_t feed) {
  if (const auto pen = PenForFeed(feed, program_->FeedBase, palette_)) device_->SelectPen(*pen);
}

void PathDrawing::DrawTo(const Vec3& point, int32_t feed, uint32_t type) {
  const ProjectedPixels exact = ProjectToPixels(view_, point);
  if (!IsWithinLimit(exact.x) || !IsWithinLimit(exact.y)) return;
  const Pixel pixel = {static_cast<int32_t>(exact.x), static_cast<int32_t>(exact.y)};
  switch (type) {
    case BlockRapidStart:
    case BlockRapid:
      if (type == BlockRapidStart) device_->SelectPen(penRapid);
      if (program_->firstPoint != 0) {
        device_->MoveTo(pixel);
        program_->firstPoint = 0;
      } else if (rapidVisible_) {
        device_->LineTo(pixel);
      } else {
        device_->MoveTo(pixel);
      }
      break;
    case BlockCutStart:
      SelectPenForFeed(feed);
      if (program_->firstPoint != 0) {
        device_->MoveTo(pixel);
        program_->firstPoint = 0;
      } else {
        device_->LineTo(pixel);
        state_->lastPenFeed = feed;
      }
      break;
    case BlockCut:
      if (feed != state_->lastPenFeed) {
        SelectPenForFeed(feed);
        state_->lastPenFeed = feed;
      }
      if (program_->firstPoint != 0) {
        device_->MoveTo(pixel);
        program_->firstPoint = 0;
      } else {
        device_->LineTo(pixel);
      }
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
  for (uint32_t index = 0; index < store_->blockCount; ++index) {
    if (store_->ReadBlock(index) == 0 || !IsMoveType(store_->CurrentBlock.type)) continue;
    const MotionBlock block = store_->CurrentBlock;
    const Vec3 end = EndPoint(block);
    if (IsArcType(block.type)) {
      const Vec3 start = std::exchange(state_->prevEnd, end);
      store_->ReadBlock(++index);
      const MotionBlock& offset = store_->CurrentBlock;
      DrawArc(start, end, {Along(start.x, offset.x), Along(start.y, offset.y), end.z}, block.type);
    } else {
      DrawMove(index, block);
      state_->prevEnd = end;
    }
  }
  EndOfWalk();
  device_->SelectPen(previous);
}

// A move without portions is compared with its neighbours. Where no ramp is drawn the result is not
// needed, and of the reads only the last one shows: in the register.
void PathDrawing::EndOfWalk() {
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

// The feed may still step along the move because of its neighbours.
void PathDrawing::DrawWithoutPortions(uint32_t index, const MotionBlock& block) {
  const Vec3 end = EndPoint(block);
  if (smooth_) {
    PrevMove(store_, index);
    const MotionBlock previous = store_->CurrentBlock;
    Ramp ramp{EndPoint(previous), end, block.feed, block.feed};
    if (block.type != BlockCutStart) {  // only a continuing move looks at its neighbours
      NextMove(store_, index);
      // Without a further move this is whatever the register holds then.
      const MotionBlock& next = store_->CurrentBlock;
      const int32_t prevFeed = previous.tailPercent > 0 ? previous.tailFeed : previous.feed;
      const int32_t nextFeed = next.headPercent > 0 ? next.headFeed : next.feed;
      if (block.feed < kFeedStepFactor * nextFeed) {
        ramp.toFeed = nextFeed;
      } else if (block.feed < kFeedStepFactor * prevFeed) {
        ramp.fromFeed = prevFeed;
      }
    }
    const auto [low, high] = std::minmax(ramp.fromFeed, ramp.toFeed);
    if (kFeedStepFactor * high > low) {
      const int32_t steps = RampSteps(ramp);
      if (steps >= 2) {
        DrawRamp(ramp, steps, 1, block.type);
        return;
      }
    }
  }
  DrawTo(end, block.feed, block.type);
}

void PathDrawing::DrawWithPortions(uint32_t index, const MotionBlock& block) {
  PrevMove(store_, index);
  const Vec3 start = EndPoint(store_->CurrentBlock);
  const Vec3 end = EndPoint(block);
  const Vec3 move = {end.x - start.x, end.y - start.y, end.z - start.z};
  if (block.headPercent > 0) {
    const auto part = [&](double difference) { return block.headPercent * difference * 0.01; };
    const Vec3 headEnd = {Along(start.x, part(move.x)), Along(start.y, part(move.y)),
                          Along(start.z, part(move.z))};
    const Ramp ramp{start, headEnd, block.headFeed, block.feed};
    const int32_t steps = smooth_ ? RampSteps(ramp) : 0;
    if (steps >= 2) {
      DrawRamp(ramp, steps, 1, block.type);
    } else {
      DrawTo(headEnd, block.headFeed, block.type);
    }
  }
  if (block.tailPercent > 0) {
    const auto part = [&](double difference) { return block.tailPercent * difference * 0.01; };
    const Vec3 tailStart = {Along(end.x, -part(move.x)), Along(end.y, -part(move.y)),
                            Along(end.z, -part(move.z))};
    DrawTo(tailStart, block.feed, block.type);
    const Ramp ramp{tailStart, end, block.feed, block.tailFeed};
    const int32_t steps = smooth_ ? RampSteps(ramp) : 0;
    if (steps >= 2) {
      // The last step stops short of the end, from where the next move continues.
      DrawRamp(ramp, steps, 0, block.type);
    } else {
      DrawTo(end, block.tailFeed, block.type);
    }
  } else {
    DrawTo(end, block.feed, block.type);
  }
}

// Number of colour steps: one each half unit of length, ten on a long ramp; below 2 it is none.
int32_t PathDrawing::RampSteps(const Ramp& ramp) {
  Difference difference;
  Vec3 unit;
  DiffVectors(ramp.to, ramp.from, &difference, &unit);
  if (difference.length > 5.0F) return 10;
  return TruncateToInt(2.0 * difference.length + 1.0);
}

// As many steps as the ramp has, counted from firstStep.
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
  // Points and angles are single precision: far more than their rounding is allowed for.
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

// True if every point from one chord to another is certain to lie beyond the limit: none is further
// from the point in the middle than the arc between them is long.
bool PathDrawing::IsOutOfSight(const Arc& arc, int64_t first, int64_t last) {
  const int64_t middle = first + (last - first) / 2;
  const ProjectedPixels point = ProjectToPixels(view_, arc.PointAt(middle));
  const double turned =
      arc.measures.sweep * kRadiansPerAngleDegree / static_cast<double>(arc.chords);
  const double reach =
      static_cast<double>(last - middle) * turned * arc.measures.radius * view_->viewScale +
      arc.slack + kPixelLimit;
  return std::abs(point.x) > reach || std::abs(point.y) > reach;
}

// Draws from one chord to another, halving long stretches so that those out of sight cost one look.
// An arc of any radius then takes no longer than what can be seen of it.
void PathDrawing::DrawChords(const Arc& arc, int64_t first, int64_t last) {
  if (last - first >= kChordsWorthATest) {
    if (IsOutOfSight(arc, first, last)) return;
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
  // Twice the area in each direction covers it wherever the origin lies.
  device->FillRectangle(-view.clientWidth, -view.clientHeight, view.clientWidth, view.clientHeight,
                        kBlack);
  PathDrawing drawing(scene, &scene.view->screen, kScreenPalette, device);
  device->SelectPen(drawing.DrawAxes());
  drawing.DrawPath();
}

void DrawPicture(const Scene& scene, DrawingDevice* device) {
  PathDrawing drawing(scene, &scene.view->picture, kPicturePalette, device);
  drawing.DrawAxes();  // its pen stays selected
  drawing.DrawPath();
}

}  // namespace tvx
