// The pixels of lines and rectangles, clipping, and coordinates far outside the image.
#include "view/raster_device.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "view/path_drawing.h"

namespace tvx {
namespace {

// An image inside a frame of guard pixels, which no call may change.
struct Canvas {
  static constexpr uint32_t kGuard = 0x12345678;

  Canvas(int32_t imageWidth, int32_t imageHeight)
      : width(imageWidth),
        height(imageHeight),
        pixels(static_cast<size_t>((width + 2) * (height + 2)), kGuard) {
    for (int32_t y = 0; y < height; ++y) std::fill_n(&at(0, y), width, 0);
  }
  uint32_t& at(int32_t x, int32_t y) {
    return pixels[static_cast<size_t>((y + 1) * (width + 2) + x + 1)];
  }
  Image image() { return {&at(0, 0), width, height, width + 2}; }
  bool GuardsAreWhole() const {
    return std::ranges::count(pixels, kGuard) == 2 * (width + height + 2);
  }
  // The rows, each after a bar: "." for an empty pixel, "#" for any colour.
  std::string Text() {
    std::string text;
    for (int32_t i = 0; i < width * height; ++i) {
      if (i % width == 0) text += '|';
      text += at(i % width, i / width) == 0 ? '.' : '#';
    }
    return text;
  }

  int32_t width, height;
  std::vector<uint32_t> pixels;
};

void DrawLines(RasterDevice* device, Pen pen, const std::vector<Pixel>& points) {
  device->SelectPen(pen);
  device->MoveTo(points[0]);
  for (size_t i = 1; i < points.size(); ++i) device->LineTo(points[i]);
}

TEST(RasterDevice, LineIncludesBothEnds) {
  const std::tuple<Pixel, Pixel, const char*> cases[] = {
      {{1, 1}, {1, 1}, "|.....|.#...|....."}, {{0, 0}, {4, 2}, "|#....|.##..|...##"},
      {{4, 1}, {0, 1}, "|.....|#####|....."}, {{2, 2}, {2, 0}, "|..#..|..#..|..#.."},
      {{0, 2}, {2, 0}, "|..#..|.#...|#...."}, {{3, 2}, {2, 0}, "|..#..|..#..|...#."},
      {{2, 0}, {3, 2}, "|..#..|...#.|...#."}, {{3, 1}, {1, 2}, "|.....|...#.|.##.."},
  };
  for (const auto& [from, to, text] : cases) {
    Canvas canvas(5, 3);
    RasterDevice device(canvas.image(), {0, 0});
    DrawLines(&device, penDefault, {from, to});
    EXPECT_EQ(canvas.Text(), text);
  }
}

TEST(RasterDevice, OriginIsTheCoordinateOfTheFirstPixel) {
  Canvas canvas(4, 3);
  RasterDevice device(canvas.image(), {-2, -1});
  EXPECT_EQ(device.SelectPen(penRapid), penDefault);
  device.LineTo({0, 0});  // the position of a fresh device is the logical origin
  EXPECT_EQ(canvas.at(2, 1), 0xFFFF0000U);
  device.FillRectangle(-1, -100, 0, 1, 0x0000C8);
  EXPECT_EQ(canvas.Text(), "|.#..|.##.|....");
  EXPECT_EQ(canvas.at(1, 0), 0xFF0000C8U);
  device.Text({7, 8}, "X");
  EXPECT_EQ(device.texts().at(0).point, (Pixel{7, 8}));
}

TEST(RasterDevice, DashesContinueUntilAMoveOrANewPen) {
  Canvas canvas(80, 1);
  RasterDevice device(canvas.image(), {0, 0});
  DrawLines(&device, penRapid, {{0, 0}, {5, 0}, {15, 0}, {40, 0}});
  device.SelectPen(penRapid);
  device.LineTo({60, 0});
  device.MoveTo({70, 0});
  device.LineTo({79, 0});
  EXPECT_EQ(canvas.Text(), "|" + std::string(18, '#') + "......" + std::string(34, '#') +
                               "............" + std::string(10, '#'));
}

// A line that leaves the image has the same pixels as on an image that contains all of it.
TEST(RasterDevice, ClippingMovesNoPixel) {
  constexpr int32_t kSize = 200, kWidth = 37, kHeight = 23;
  const Pixel window = {70, 90};
  std::mt19937 random(7);
  std::uniform_int_distribution<int32_t> coordinate(0, kSize - 1);
  for (int round = 0; round < 3000; ++round) {
    Canvas whole(kSize, kSize), part(kWidth, kHeight);
    RasterDevice wholeDevice(whole.image(), {0, 0}), partDevice(part.image(), window);
    std::vector<Pixel> points(3);
    for (Pixel& point : points) point = {coordinate(random), coordinate(random)};
    const Pen pen = round % 2 == 0 ? penWhite : penRapid;
    DrawLines(&wholeDevice, pen, points);
    DrawLines(&partDevice, pen, points);
    ASSERT_TRUE(part.GuardsAreWhole());
    for (int32_t y = 0; y < kHeight; ++y) {
      ASSERT_TRUE(
          std::equal(&part.at(0, y), &part.at(kWidth, y), &whole.at(window.x, window.y + y)))
          << "round " << round << " row " << y;
    }
  }
}

TEST(RasterDevice, HugeCoordinatesStayInsideTheImage) {
  constexpr int32_t kExtremes[] = {INT32_MIN, -30000, -1, 0, 3, 30000, INT32_MAX};
  Canvas canvas(5, 4);
  RasterDevice device(canvas.image(), {-2, -2});
  RasterDevice nothing({}, {0, 0});
  for (int i = 0; i < 7 * 7 * 7 * 7; ++i) {
    const Pixel from = {kExtremes[i % 7], kExtremes[i / 7 % 7]};
    const Pixel to = {kExtremes[i / 49 % 7], kExtremes[i / 343]};
    DrawLines(&device, penWhite, {from, to});
    DrawLines(&nothing, penWhite, {from, to});
    device.FillRectangle(from.x, from.y, to.x, to.y, 0);
    nothing.FillRectangle(from.x, from.y, to.x, to.y, 0);
  }
  EXPECT_TRUE(canvas.GuardsAreWhole());
}

// Relative luminance by WCAG 2 of a colour as a row of the matrix sees it.
double Luminance(Colour colour, const double (&matrix)[3][3]) {
  double channels[3];
  for (int i = 0; i < 3; ++i) {
    const double value = ((colour >> (16 - 8 * i)) & 0xFF) / 255.0;
    channels[i] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  }
  const double weights[3] = {0.2126, 0.7152, 0.0722};
  double luminance = 0;
  for (int row = 0; row < 3; ++row) {
    double seen = 0;
    for (int i = 0; i < 3; ++i) seen += matrix[row][i] * channels[i];
    luminance += weights[row] * std::clamp(seen, 0.0, 1.0);
  }
  return luminance;
}

TEST(PenStyles, HighContrastKeepsItsContrastForEveryEye) {
  // Machado, Oliveira and Fernandes 2009, at full severity; applied to linear channels.
  struct Eye {
    const char* name;
    double matrix[3][3];
  };
  constexpr Eye kEyes[] = {
      {"usual", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
      {"protanopia",
       {{0.152286, 1.052583, -0.204868},
        {0.114503, 0.786281, 0.099216},
        {-0.003882, -0.048116, 1.051998}}},
      {"deuteranopia",
       {{0.367322, 0.860646, -0.227968},
        {0.280085, 0.672501, 0.047413},
        {-0.011820, 0.042940, 0.968881}}},
      {"tritanopia",
       {{1.255528, -0.076749, -0.178779},
        {-0.078411, 0.930809, 0.147602},
        {0.004733, 0.691367, 0.303900}}},
  };
  for (const Eye& eye : kEyes) {
    const auto contrast = [&eye](Colour a, Colour b) {
      const double x = Luminance(a, eye.matrix) + 0.05;
      const double y = Luminance(b, eye.matrix) + 0.05;
      return std::max(x, y) / std::min(x, y);
    };
    Colour previous = 0;
    for (const Pen pen : kScreenPalette.band) {
      const Colour colour = kHighContrastPenStyles[pen].colour;
      EXPECT_GE(contrast(colour, 0), 4.5) << eye.name << " " << kPenStyles[pen].name;
      EXPECT_GE(contrast(colour, previous), 1.5) << eye.name << " " << kPenStyles[pen].name;
      previous = colour;
    }
    EXPECT_GE(contrast(kHighContrastPenStyles[penRapid].colour, 0), 4.5) << eye.name;
  }
}

}  // namespace
}  // namespace tvx
