// Splits the new pan and angles into the whole numbers of the transform and their fine parts.
#include "view/mouse_view.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/numbers.h"

namespace tvx {
namespace {

constexpr double kZoomPerStep = 1.2;     // factor of a step of the wheel
constexpr float kSmallestScale = 1e-4F;  // pixels per unit: all that a store holds is 7 pixels wide
constexpr double kDegreesPerPixel = 0.5;

// A whole number and what it lacks.
void Split(double value, int32_t* whole, double* fine) {
  if (!std::isfinite(value)) return;
  *whole = TruncateToInt(value);
  *fine = std::clamp(value - *whole, -1.0, 1.0);
}

void SetPan(ViewTransform* view, double x, double y) {
  Split(x, &view->panX, &view->finePanX);
  Split(y, &view->panY, &view->finePanY);
}

// Degrees from 0 to 360.
double FullTurnOf(double degrees) {
  degrees = std::fmod(degrees, 360.0);
  return degrees < 0 ? degrees + 360.0 : degrees;
}

void SetTurn(ViewTransform* view, double rotX, double rotZ) {
  Split(FullTurnOf(rotX), &view->rotX, &view->fineRotX);
  Split(FullTurnOf(rotZ), &view->rotZ, &view->fineRotZ);
  view->UpdateTrigTable();
}

// A point of the plane of the screen, world units, and its distance towards the viewer.
struct Turned {
  double u, v, w;
};
Turned Turn(const ViewTransform& view, const Vec3& point) {
  const double ky = -point.y;
  const double a = point.x * view.cosY - point.z * view.sinY;
  const double b = point.x * view.sinY + point.z * view.cosY;
  const double c = ky * view.cosZ - a * view.sinZ;
  return {ky * view.sinZ + a * view.cosZ, c * view.cosX + b * view.sinX,
          b * view.cosX - c * view.sinX};
}

// The views from the side have a turn about Y, after which a turn about Z is one in the plane of
// the screen. While the Z axis of the world points up or down in the picture, the same view has
// angles without that turn.
void DropTurnAboutY(ViewTransform* view) {
  constexpr double kUpright = 1e-4;
  const Turned axis = Turn(*view, {0, 0, 1});
  if (view->rotY == 0 || std::abs(axis.u) > kUpright) return;
  const auto degrees = [](double sine, double cosine) {
    const double angle = std::atan2(sine, cosine) * 180.0 / std::numbers::pi;
    return std::round(angle * 1000.0) / 1000.0;  // the table's angles are off by less
  };
  const double rotZ = degrees(-Turn(*view, {0, 1, 0}).u, Turn(*view, {1, 0, 0}).u);
  view->rotY = 0;
  SetTurn(view, degrees(axis.v, axis.w), rotZ);
}

// World units from the centre of the picture.
double Across(const ViewTransform& view, Pixel pixel) {
  return (pixel.x - view.clientWidth / 2) / static_cast<double>(view.viewScale);
}
double Down(const ViewTransform& view, Pixel pixel) {
  return (pixel.y - view.clientHeight / 2) / static_cast<double>(view.viewScale);
}

}  // namespace

void ZoomAt(ViewTransform* view, Pixel pixel, double steps) {
  const double u = view->panX + view->finePanX + Across(*view, pixel);
  const double v = view->panY + view->finePanY + Down(*view, pixel);
  const double scale = view->viewScale * std::pow(kZoomPerStep, steps);
  view->viewScale = std::clamp(static_cast<float>(scale), kSmallestScale, kLargestFittedScale);
  SetPan(view, u - Across(*view, pixel), v - Down(*view, pixel));
}

void PanByPixels(ViewTransform* view, Pixel change) {
  SetPan(view, view->panX + view->finePanX - change.x / static_cast<double>(view->viewScale),
         view->panY + view->finePanY - change.y / static_cast<double>(view->viewScale));
}

void CentreOn(ViewTransform* view, const Vec3& point) {
  const Projected plane = ProjectToPlane(*view, point);
  SetPan(view, plane.u, plane.v);
}

Vec3 PointAt(const ViewTransform& view, Pixel pixel, const Vec3& depthOf) {
  const double u = view.panX + view.finePanX + Across(view, pixel);
  const double v = view.panY + view.finePanY + Down(view, pixel);
  const double w = Turn(view, depthOf).w;
  // The three rotations back.
  const double c = v * view.cosX - w * view.sinX;
  const double b = v * view.sinX + w * view.cosX;
  const double ky = u * view.sinZ + c * view.cosZ;
  const double a = u * view.cosZ - c * view.sinZ;
  return {static_cast<float>(a * view.cosY + b * view.sinY), static_cast<float>(-ky),
          static_cast<float>(b * view.cosY - a * view.sinY)};
}

void MouseDrag::BeginTurn(Pixel pixel, const Vec3& pivot) {
  kind_ = Kind::kTurn;
  last_ = pixel;
  pivot_ = pivot;
}

void MouseDrag::BeginPan(Pixel pixel) {
  kind_ = Kind::kPan;
  last_ = pixel;
}

bool MouseDrag::MoveTo(Pixel pixel, ViewTransform* view) {
  const Pixel change = {pixel.x - last_.x, pixel.y - last_.y};
  if (!IsActive() || change == Pixel{}) return false;
  last_ = pixel;
  if (kind_ == Kind::kPan) {
    PanByPixels(view, change);
    return true;
  }
  DropTurnAboutY(view);
  const Turned before = Turn(*view, pivot_);
  // The side towards the viewer follows the pointer, also where the picture is upside down.
  const double across = view->sinX > 0 ? -change.x : change.x;
  SetTurn(view, view->rotX + view->fineRotX + change.y * kDegreesPerPixel,
          view->rotZ + view->fineRotZ + across * kDegreesPerPixel);
  const Turned after = Turn(*view, pivot_);
  SetPan(view, view->panX + view->finePanX + after.u - before.u,
         view->panY + view->finePanY + after.v - before.v);
  return true;
}

}  // namespace tvx
