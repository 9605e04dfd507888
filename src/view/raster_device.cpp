#include "view/raster_device.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tvx {
namespace {

constexpr uint32_t kOpaque = 0xFF000000;

// Lines of a drawing end within 30000 pixels, or are arms of the axes, some 50 pixels long. Held at
// this limit no arm changes where it can be seen, and the products below stay within 64 bits.
constexpr int64_t kCoordinateLimit = 1 << 24;

// Quotients rounded down and up; the divisor is positive.
int64_t FloorDivide(int64_t a, int64_t b) {
  return a >= 0 ? a / b : -((-a + b - 1) / b);
}
int64_t CeilDivide(int64_t a, int64_t b) {
  return -FloorDivide(-a, b);
}

}  // namespace

RasterDevice::Course RasterDevice::CourseOf(int64_t from, int64_t to) {
  return {from, std::abs(to - from), to < from ? -1 : 1};
}

std::pair<int64_t, int64_t> RasterDevice::Course::Inside(int64_t size) const {
  return direction > 0 ? std::pair{-start, size - 1 - start} : std::pair{start - (size - 1), start};
}

void RasterDevice::FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                                 Colour colour) {
  const auto clamp = [](int64_t value, int32_t size) {
    return static_cast<ptrdiff_t>(std::clamp<int64_t>(value, 0, size));
  };
  const ptrdiff_t x1 = clamp(int64_t{left} - origin_.x, image_.width);
  const ptrdiff_t x2 = clamp(int64_t{right} - origin_.x, image_.width);
  const ptrdiff_t y1 = clamp(int64_t{top} - origin_.y, image_.height);
  const ptrdiff_t y2 = clamp(int64_t{bottom} - origin_.y, image_.height);
  for (ptrdiff_t y = y1; y < y2; ++y) {
    uint32_t* row = image_.pixels + y * image_.stride;
    if (x1 < x2) std::fill(row + x1, row + x2, kOpaque | colour);
  }
}

Pen RasterDevice::SelectPen(Pen pen) {
  const PenStyle& style = StyleOf(pen);
  colour_ = kOpaque | style.colour;
  dashed_ = style.dashed;
  dashPhase_ = 0;
  return std::exchange(pen_, pen);
}

Pixel RasterDevice::ToImage(Pixel point) const {
  const auto hold = [](int64_t value) {
    return static_cast<int32_t>(std::clamp(value, -kCoordinateLimit, kCoordinateLimit));
  };
  return {hold(int64_t{point.x} - origin_.x), hold(int64_t{point.y} - origin_.y)};
}

void RasterDevice::MoveTo(Pixel point) {
  position_ = ToImage(point);
  dashPhase_ = 0;
}

void RasterDevice::LineTo(Pixel point) {
  const Pixel to = ToImage(point);
  if (dashed_) {
    DrawLine<true>(position_, to);
  } else {
    DrawLine<false>(position_, to);
  }
  position_ = to;
}

void RasterDevice::Text(Pixel point, std::string_view text) {
  texts_.push_back({point, std::string(text)});
}

// Pixel i of a line of n steps lies i pixels along its longer coordinate and round(i * m / n) along
// the shorter one of length m. A line that leaves the image is drawn from the first such i to the
// last that lie in it, so clipping never moves a pixel.
RasterDevice::Span RasterDevice::SpanInside(const Course& major, const Course& minor,
                                            bool steep) const {
  const auto [majorLow, majorHigh] = major.Inside(steep ? image_.height : image_.width);
  const auto [minorLow, minorHigh] = minor.Inside(steep ? image_.width : image_.height);
  if (minorLow > minor.length || minorHigh < 0) return {};
  const int64_t n = major.length;
  Span span{std::max<int64_t>(0, majorLow), std::min(n, majorHigh), 0};
  if (minor.length > 0) {
    const int64_t twice = 2 * minor.length;
    if (minorLow > 0) span.first = std::max(span.first, CeilDivide((2 * minorLow - 1) * n, twice));
    if (minorHigh < minor.length) {
      span.last = std::min(span.last, CeilDivide((2 * minorHigh + 1) * n, twice) - 1);
    }
    span.minorSteps = (2 * span.first * minor.length + n) / (2 * n);
  }
  return span;
}

template <bool dashed>
void RasterDevice::DrawLine(Pixel from, Pixel to) {
  const Course x = CourseOf(from.x, to.x);
  const Course y = CourseOf(from.y, to.y);
  const bool steep = y.length > x.length;
  const Course& major = steep ? y : x;
  const Course& minor = steep ? x : y;
  const int64_t n = major.length;
  const Span span =
      IsInside(from) && IsInside(to) ? Span{0, n, 0} : SpanInside(major, minor, steep);

  const int64_t yStep = y.direction * image_.stride;
  const int64_t majorStep = steep ? yStep : x.direction;
  const int64_t minorStep = steep ? x.direction : yStep;
  int64_t pixel = from.y * int64_t{image_.stride} + from.x + span.first * majorStep +
                  span.minorSteps * minorStep;
  // Negative until the next step along the shorter coordinate is due. The step is taken without a
  // branch: on short lines of all directions it could not be predicted.
  int64_t error = 2 * span.first * minor.length - n - 2 * n * span.minorSteps;
  for (int64_t i = span.first; i <= span.last; ++i) {
    if (!dashed || (dashPhase_ + i) % (kDashPixels + kGapPixels) < kDashPixels) {
      image_.pixels[pixel] = colour_;
    }
    error += 2 * minor.length;
    const int64_t due = ~(error >> 63);
    pixel += majorStep + (minorStep & due);
    error -= 2 * n & due;
  }
  dashPhase_ += n;
}

}  // namespace tvx
