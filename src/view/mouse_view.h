// Zoom at the pointer by the wheel, and turn and pan by the middle button. They set the fine parts
// of the transform, so that a point of the path follows the pointer; the keys go on to change its
// whole degrees and units.
#pragma once

#include "model/vectors.h"
#include "view/drawing_device.h"
#include "view/view_transform.h"

namespace tvx {

// Pixels of the functions are those of the drawing area, origin top left.

// Zooms in by steps of the wheel, out for a negative number; a part of a step is allowed. The point
// of the path at the pixel stays there. The scale stays within the limits of fit and projection.
void ZoomAt(ViewTransform* view, Pixel pixel, double steps);

// Moves the picture by a number of pixels.
void PanByPixels(ViewTransform* view, Pixel change);

// Centres the picture on a point.
void CentreOn(ViewTransform* view, const Vec3& point);

// The point that appears at a pixel, as far from the viewer as another point.
Vec3 PointAt(const ViewTransform& view, Pixel pixel, const Vec3& depthOf);

// A drag with the middle button.
class MouseDrag {
 public:
  // Begins to turn the view about a point, which stays where it is in the picture. Across turns
  // about the Z axis of the world, up and down tilts it.
  void BeginTurn(Pixel pixel, const Vec3& pivot);
  void BeginPan(Pixel pixel);
  void End() { kind_ = Kind::kNone; }
  bool IsActive() const { return kind_ != Kind::kNone; }

  // Moves the view with the pointer. Returns true if the view has changed.
  bool MoveTo(Pixel pixel, ViewTransform* view);

 private:
  enum class Kind { kNone, kTurn, kPan };

  Kind kind_ = Kind::kNone;
  Pixel last_;
  Vec3 pivot_;
};

}  // namespace tvx
