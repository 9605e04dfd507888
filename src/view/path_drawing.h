// Draws the stored program as lines in the colours of its feeds. The result is the sequence of
// calls that reach the device: screen, picture files and printer differ only in palette, background
// and device.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "model/arc_geometry.h"
#include "model/block_store.h"
#include "model/job_record.h"
#include "model/nc_program.h"
#include "model/vectors.h"
#include "platform/progress.h"
#include "view/drawing_device.h"
#include "view/view_transform.h"

namespace tvx {

// State kept from one drawing to the next, one for each kind of target.
struct DrawingState {
  int32_t lastPenFeed = 0;  // feed for which the pen was last chosen; kept after the drawing
  Vec3 prevEnd;             // end point of the last move drawn: the start point of an arc
};

// The view settings of one window.
struct ViewState {
  ViewTransform transform;
  int32_t RapidVisible = 1;  // 1: rapids are drawn, any other: the pen only moves over them
  DrawingState screen;
  DrawingState picture;
};

// The input of a drawing, owned by the window's working state. A drawing changes firstPoint and the
// block register of the program, raises a scale below its lower bound, and updates one
// DrawingState.
struct Scene {
  NcProgram* program;
  const JobRecord* job;  // AfaEnabled, FeedChgSmoothCheck
  ViewState* view;
  Progress* progress = NoProgress();  // gets the blocks drawn; once stopped, no more are drawn
};

// The feed bands are fractions of FeedBase, from the fastest to the slowest.
inline constexpr int kFeedBands = 7;

// The whole feeds, in mm/min, that are drawn in band i for a FeedBase above 0. First is above last
// if there are none.
struct FeedRange {
  int64_t first;
  int64_t last;
};
FeedRange FeedsOfBand(size_t i, int32_t FeedBase);

// Points further than this from the centre, in x or y, are not drawn.
inline constexpr int32_t kDrawnPixels = 30000;

// The index of the band of a feed; nothing for a FeedBase of 0 and for a feed below 0 or above 100
// times the base.
std::optional<size_t> BandOfFeed(int32_t feed, int32_t FeedBase);

struct Palette {
  Pen start;                         // of the axes, and of the path until a move selects another
  std::array<Pen, kFeedBands> band;  // in the order of FeedBands
};
extern const Palette kScreenPalette;   // for a black background
extern const Palette kPicturePalette;  // for a white page

// The pen of a feed: penBlue for a FeedBase of 0; none, so that the selected pen is kept, for a
// feed without a band.
std::optional<Pen> PenForFeed(int32_t feed, int32_t FeedBase, const Palette& palette);

// One drawing of a scene onto a device.
class PathDrawing {
 public:
  PathDrawing(const Scene& scene, DrawingState* state, const Palette& palette,
              DrawingDevice* device)
      : store_(&scene.program->store),
        program_(scene.program),
        view_(&scene.view->transform),
        state_(state),
        palette_(palette),
        device_(device),
        progress_(scene.progress),
        rapidVisible_(scene.view->RapidVisible == 1),
        afaEnabled_(scene.job->AfaEnabled == 1),
        smooth_(scene.job->FeedChgSmoothCheck == 1) {}

  // Tripod of the world axes, of fixed length on the screen. Returns the pen that was selected
  // before; the start pen stays selected.
  Pen DrawAxes();

  // Draws all moves in the order of the store.
  void DrawPath();

  // Draws the move at an index below blockCount, from where the drawing is; nothing for any other
  // block. An arc starts at the prevEnd of the state. Returns the index after the move's records.
  uint32_t DrawBlock(uint32_t index);

  // Draws the move of type 1 to 4 at an index, in portions and colour steps. `block` is its record.
  void DrawMove(uint32_t index, const MotionBlock& block);

  // From now on, long runs of chords whose lines are all further than `reach` pixels from the pixel
  // are skipped: the device only moves to their end. For a caller that looks for lines there.
  void DrawChordsNear(Pixel pixel, int reach) { focus_ = Focus{pixel, reach}; }

  // Draws an arc as chords of about three pixels. An arc of more than kMostChords is not drawn.
  void DrawArc(const Vec3& start, const Vec3& end, const Vec3& centre, uint32_t type);

  // Moves or draws to one point. A point beyond 30000 pixels is skipped without any call: the
  // next visible point is connected to the last visible one.
  void DrawTo(const Vec3& point, int32_t feed, uint32_t type);

  // With more chords, neighbouring values of the single-precision angle would be further apart than
  // a drawing area is wide.
  static constexpr double kMostChords = 1e11;

 private:
  uint32_t DrawStored(uint32_t index);

  // A straight part of a move along which the feed changes evenly.
  struct Ramp {
    Vec3 from, to;
    int32_t fromFeed, toFeed;
  };
  static int32_t RampSteps(const Ramp& ramp);
  void DrawRamp(const Ramp& ramp, int32_t steps, int32_t firstStep, uint32_t type);
  void DrawPortion(const Ramp& ramp, int32_t feed, int32_t firstStep, uint32_t type);
  void DrawWithPortions(uint32_t index, const MotionBlock& block);
  void DrawWithoutPortions(uint32_t index, const MotionBlock& block);
  Ramp RampToNeighbours(uint32_t index, const MotionBlock& block);

  struct Arc {
    Vec3 centre;
    ArcMeasures measures;
    uint32_t type;
    int64_t chords;
    double slack;  // upper bound of the rounding error of a point, pixels

    Vec3 PointAt(int64_t chord) const;
  };
  // A circle on the drawing area, in pixels.
  struct Circle {
    ProjectedPixels middle;
    double radius;
  };
  // Part of the drawing area that a caller is interested in.
  struct Focus {
    Pixel pixel;
    int reach;
  };
  Circle CircleAround(const Arc& arc, int64_t first, int64_t last);
  static bool IsBeyondLimit(const Circle& chords);
  bool IsFarFromFocus(const Circle& chords) const;
  void DrawChords(const Arc& arc, int64_t first, int64_t last);
  void ReadAfterLastMove();

  // Draws a line to the pixel; the first point of a path and a step that is not visible only move
  // there. Returns true if a line was drawn.
  bool StepTo(Pixel pixel, bool isVisible = true);
  void SelectPenForFeed(int32_t feed);

  BlockStore* store_;
  NcProgram* program_;
  ViewTransform* view_;
  DrawingState* state_;
  const Palette& palette_;
  DrawingDevice* device_;
  Progress* progress_;
  bool rapidVisible_;
  bool afaEnabled_;
  bool smooth_;
  std::optional<Focus> focus_;
};

// The drawing of the screen: black background, axes and path. Call PrepareDevice first.
void Paint(const Scene& scene, DrawingDevice* device);

// The drawing of a picture file: axes and path for a white page, with no background.
void DrawPicture(const Scene& scene, DrawingDevice* device);

}  // namespace tvx
