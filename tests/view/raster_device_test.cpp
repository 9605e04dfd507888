#include "view/raster_device.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tvx {
namespace {

// An image with a frame of guard pixels around it, which nothing may touch.
class Canvas {
 public:
  static constexpr uint32_t kGuard = 0x12345678;

  Canvas(int32_t width, int32_t height)
      : width_(width),
        height_(height),
        stride_(width + 2),
        pixels_(static_cast<size_t>(stride_) * static_cast<size_t>(height + 2), kGuard) {
    for (int32_t y = 0; y < height; ++y) {
      for (int32_t x = 0; x < width; ++x) at(x, y) = 0;
    }
  }

  Image image() { return {&at(0, 0), width_, height_, stride_}; }
  uint32_t& at(int32_t x, int32_t y) {
    return pixels_[static_cast<size_t>(y + 1) * static_cast<size_t>(stride_) +
                   static_cast<size_t>(x + 1)];
  }
  bool GuardsAreWhole() const {
    return std::count(pixels_.begin(), pixels_.end(), kGuard) == 2 * (width_ + height_ + 2);
  }
  // The rows, each behind a bar. One letter a pixel: "." for none, "#" for any colour.
  std::string Text() {
    std::string text;
    for (int32_t y = 0; y < height_; ++y) {
      text += '|';
      for (int32_t x = 0; x < width_; ++x) text += at(x, y) == 0 ? '.' : '#';
    }
    return text;
  }

 private:
  int32_t width_, height_, stride_;
  std::vector<uint32_t> pixels_;
};

TEST(RasterDevice, DrawsLinesWithBothEnds) {
  const struct {
    Pixel from, to;
    const char* text;
  } cases[] = {
      {{1, 1}, {1, 1}, "|.....|.#...|....."}, {{0, 0}, {4, 2}, "|#....|.##..|...##"},
      {{4, 1}, {0, 1}, "|.....|#####|....."}, {{2, 2}, {2, 0}, "|..#..|..#..|..#.."},
      {{0, 2}, {2, 0}, "|..#..|.#...|#...."}, {{3, 2}, {2, 0}, "|..#..|..#..|...#."},
  };
  for (const auto& c : cases) {
    Canvas canvas(5, 3);
    RasterDevice device(canvas.image(), {0, 0});
    device.MoveTo(c.from);
    device.LineTo(c.to);
    EXPECT_EQ(canvas.Text(), c.text);
  }
}

TEST(RasterDevice, TheOriginIsTheCoordinateOfTheFirstPixel) {
  Canvas canvas(4, 3);
  RasterDevice device(canvas.image(), {-2, -1});
  EXPECT_EQ(device.SelectPen(penGreen), penDefault);
  EXPECT_EQ(device.SelectPen(penRapid), penGreen);
  device.LineTo({0, 0});  // a fresh device stands on the logical origin
  EXPECT_EQ(canvas.at(2, 1), 0xFFFF0000U);
  device.FillRectangle(-100, -100, 0, 1, 0x0000C8);
  EXPECT_EQ(canvas.Text(), "|##..|###.|....");
  EXPECT_EQ(canvas.at(0, 0), 0xFF0000C8U);
  device.Text({7, 8}, "X");
  ASSERT_EQ(device.texts().size(), 1U);
  EXPECT_EQ(device.texts()[0].point, (Pixel{7, 8}));
}

TEST(RasterDevice, DashesGoOnFromLineToLineUntilAMoveOrANewPen) {
  Canvas canvas(80, 1);
  RasterDevice device(canvas.image(), {0, 0});
  device.SelectPen(penRapid);
  device.MoveTo({0, 0});
  for (int32_t x = 5; x <= 40; x += 5) device.LineTo({x, 0});
  device.SelectPen(penRapid);
  device.LineTo({64, 0});
  device.MoveTo({70, 0});
  device.LineTo({79, 0});
  EXPECT_EQ(canvas.Text(), "|" + std::string(18, '#') + "......" + std::string(16 + 18, '#') +
                               "......#....." + std::string(10, '#'));
}

// A line that leaves the image covers the same pixels as on an image that holds all of it.
TEST(RasterDevice, ClippingNeverMovesAPixel) {
  constexpr int32_t kSize = 200, kWidth = 37, kHeight = 23;
  const Pixel window = {70, 90};
  std::mt19937 random(7);
  std::uniform_int_distribution<int32_t> coordinate(0, kSize - 1);
  for (int round = 0; round < 3000; ++round) {
    Canvas whole(kSize, kSize);
    Canvas part(kWidth, kHeight);
    RasterDevice wholeDevice(whole.image(), {0, 0});
    RasterDevice partDevice(part.image(), window);
    const Pen pen = round % 2 == 0 ? penWhite : penRapid;
    const Pixel points[] = {{coordinate(random), coordinate(random)},
                            {coordinate(random), coordinate(random)},
                            {coordinate(random), coordinate(random)}};
    for (RasterDevice* device : {&wholeDevice, &partDevice}) {
      device->SelectPen(pen);
      device->MoveTo(points[0]);
      device->LineTo(points[1]);
      device->LineTo(points[2]);
    }
    ASSERT_TRUE(part.GuardsAreWhole());
    for (int32_t y = 0; y < kHeight; ++y) {
      for (int32_t x = 0; x < kWidth; ++x) {
        ASSERT_EQ(part.at(x, y), whole.at(window.x + x, window.y + y))
            << points[0].x << "," << points[0].y << " to " << points[1].x << "," << points[1].y
            << " to " << points[2].x << "," << points[2].y << " at " << x << "," << y;
      }
    }
  }
}

TEST(RasterDevice, NoCoordinateIsTooLarge) {
  const int32_t extremes[] = {INT32_MIN, -30000, -1, 0, 3, 30000, INT32_MAX};
  Canvas canvas(5, 4);
  RasterDevice device(canvas.image(), {-2, -2});
  for (const int32_t x1 : extremes) {
    for (const int32_t y1 : extremes) {
      for (const int32_t x2 : extremes) {
        for (const int32_t y2 : extremes) {
          device.MoveTo({x1, y1});
          device.LineTo({x2, y2});
        }
      }
      device.FillRectangle(x1, y1, INT32_MAX, INT32_MAX, 0);
    }
  }
  EXPECT_TRUE(canvas.GuardsAreWhole());

  Image empty;
  RasterDevice nothing(empty, {0, 0});
  nothing.LineTo({5, 5});
  nothing.FillRectangle(-9, -9, 9, 9, 0);
}

}  // namespace
}  // namespace tvx
