// The arithmetic of the picture: a parallel projection with three whole-degree angles, an integer
// pan and one scale. It turns a world point into a pixel offset from the centre of the drawing
// area. Nothing here repaints: a caller that changes a view on the screen does.
#pragma once

#include <cstdint>

#include "base/numbers.h"
#include "model/block_store.h"
#include "model/vectors.h"
#include "view/drawing_device.h"

namespace tvx {

struct ViewTransform {
  ViewTransform() { UpdateTrigTable(); }

  // Recomputes the sines and cosines. Call it after each change of an angle.
  void UpdateTrigTable();

  int32_t rotX = 300;  // degrees; third rotation, about the screen's horizontal axis
  int32_t rotY = 0;    // degrees; first rotation, about the world Y axis
  int32_t rotZ = 330;  // degrees; second rotation, about the world Z axis
  double sinY = 0, sinZ = 0, sinX = 0;
  double cosY = 0, cosZ = 0, cosX = 0;
  int32_t panX = 0;  // whole world units: the projected coordinates that appear at the centre
  int32_t panY = 0;
  float viewScale = 30.0F;   // pixels per world unit
  int32_t clientWidth = 0;   // pixels; size of the drawing area, set by PrepareDevice
  int32_t clientHeight = 0;  // 0 until the first preparation
  int32_t sizedWidth = 0;    // pixels; the size last reported by the window
  int32_t sizedHeight = 0;

  // What the mouse adds to the whole numbers above. All are 0 in a view that keys, fixed views, fit
  // and zoom to a rectangle alone have set.
  double finePanX = 0, finePanY = 0;  // world units
  double fineRotX = 0, fineRotZ = 0;  // degrees
};

// The largest scale of a fit or a zoom, pixels per world unit.
inline constexpr float kLargestFittedScale = 500.0F;

// The fixed view modes, 1 to kViewModes.
inline constexpr int kViewModes = 7;

// A world point turned into the plane of the screen, in world units. The two precisions are part of
// the result: they decide which pixel a point falls on.
struct Projected {
  float u = 0;   // to the right
  double v = 0;  // downward
};

inline Projected ProjectToPlane(const ViewTransform& view, const Vec3& point) {
  // The screen's y grows downward: this makes world +Y point up in the top view.
  constexpr float kWorldYSign = -1.0F;
  const float ky = kWorldYSign * point.y;
  const auto a = static_cast<float>(point.x * view.cosY - point.z * view.sinY);
  const double b = point.x * view.sinY + point.z * view.cosY;
  return {static_cast<float>(ky * view.sinZ + a * view.cosZ),
          (ky * view.cosZ - a * view.sinZ) * view.cosX + b * view.sinX};
}

// A projected point in pixels from the centre, before truncation.
struct ProjectedPixels {
  double x, y;
};

// Raises a viewScale below 0.00001 to that value, in the view itself.
inline ProjectedPixels ProjectToPixels(ViewTransform* view, const Vec3& point) {
  constexpr float kSmallestScale = 0.00001F;
  if (view->viewScale < kSmallestScale) view->viewScale = kSmallestScale;
  const Projected plane = ProjectToPlane(*view, point);
  return {(plane.u - (view->panX + view->finePanX)) * view->viewScale,
          (plane.v - (view->panY + view->finePanY)) * view->viewScale};
}

// Pixel offset of a world point from the centre of the drawing area, truncated towards zero and
// clamped to 32 bits. A NaN becomes INT32_MAX, so that the point is outside every drawing area
// instead of at its centre.
inline Pixel Project(ViewTransform* view, const Vec3& point) {
  const auto whole = [](double value) { return value == value ? TruncateToInt(value) : INT32_MAX; };
  const ProjectedPixels pixels = ProjectToPixels(view, point);
  return {whole(pixels.x), whole(pixels.y)};
}

// Sets the angles of a fixed view, 1 to 7 (top, front, right, four isometric ones). Pan and scale
// do not change, so the path may be outside the area until a fit. Returns false and changes nothing
// for any other mode.
bool SetViewMode(ViewTransform* view, int mode);

// Scales and centres the view so that the end points of all stored moves, rapid ones too, fill the
// drawing area. Of an arc only the end point counts. A store without a point is shown as a square
// of 40 units around the origin. Reads the store, so its register changes.
void FitToPath(ViewTransform* view, BlockStore* store);

// Scales and centres the view so that a rectangle of the drawing area (two opposite corners in
// pixels, origin top left) fills it. Points on one row or one column change nothing.
void ZoomToRect(ViewTransform* view, Pixel press, Pixel release);

// Notes the window's size in pixels; PrepareDevice puts it into effect.
void OnResize(ViewTransform* view, int32_t width, int32_t height);

// Logical coordinates of the drawing area's top left pixel. The origin is at the centre.
inline Pixel TopLeftOf(const ViewTransform& view) {
  return {-(view.clientWidth / 2), -(view.clientHeight / 2)};
}

// The set-up of a device before a paint: one logical unit is one pixel.
struct DevicePreparation {
  Pixel origin;  // TopLeftOf the view
  Colour textColour = 0x00FF00;
  Colour textBackground = 0x000000;
};

// Puts the noted window size into effect and the logical origin at the centre of the area.
DevicePreparation PrepareDevice(ViewTransform* view);

}  // namespace tvx
