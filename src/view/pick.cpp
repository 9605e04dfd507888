// The bounds of runs of moves reject nearly all of a program; the moves that are left are drawn to
// a device that measures. So there is one rule for what a move looks like: that of the drawing.
#include "view/pick.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tvx {

namespace {

constexpr uint32_t kNoMove = UINT32_MAX;
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr PathBox kEmptyBox = {{kInfinity, kInfinity, kInfinity},
                               {-kInfinity, -kInfinity, -kInfinity}};
constexpr PathBox kWholeSpace = {{-kInfinity, -kInfinity, -kInfinity},
                                 {kInfinity, kInfinity, kInfinity}};

// True for the box of no move.
bool IsEmpty(const PathBox& box) {
  return box.low[0] > box.high[0];
}

void Widen(const PathBox& other, PathBox* box) {
  for (int k = 0; k < 3; ++k) {
    box->low[k] = std::min(box->low[k], other.low[k]);
    box->high[k] = std::max(box->high[k], other.high[k]);
  }
}

void Widen(const Vec3& point, PathBox* box) {
  Widen({{point.x, point.y, point.z}, {point.x, point.y, point.z}}, box);
}

PathBox BoxOfPoints(const Vec3& a, const Vec3& b) {
  return {{std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)},
          {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)}};
}

// False also for some points whose coordinates are finite and huge.
bool AreFinite(const Vec3& a, const Vec3& b) {
  const float sum = a.x + a.y + a.z + b.x + b.y + b.z;
  return sum - sum == 0;
}

double LengthOf(double x, double y) {
  return std::sqrt(x * x + y * y);
}

// Widens a box by the chords of an arc, whose ends it holds. They lie on the circle about the
// centre through the end point, on the side that the direction of the arc selects.
void WidenByArc(const Vec3& start, const MotionBlock& arc, const MotionBlock& offset,
                PathBox* box) {
  // The angles of chords are off by at most this, radians: the factor of the angles is not pi.
  constexpr double kAngleError = 1e-3;
  const double toStartX = -static_cast<double>(offset.x);
  const double toStartY = -static_cast<double>(offset.y);
  double x = start.x - toStartX, y = start.y - toStartY;  // the centre
  const double toEndX = arc.x - x;
  const double toEndY = arc.y - y;
  const double toStart = LengthOf(toStartX, toStartY);
  const double radius = LengthOf(toEndX, toEndY);
  double reach = radius;
  double turn = toStartX * toEndY - toStartY * toEndX;
  if (arc.type == BlockArcCw) turn = -turn;
  if (turn > kAngleError * toStart * radius) {
    // Less than half a circle is inside the circle that has the chord as its diameter.
    const double toFirstX = toStartX * radius / toStart;
    const double toFirstY = toStartY * radius / toStart;
    x += (toFirstX + toEndX) / 2;
    y += (toFirstY + toEndY) / 2;
    reach = LengthOf(toFirstX - toEndX, toFirstY - toEndY) / 2;
  }
  reach += radius * kAngleError;
  if (!std::isfinite(reach)) *box = kWholeSpace;
  const auto at = [&](double side) {
    return Vec3{static_cast<float>(x + side * reach), static_cast<float>(y + side * reach), arc.z};
  };
  Widen(at(-1), box);
  Widen(at(1), box);
}

bool HasShare(int16_t percent) {
  return 0 <= percent && percent <= 100;
}

// The box of the lines of a move from `start`. `after` is the record after it, null if there is
// none.
PathBox BoxOfMove(const Vec3& start, const MotionBlock& move, const MotionBlock* after) {
  const bool isArc = IsArcType(move.type);
  const Vec3 end = EndPoint(move);
  if (!AreFinite(start, end) || (isArc && after == nullptr) || !HasShare(move.headPercent) ||
      !HasShare(move.tailPercent)) {
    return kWholeSpace;
  }
  PathBox box = BoxOfPoints(start, end);
  if (isArc) WidenByArc(start, move, *after, &box);
  return box;
}

// The last move before a block, kNoMove if there is none.
uint32_t MoveBefore(const BlockStore& store, uint32_t index) {
  while (index-- > 0) {
    const MotionBlock* const block = store.Peek(index);
    if (block != nullptr && IsMoveType(block->type)) return index;
  }
  return kNoMove;
}

// Calls visit(index, box, previous) for each move from `first` up to but not including `end`, with
// its own box and that of the move before: with a ramp at its end, the drawing arrives at a move
// from a point of the one before. A first move has no bounds, nor has what is before it: where the
// drawing comes from is no point of the path.
template <typename Visit>
void VisitMoves(const BlockStore& store, uint32_t first, uint32_t end, Visit visit) {
  bool hasStart = false;
  Vec3 start;
  PathBox box = kWholeSpace;
  const auto next = [&](uint32_t index) {
    const MotionBlock& move = *store.Peek(index);
    box = hasStart ? BoxOfMove(start, move, store.Peek(index + 1)) : kWholeSpace;
    start = EndPoint(move);
    hasStart = true;
  };
  const auto isMove = [&](uint32_t index) {
    const MotionBlock* const block = store.Peek(index);
    return block != nullptr && IsMoveType(block->type);
  };
  // Without this, long runs of other blocks would be walked back over again and again.
  while (first < end && !isMove(first)) ++first;
  if (first == end) return;
  const uint32_t before = MoveBefore(store, first);
  const uint32_t beforeThat = before != kNoMove ? MoveBefore(store, before) : kNoMove;
  if (beforeThat != kNoMove) {
    start = EndPoint(*store.Peek(beforeThat));
    hasStart = true;
  }
  if (before != kNoMove) next(before);
  for (uint32_t index = first; index < end; ++index) {
    if (!isMove(index)) continue;
    const PathBox previous = box;
    next(index);
    visit(index, box, previous);
    if (IsArcType(store.Peek(index)->type)) ++index;  // its centre record
  }
}

// Where boxes appear in a view.
class BoxProjection {
 public:
  explicit BoxProjection(ViewTransform view) {
    // The projection is linear: four points define it.
    constexpr float kProbe = 1024.0F;  // mm
    origin_ = ProjectToPixels(&view, {0, 0, 0});
    const Vec3 probes[] = {{kProbe, 0, 0}, {0, kProbe, 0}, {0, 0, kProbe}};
    for (int k = 0; k < 3; ++k) {
      const ProjectedPixels at = ProjectToPixels(&view, probes[k]);
      x_[k] = (at.x - origin_.x) / kProbe;
      y_[k] = (at.y - origin_.y) / kProbe;
    }
    error_ = kRelativeError * view.viewScale;
  }

  // A rectangle that is certain to hold the drawn lines of a box. Its fields are not numbers for a
  // box without bounds; a comparison with them fails.
  struct Rectangle {
    double x, y;            // middle
    double reachX, reachY;  // half the sides
  };
  Rectangle Of(const PathBox& box) const {
    Rectangle result{origin_.x, origin_.y, kPixelError, kPixelError};
    for (int k = 0; k < 3; ++k) {
      const double middle = (static_cast<double>(box.low[k]) + box.high[k]) * 0.5;
      const double half = (static_cast<double>(box.high[k]) - box.low[k]) * 0.5;
      const double error = (std::abs(middle) + half) * error_;
      result.x += x_[k] * middle;
      result.y += y_[k] * middle;
      result.reachX += std::abs(x_[k]) * half + error;
      result.reachY += std::abs(y_[k]) * half + error;
    }
    return result;
  }

 private:
  // Points are rounded to single precision, and pixels are truncated.
  static constexpr double kRelativeError = 1e-6;
  static constexpr double kPixelError = 1.5;

  ProjectedPixels origin_;
  double x_[3], y_[3];  // pixels for each mm along an axis
  double error_;
};

// True if nothing is drawn: all points are certain to be beyond the limit of the drawing.
bool IsOutOfSight(const BoxProjection::Rectangle& r) {
  constexpr double kBeyond = kDrawnPixels + 1;
  return std::abs(r.x) - r.reachX > kBeyond || std::abs(r.y) - r.reachY > kBeyond;
}

// Square of a distance that is certainly not above that of the pixel from any drawn line. A line
// to a point from beyond the limit begins anywhere.
double LeastDistanceSquared(const BoxProjection::Rectangle& r, Pixel pixel) {
  const bool isInSight =
      std::abs(r.x) + r.reachX < kDrawnPixels && std::abs(r.y) + r.reachY < kDrawnPixels;
  if (!isInSight) return 0;
  const double dx = std::max(std::abs(r.x - pixel.x) - r.reachX, 0.0);
  const double dy = std::max(std::abs(r.y - pixel.y) - r.reachY, 0.0);
  return dx * dx + dy * dy;
}

// Square of the distance of a pixel from a line. Equal distances give equal results: all terms are
// whole numbers, and the only division is rounded correctly.
double DistanceSquared(Pixel pixel, Pixel from, Pixel to) {
  const double dx = static_cast<double>(to.x) - from.x;
  const double dy = static_cast<double>(to.y) - from.y;
  const double px = static_cast<double>(pixel.x) - from.x;
  const double py = static_cast<double>(pixel.y) - from.y;
  const double along = px * dx + py * dy;
  const double length = dx * dx + dy * dy;
  if (along <= 0) return px * px + py * py;
  if (along >= length) return (px - dx) * (px - dx) + (py - dy) * (py - dy);
  const double across = px * dy - py * dx;
  return across * across / length;
}

}  // namespace

// Draws single moves of a scene with the lines that they have in the drawing of the whole, and
// passes each line on. The scene's own state is restored at the end.
class MoveDrawing : private DrawingDevice {
 public:
  MoveDrawing(const PickIndex& index, const Scene& scene, bool showsRapids)
      : index_(index),
        program_(scene.program),
        register_(scene.program->store.CurrentBlock),
        firstPoint_(scene.program->firstPoint),
        view_(*scene.view),
        projection_(scene.view->transform),
        drawing_(WithView(scene, &view_, showsRapids), &view_.screen, kScreenPalette, this) {}
  ~MoveDrawing() override {
    program_->store.CurrentBlock = register_;
    program_->firstPoint = firstPoint_;
  }
  MoveDrawing(const MoveDrawing&) = delete;
  MoveDrawing& operator=(const MoveDrawing&) = delete;

  void Draw(uint32_t move) {
    ArriveAt(move);
    DrawAsPartOfAll(move, /*passesOn=*/true);
    arrivedFrom_ = hasDrawn_ ? move : kNoMove;
  }

  // The caller passes on lines near this pixel only.
  void LookNear(Pixel pixel) { drawing_.DrawChordsNear(pixel, PickIndex::kReach); }

  const BoxProjection& projection() const { return projection_; }
  Pixel position() const { return position_; }
  bool hasDrawn() const { return hasDrawn_; }  // by the last move

 protected:
  // A line that the move draws. A line to where the drawing is already is one, too.
  virtual void Line(Pixel from, Pixel to) = 0;

 private:
  static Scene WithView(const Scene& scene, ViewState* view, bool showsRapids) {
    if (showsRapids) view->RapidVisible = 1;
    return {scene.program, scene.job, view};
  }

  void FillRectangle(int32_t, int32_t, int32_t, int32_t, Colour) override {}
  Pen SelectPen(Pen pen) override { return pen; }
  void MoveTo(Pixel point) override {
    position_ = point;
    hasDrawn_ = true;
  }
  void LineTo(Pixel point) override {
    if (passesOn_) Line(position_, point);
    position_ = point;
    hasDrawn_ = true;
  }
  void Text(Pixel, std::string_view) override {}

  void DrawAsPartOfAll(uint32_t move, bool passesOn) {
    const BlockStore& store = program_->store;
    if (IsArcType(store.Peek(move)->type)) {
      const uint32_t before = MoveBefore(store, move);
      view_.screen.prevEnd = before != kNoMove ? EndPoint(*store.Peek(before)) : Vec3{};
    }
    passesOn_ = passesOn;
    hasDrawn_ = false;
    drawing_.DrawBlock(move);
  }

  // Leaves position and firstPoint as the drawing of all moves before this one would.
  void ArriveAt(uint32_t move) {
    const uint32_t before = MoveBefore(program_->store, move);
    if (before != kNoMove && before == arrivedFrom_) return;
    const bool isFirst = FirstVisible() >= move;
    if (!FindPosition(before)) {
      passesOn_ = false;
      drawing_.DrawAxes();
    }
    program_->firstPoint = isFirst ? 1 : 0;
  }

  bool IsRunOutOfSight(uint32_t run) const {
    const PathBox& box = index_.runs_[run];
    return IsEmpty(box) || IsOutOfSight(projection_.Of(box));
  }

  // Draws the last move up to `last` of which something is visible. False if there is none.
  bool FindPosition(uint32_t last) {
    if (last == kNoMove) return false;
    const BlockStore& store = program_->store;
    uint32_t end = last + 1;
    for (uint32_t run = last / PickIndex::kRunBlocks + 1; run-- > 0;) {
      const uint32_t first = run * PickIndex::kRunBlocks;
      if (!IsRunOutOfSight(run)) {
        while (end-- > first) {
          if (!IsMoveType(store.Peek(end)->type)) continue;
          DrawAsPartOfAll(end, /*passesOn=*/false);
          if (hasDrawn_) return true;
        }
      }
      end = first;
    }
    return false;
  }

  // The first move other than an arc of which something is visible. The drawing only moves to it.
  uint32_t FirstVisible() {
    if (!firstVisible_) firstVisible_ = FindFirstVisible();
    return *firstVisible_;
  }
  uint32_t FindFirstVisible() {
    const BlockStore& store = program_->store;
    for (uint32_t index = 0; index < store.blockCount; ++index) {
      const bool startsRun = index % PickIndex::kRunBlocks == 0;
      if (startsRun && IsRunOutOfSight(index / PickIndex::kRunBlocks)) {
        index += PickIndex::kRunBlocks - 1;
        continue;
      }
      const MotionBlock* const block = store.Peek(index);
      if (block == nullptr || (!IsRapidType(block->type) && !IsCutType(block->type))) continue;
      DrawAsPartOfAll(index, /*passesOn=*/false);
      if (hasDrawn_) return index;
    }
    return kNoMove;
  }

  const PickIndex& index_;
  NcProgram* program_;
  const MotionBlock register_;
  const int32_t firstPoint_;
  ViewState view_;
  BoxProjection projection_;
  PathDrawing drawing_;
  bool passesOn_ = false;
  bool hasDrawn_ = false;           // something since the start of the move
  Pixel position_;                  // of the drawing
  uint32_t arrivedFrom_ = kNoMove;  // the move that left position and firstPoint
  std::optional<uint32_t> firstVisible_;
};

namespace {

// Measures the moves that it draws.
class NearestMove final : public MoveDrawing {
 public:
  NearestMove(const PickIndex& index, const Scene& scene, Pixel pixel)
      : MoveDrawing(index, scene, /*showsRapids=*/false), pixel_(pixel) {
    LookNear(pixel);
  }

  // True if no move before `end` whose lines are in the box can be nearer, or as near and drawn
  // later.
  bool IsDecided(const PathBox& box, uint32_t end) const {
    if (IsEmpty(box)) return true;
    const BoxProjection::Rectangle r = projection().Of(box);
    if (IsOutOfSight(r)) return true;
    const double least = LeastDistanceSquared(r, pixel_);
    return least > nearest_ || (least == nearest_ && move_ != kNoMove && end <= move_);
  }

  void Measure(uint32_t move) {
    measured_ = move;
    Draw(move);
  }

  std::optional<uint32_t> Result() const {
    return move_ != kNoMove ? std::optional(move_) : std::nullopt;
  }

 private:
  void Line(Pixel from, Pixel to) override {
    const double distance = DistanceSquared(pixel_, from, to);
    if (distance > nearest_) return;
    if (distance == nearest_ && move_ != kNoMove && measured_ < move_) return;
    nearest_ = distance;
    move_ = measured_;
  }

  Pixel pixel_;
  uint32_t measured_ = kNoMove;
  double nearest_ = double{PickIndex::kReach} * PickIndex::kReach;  // square of the distance
  uint32_t move_ = kNoMove;                                         // the one at that distance
};

class LineOfMove final : public MoveDrawing {
 public:
  LineOfMove(const PickIndex& index, const Scene& scene)
      : MoveDrawing(index, scene, /*showsRapids=*/true) {}

  std::vector<Pixel> Of(uint32_t move) {
    Draw(move);
    if (points_.empty() && hasDrawn()) points_.push_back(position());
    return std::move(points_);
  }

 private:
  void Line(Pixel from, Pixel to) override {
    if (points_.empty()) points_.push_back(from);
    points_.push_back(to);
  }

  std::vector<Pixel> points_;
};

}  // namespace

PickIndex::PickIndex(BlockStore* store) : store_(store) {
  runs_.reserve((store->blockCount + kRunBlocks - 1) / kRunBlocks);
  store->PeekRepaired(0);
  for (uint32_t first = 0; first < store->blockCount; first += kRunBlocks) {
    const uint32_t end = std::min(first + kRunBlocks, store->blockCount);
    // The last arc of the run may have its second record in the next one.
    for (uint32_t index = first; index < end; ++index) store->PeekRepaired(index + 1);
    PathBox run = kEmptyBox;
    bool isFirst = true;
    VisitMoves(*store, first, end, [&](uint32_t, const PathBox& box, const PathBox& previous) {
      Widen(box, &run);
      if (isFirst) Widen(previous, &run);
      isFirst = false;
    });
    runs_.push_back(run);
  }
}

std::optional<uint32_t> PickIndex::Pick(const Scene& scene, Pixel pixel) const {
  NearestMove nearest(*this, scene, pixel);
  for (size_t run = runs_.size(); run-- > 0;) {
    const auto first = static_cast<uint32_t>(run * kRunBlocks);
    const uint32_t end = std::min(first + kRunBlocks, store_->blockCount);
    if (nearest.IsDecided(runs_[run], end)) continue;
    VisitMoves(*store_, first, end, [&](uint32_t move, PathBox box, const PathBox& previous) {
      Widen(previous, &box);
      if (!nearest.IsDecided(box, move + 1)) nearest.Measure(move);
    });
  }
  return nearest.Result();
}

std::vector<Pixel> PickIndex::DrawnLine(const Scene& scene, uint32_t block) const {
  const MotionBlock* const move = store_->Peek(block);
  if (move == nullptr || !IsMoveType(move->type)) return {};
  return LineOfMove(*this, scene).Of(block);
}

}  // namespace tvx
