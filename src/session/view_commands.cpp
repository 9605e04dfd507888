// Keys, mouse and command pad: what each changes in the view.
#include "session/view_commands.h"

#include <algorithm>
#include <cstdlib>

#include "base/numbers.h"

namespace tvx {
namespace {

constexpr int32_t kAngleStep = 10;       // degrees
constexpr int64_t kClickThreshold = 10;  // pixels; a drag is longer

struct KeyRule {
  ViewKey key;
  int32_t ViewTransform::*field;
  int32_t direction;
  bool turns;  // the field is an angle in degrees, else a pan in world units
};
constexpr KeyRule kKeyRules[] = {
    {ViewKey::kUp, &ViewTransform::panY, 1, false},
    {ViewKey::kDown, &ViewTransform::panY, -1, false},
    {ViewKey::kRight, &ViewTransform::panX, -1, false},
    {ViewKey::kLeft, &ViewTransform::panX, 1, false},
    {ViewKey::kPageUp, &ViewTransform::rotZ, 1, true},
    {ViewKey::kPageDown, &ViewTransform::rotZ, -1, true},
    {ViewKey::kHome, &ViewTransform::rotY, 1, true},
    {ViewKey::kEnd, &ViewTransform::rotY, -1, true},
    {ViewKey::kInsert, &ViewTransform::rotX, 1, true},
    {ViewKey::kDelete, &ViewTransform::rotX, -1, true},
};

// An angle of exactly 360 is kept.
int32_t Turned(int32_t angle, int32_t degrees) {
  angle += degrees;
  if (degrees > 0) return angle > 360 ? angle - 360 : angle;
  return angle < 0 ? angle + 360 : angle;
}

// Clamped to 32 bits.
int32_t Panned(int32_t pan, int64_t step) {
  return static_cast<int32_t>(std::clamp<int64_t>(pan + step, INT32_MIN, INT32_MAX));
}

bool IsDrag(int32_t from, int32_t to) {
  return std::abs(int64_t{to} - from) > kClickThreshold;
}

// Whole world units by which an arrow key pans: about ten pixels, and at least 1.
int32_t PanStep(float viewScale) {
  return TruncateToInt(10.0 / viewScale + 1.0);
}

}  // namespace

void ViewCommands::ShowViewMode(int mode) {
  if (SetViewMode(&view_->transform, mode)) ShowChange();
}

void ViewCommands::Fit() {
  FitToPath(&view_->transform, &program_->store);
  ShowChange();
}

void ViewCommands::ShowChange() {
  changes_->Note(Change::kView);
  changes_->Show();
  changes_->Settle();
}

void ViewCommands::Redraw() {
  ShowChange();
}

void ViewCommands::ToggleRapids() {
  view_->RapidVisible = view_->RapidVisible != 1 ? 1 : 0;
  job_->RapidShown = view_->RapidVisible;
  ShowChange();
}

void ViewCommands::PressKey(ViewKey key) {
  ViewTransform& transform = view_->transform;
  for (const KeyRule& rule : kKeyRules) {
    if (rule.key != key) continue;
    int32_t& value = transform.*rule.field;
    if (rule.turns) {
      value = Turned(value, rule.direction * kAngleStep);
      transform.UpdateTrigTable();
    } else {
      value = Panned(value, int64_t{rule.direction} * PanStep(transform.viewScale));
    }
    ShowChange();
  }
}

void ViewCommands::PressRight(Pixel point) {
  rubberActive_ = true;
  rubberDrawn_ = false;
  rubberPress_ = point;
}

bool ViewCommands::MoveMouse(Pixel point) {
  if (!rubberActive_) return false;
  rubberLast_ = point;
  rubberDrawn_ = true;
  return true;
}

void ViewCommands::ReleaseRight(Pixel point) {
  PrepareDevice(&view_->transform);  // the zoom or fit uses the current window size
  rubberActive_ = false;
  rubberDrawn_ = false;
  if (IsDrag(rubberPress_.x, point.x) && IsDrag(rubberPress_.y, point.y)) {
    ZoomToRect(&view_->transform, rubberPress_, point);
    ShowChange();
  } else {
    Fit();
  }
}

std::optional<std::array<Pixel, 2>> ViewCommands::RubberBand() const {
  if (!rubberDrawn_) return std::nullopt;
  return std::array{rubberPress_, rubberLast_};
}

void ViewCommands::PressLeft(CCommandPadDlg* pad, const PadActions& actions) {
  pad->ClearFlags();
  ui_->RunModal(pad);
  if (pad->cutTime) {
    actions.runJobList();
    actions.showResultList();
  }
  if (pad->rapids) ToggleRapids();
  if (pad->settings) actions.showOptions();
}

}  // namespace tvx
