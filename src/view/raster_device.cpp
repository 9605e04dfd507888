// Lines by fixed-point steps, clipped without moving a pixel.
#include "view/raster_device.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tvx {
namespace {

constexpr uint32_t kOpaque = 0xFF000000;

// Fraction bits of a pixel coordinate. With 40 the rounded quotients of lengths below 700000 are
// exact.
constexpr int kFractionBits = 40;

// Lines of a drawing end within 30000 pixels, except the arms of the axes, which are some 50 pixels
// long. Clamping to this limit changes no visible pixel of an arm.
constexpr int64_t kCoordinateLimit = 1 << 18;
int64_t Clamp(int64_t coordinate) {
  return std::clamp(coordinate, -kCoordinateLimit, kCoordinateLimit);
}

// Quotient rounded up; a >= 0, b > 0.
int64_t CeilDivide(int64_t a, int64_t b) {
  return (a + b - 1) / b;
}

}  // namespace

RasterDevice::Range RasterDevice::Inside(int64_t start, int64_t difference, int64_t size) {
  return difference < 0 ? Range{start - (size - 1), start} : Range{-start, size - 1 - start};
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
  if (x1 >= x2 || y1 >= y2) return;
  // Copying the first row to the others is several times faster than filling each row.
  uint32_t* const first = image_.pixels + y1 * image_.stride + x1;
  std::fill(first, first + (x2 - x1), kOpaque | colour);
  for (ptrdiff_t y = y1 + 1; y < y2; ++y) {
    std::copy(first, first + (x2 - x1), first + (y - y1) * image_.stride);
  }
}

Pen RasterDevice::SelectPen(Pen pen) {
  const PenStyle& style = styles_[pen];
  colour_ = kOpaque | style.colour;
  dashed_ = style.dashed;
  dashPhase_ = 0;
  startIsDrawn_ = false;
  return std::exchange(pen_, pen);
}

void RasterDevice::MoveTo(Pixel point) {
  position_ = point;
  dashPhase_ = 0;
  startIsDrawn_ = false;
}

void RasterDevice::LineTo(Pixel point) {
  const Spot from = ToImage(position_);
  const Spot to = ToImage(point);
  position_ = point;
  if (dashed_) {
    DrawLine<true>(from, to);
    return;
  }
  const int64_t dx = to.x - from.x;
  const int64_t dy = to.y - from.y;
  const auto isShort = [](int64_t d) { return static_cast<uint64_t>(d + 2) <= 4; };
  if (isShort(dx) && isShort(dy) && IsInside(from) && IsInside(to)) {
    // Most moves of a whole program are that short. This draws the pixels that DrawLine would draw,
    // some of them twice, without branches on their number or on a change of the pen.
    const auto half = [](int64_t d) { return (d + (d > 0 ? 1 : 0)) >> 1; };
    uint32_t* const pixel = image_.pixels + from.y * image_.stride + from.x;
    const uint32_t colour = colour_;
    pixel[0] = colour;
    startIsDrawn_ = true;
    pixel[half(dy) * image_.stride + half(dx)] = colour;
    pixel[dy * image_.stride + dx] = colour;
    return;
  }
  DrawLine<false>(from, to);
}

void RasterDevice::Text(Pixel point, std::string_view text) {
  texts_.push_back({point, std::string(text)});
}

// Pixel i of a line of n steps is i pixels along its longer coordinate and round(i * m / n) along
// the shorter one of length m. The quotient is accumulated in fixed point. This is exact for
// clamped coordinates, and takes no branch that short lines in all directions would mispredict.
template <bool dashed>
void RasterDevice::DrawPixels(const Steps& steps, int64_t first, int64_t last) {
  uint32_t* const pixels = image_.pixels;
  const uint32_t colour = colour_;
  const int64_t n = std::max<int64_t>(steps.length, 1);
  const int64_t slope = ((steps.minorLength << kFractionBits) + n - 1) / n;
  int64_t minorSteps = (int64_t{1} << (kFractionBits - 1)) + first * slope;
  int64_t offset = steps.offset + first * steps.major;
  for (int64_t i = first; i <= last; ++i) {
    if (!dashed || (dashPhase_ + i) % (kDashPixels + kGapPixels) < kDashPixels) {
      pixels[offset + (minorSteps >> kFractionBits) * steps.minor] = colour;
    }
    offset += steps.major;
    minorSteps += slope;
  }
}

// Of a line that leaves the image, the pixels inside it are drawn: the range of i is clipped, not
// the end points, so clipping never moves a pixel.
template <bool dashed>
void RasterDevice::DrawClipped(const Steps& steps, Range majorInside, Range minorInside) {
  const int64_t n = steps.length;
  const int64_t m = steps.minorLength;
  if (minorInside.first > m || minorInside.last < 0) return;
  int64_t first = std::max<int64_t>(0, majorInside.first);
  int64_t last = std::min(n, majorInside.last);
  if (minorInside.first > 0) {
    first = std::max(first, CeilDivide((2 * minorInside.first - 1) * n, 2 * m));
  }
  if (minorInside.last < m) {
    last = std::min(last, CeilDivide((2 * minorInside.last + 1) * n, 2 * m) - 1);
  }
  DrawPixels<dashed>(steps, first, last);
}

template <bool dashed>
void RasterDevice::DrawLine(Spot from, Spot to) {
  const bool isInside = IsInside(from) && IsInside(to);
  if (!isInside) {
    from = {Clamp(from.x), Clamp(from.y)};
    to = {Clamp(to.x), Clamp(to.y)};
  }
  const int64_t dx = to.x - from.x;
  const int64_t dy = to.y - from.y;
  const int64_t xStep = dx < 0 ? -1 : 1;
  const int64_t yStep = dy < 0 ? -image_.stride : image_.stride;
  const int64_t offset = from.y * image_.stride + from.x;
  const bool steep = std::abs(dy) > std::abs(dx);
  const Steps steps = steep ? Steps{offset, yStep, xStep, std::abs(dy), std::abs(dx)}
                            : Steps{offset, xStep, yStep, std::abs(dx), std::abs(dy)};
  if (isInside) {
    DrawPixels<dashed>(steps, startIsDrawn_ ? 1 : 0, steps.length);
  } else {
    const Range xInside = Inside(from.x, dx, image_.width);
    const Range yInside = Inside(from.y, dy, image_.height);
    DrawClipped<dashed>(steps, steep ? yInside : xInside, steep ? xInside : yInside);
  }
  dashPhase_ += steps.length;
  startIsDrawn_ = true;
}

}  // namespace tvx
