// The fixed views, the fit to the path and the zoom to a rectangle.
#include "view/view_transform.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"

namespace tvx {
namespace {

// Slightly below pi / 180 (bits 0x3C8EFA33). The cosine of 270 degrees is therefore a few
// millionths instead of 0, which shows in the pixels of the front view.
constexpr float kRadiansPerDegree = 0.017453289F;

struct ViewAngles {
  int32_t rotX, rotY, rotZ;  // degrees
};
constexpr ViewAngles kViewAngles[kViewModes] = {
    {0, 0, 0},      // top
    {270, 0, 0},    // front
    {0, 90, 270},   // right
    {300, 0, 330},  // isometric 1 to 4
    {300, 0, 240}, {300, 0, 150}, {300, 0, 60},
};

// Scale at which an extent in world units covers a number of pixels. An extent of almost nothing,
// as of a line seen end on, is given 10 pixels a unit.
double ScaleForExtent(int32_t pixels, double extent) {
  return extent > 0.01 ? pixels / extent : 10.0;
}

void SetFittedScale(ViewTransform* view, double width, double height) {
  const double scale = std::min(ScaleForExtent(view->clientWidth, width),
                                ScaleForExtent(view->clientHeight, height));
  view->viewScale = std::min(static_cast<float>(scale), kLargestFittedScale);
}

struct Bounds {
  static constexpr double kBeyond = 99999.0;
  double low = kBeyond;
  double high = -kBeyond;

  void Widen(double value) {
    if (value > high) high = value;
    if (value < low) low = value;
  }
};

}  // namespace

void ViewTransform::UpdateTrigTable() {
  const auto radians = [](double degrees) {
    return degrees * static_cast<double>(kRadiansPerDegree);
  };
  sinY = std::sin(radians(rotY));
  cosY = std::cos(radians(rotY));
  sinZ = std::sin(radians(rotZ + fineRotZ));
  cosZ = std::cos(radians(rotZ + fineRotZ));
  sinX = std::sin(radians(rotX + fineRotX));
  cosX = std::cos(radians(rotX + fineRotX));
}

bool SetViewMode(ViewTransform* view, int mode) {
  if (mode < 1 || mode > kViewModes) return false;
  const ViewAngles& angles = kViewAngles[mode - 1];
  view->rotX = angles.rotX;
  view->rotY = angles.rotY;
  view->rotZ = angles.rotZ;
  view->fineRotX = view->fineRotZ = 0;
  view->UpdateTrigTable();
  return true;
}

void FitToPath(ViewTransform* view, BlockStore* store) {
  view->UpdateTrigTable();
  Bounds u;
  Bounds v;
  for (uint32_t index = 0; index < store->blockCount; ++index) {
    if (store->ReadBlock(index) == 0) continue;
    const MotionBlock& block = store->CurrentBlock;
    const Projected point = ProjectToPlane(*view, EndPoint(block));
    u.Widen(point.u);
    v.Widen(point.v);
    if (IsArcType(block.type)) ++index;  // its centre record is not a point
  }
  if (store->blockCount == 0 || (u.high == -Bounds::kBeyond && u.low == Bounds::kBeyond)) {
    u = v = {-20.0, 20.0};
  }
  SetFittedScale(view, u.high - u.low, v.high - v.low);
  view->panX = TruncateToInt((u.high + u.low) * 0.5);
  view->panY = TruncateToInt((v.high + v.low) * 0.5);
  view->finePanX = view->finePanY = 0;
}

void ZoomToRect(ViewTransform* view, Pixel press, Pixel release) {
  if (press.x == release.x || press.y == release.y) return;
  const double x1 = std::min(press.x, release.x);
  const double x2 = std::max(press.x, release.x);
  const double y1 = std::min(press.y, release.y);
  const double y2 = std::max(press.y, release.y);
  const double scale = view->viewScale;
  const int32_t hw = view->clientWidth / 2;
  const int32_t hh = view->clientHeight / 2;
  const double panX = view->panX + view->finePanX;
  const double panY = view->panY + view->finePanY;
  const auto u1 = static_cast<float>((x1 - hw) / scale + panX);
  const auto u2 = static_cast<float>((x2 - hw) / scale + panX);
  const double v1 = (y1 - hh) / scale + panY;
  const double v2 = (y2 - hh) / scale + panY;
  SetFittedScale(view, static_cast<double>(u2) - u1, v2 - v1);
  view->panX = TruncateToInt((static_cast<double>(u1) + u2) * 0.5);
  view->panY = TruncateToInt((v1 + v2) * 0.5);
  view->finePanX = view->finePanY = 0;
}

void OnResize(ViewTransform* view, int32_t width, int32_t height) {
  view->sizedWidth = width;
  view->sizedHeight = height;
}

DevicePreparation PrepareDevice(ViewTransform* view) {
  view->clientWidth = view->sizedWidth;
  view->clientHeight = view->sizedHeight;
  return {.origin = TopLeftOf(*view)};
}

}  // namespace tvx
