// Base of the vector picture files: collects calls into runs of connected lines in one pen. A run
// is kept in a fixed buffer, so memory does not grow with the drawing.
#pragma once

#include <array>
#include <span>
#include <utility>

#include "view/drawing_device.h"

namespace tvx {

class PolylineDevice : public DrawingDevice {
 public:
  Pen SelectPen(Pen pen) final {
    if (pen != pen_) {
      EndRun();
      UsePen(pen);
    }
    return std::exchange(pen_, pen);
  }
  void MoveTo(Pixel point) final {
    EndRun();
    run_[0] = point;
  }
  void LineTo(Pixel point) final {
    if (count_ == run_.size()) EndRun();
    run_[count_++] = point;
  }
  void Text(Pixel point, std::string_view text) final {
    EndRun();
    PlaceText(point, text);
  }

 protected:
  // The following lines are in this pen, which differs from the last one.
  virtual void UsePen(Pen pen) = 0;
  // Draws two or more points, connected by lines.
  virtual void DrawRun(std::span<const Pixel> points) = 0;
  virtual void PlaceText(Pixel point, std::string_view text) = 0;

  // Draws the points collected so far.
  void EndRun() {
    if (count_ < 2) return;
    DrawRun({run_.data(), count_});
    run_[0] = run_[count_ - 1];
    count_ = 1;
  }

  Pen pen() const { return pen_; }

 private:
  static constexpr size_t kRunPoints = 1024;

  Pen pen_ = penDefault;
  std::array<Pixel, kRunPoints> run_{};  // the first is the position before the run's first line
  size_t count_ = 1;
};

}  // namespace tvx
