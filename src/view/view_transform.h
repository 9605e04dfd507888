// The arithmetic of the picture: a parallel projection with three whole-degree angles, an integer
// pan and one scale. It knows no window: a world point becomes a pixel offset from the centre of
// the drawing area.
#pragma once

#include <cstdint>

#include "base/numbers.h"
#include "model/block_store.h"
#include "model/vectors.h"
#include "platform/user_interface.h"
#include "view/pixel.h"

namespace tvx {

struct ViewTransform {
  ViewTransform() { UpdateTrigTable(); }

  // Has to follow every change of an angle.
  void UpdateTrigTable();

  int32_t rotX = 300;  // degrees; third rotation, about the screen's horizontal axis
  int32_t rotY = 0;    // degrees; first rotation, about the world Y axis
  int32_t rotZ = 330;  // degrees; second rotation, about the world Z axis
  double sinY = 0, sinZ = 0, sinX = 0;
  double cosY = 0, cosZ = 0, cosX = 0;
  int32_t panX = 0;  // whole world units: the projected coordinates that appear at the centre
  int32_t panY = 0;
  float viewScale = 30.0F;   // pixels per world unit
  int32_t clientWidth = 0;   // pixels; the drawing area in force, latched by PrepareDevice
  int32_t clientHeight = 0;  // 0 until the first preparation
  int32_t sizedWidth = 0;    // pixels; the size last reported by the window
  int32_t sizedHeight = 0;
};

// The fixed view modes, 1 to kViewModes.
inline constexpr int kViewModes = 7;

// A world point turned into the plane of the screen, in world units. The precisions differ and show
// in the pixels.
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

// The same in pixels, not yet whole ones. Lifts a viewScale below 0.00001 to that value for good.
struct ProjectedPixels {
  double x, y;
};

inline ProjectedPixels ProjectToPixels(ViewTransform* view, const Vec3& point) {
  constexpr float kSmallestScale = 0.00001F;
  if (view->viewScale < kSmallestScale) view->viewScale = kSmallestScale;
  const Projected plane = ProjectToPlane(*view, point);
  return {(plane.u - static_cast<double>(view->panX)) * view->viewScale,
          (plane.v - view->panY) * view->viewScale};
}

// Pixel offset of a world point from the centre of the drawing area, truncated towards zero. What
// lies beyond 32 bits is held there; what is no number is held at the upper end, so that it lies
// outside every drawing and not at its centre.
inline Pixel Project(ViewTransform* view, const Vec3& point) {
  const auto whole = [](double value) { return value == value ? TruncateToInt(value) : INT32_MAX; };
  const ProjectedPixels pixels = ProjectToPixels(view, point);
  return {whole(pixels.x), whole(pixels.y)};
}

// Sets the angles of a fixed view, 1 to 7 (top, front, right, four isometric ones), and repaints.
// Pan and scale stay, so the path may lie outside the area until a fit. Other modes do nothing.
void SetViewMode(ViewTransform* view, int mode, UserInterface* ui);

// Scales and centres the view so that the end points of all stored moves, rapid ones too, fill the
// drawing area, and repaints. An arc counts by its end point alone. A store without a point shows a
// square of 40 units around the origin.
void FitToPath(ViewTransform* view, BlockStore* store, UserInterface* ui);

// Scales and centres the view so that a rectangle of the drawing area (two opposite corners, origin
// top left) fills it, and repaints. Points on one row or column change nothing.
void ZoomToRect(ViewTransform* view, Pixel press, Pixel release, UserInterface* ui);

// Takes note of the window's size; it comes into force with the next preparation.
void OnResize(ViewTransform* view, int32_t width, int32_t height);

// What a device is set up with before a paint: one logical unit is one pixel.
struct DevicePreparation {
  Pixel origin;                        // logical coordinates of the area's top left corner
  uint32_t textColour = 0x00FF00;      // 0xRRGGBB
  uint32_t textBackground = 0x000000;  // 0xRRGGBB
};

// Latches the window's size and puts the logical origin at the centre of the area.
DevicePreparation PrepareDevice(ViewTransform* view);

}  // namespace tvx
