// The content of the files is compared with the drawing through the command line. These are the
// pixels of the PNG, the state of the scene and files that cannot be written.
#include "view/picture.h"

#include <gtest/gtest.h>
#include <png.h>

#include "support/memory_files.h"
#include "test_scene.h"

namespace tvx {
namespace {

class PictureTest : public testing::Test {
 protected:
  PictureTest() {
    scene.view.transform.viewScale = 30.0F;
    OnResize(&scene.view.transform, 800, 600);
    PrepareDevice(&scene.view.transform);
    scene.program.FeedBase = 1000;
    scene.Add(BlockRapidStart, -10, -5);
    scene.Add(BlockCut, 10, -5, 400);
    scene.Add(BlockCut, 10, -4, 100);
  }
  bool Write(PictureFormat format, const std::string& path) {
    return WritePictureFile(format, path, scene.scene(), &files).ok();
  }

  TestScene scene;
  MemoryFiles files;
};

TEST_F(PictureTest, PictureReplacesTheFileAndKeepsTheStateOfTheScreen) {
  files.Put("c:\\part.nc.emf", "older");
  scene.view.screen.lastPenFeed = 77;
  EXPECT_EQ(WritePicture("c:\\part.nc.emf", scene.scene(), &files), 1);
  EXPECT_EQ(files.Bytes("c:\\part.nc.emf").substr(40, 4), " EMF");
  EXPECT_EQ(scene.view.screen.lastPenFeed, 77);
  EXPECT_EQ(scene.view.picture.lastPenFeed, 100);
}

TEST_F(PictureTest, FailedWriteKeepsTheOlderFile) {
  files.Put("c:\\picture", "older");
  for (const PictureFormat format :
       {PictureFormat::kMetafile, PictureFormat::kSvg, PictureFormat::kPng}) {
    scene.view.picture.lastPenFeed = 0;
    EXPECT_FALSE(Write(format, "c:\\nowhere\\picture"));
    EXPECT_EQ(scene.view.picture.lastPenFeed, 100) << "the scene is drawn in either case";
    files.RefuseWrite(1);
    EXPECT_FALSE(Write(format, "c:\\picture"));
    files.RefuseCommit(1);
    EXPECT_FALSE(Write(format, "c:\\picture"));
  }
  files.RefuseWrite(2);  // the completed header of the metafile
  EXPECT_FALSE(Write(PictureFormat::kMetafile, "c:\\picture"));
  EXPECT_EQ(files.Bytes("c:\\picture"), "older");
  EXPECT_EQ(WritePicture("c:\\nowhere\\picture", scene.scene(), &files), 1);
}

TEST_F(PictureTest, PngIsTheDrawingOnAWhitePageWithLetters) {
  ASSERT_TRUE(Write(PictureFormat::kPng, "c:\\a.png"));
  const std::string bytes = files.Bytes("c:\\a.png");
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  ASSERT_TRUE(png_image_begin_read_from_memory(&png, bytes.data(), bytes.size()));
  png.format = PNG_FORMAT_RGB;
  ASSERT_TRUE(png.width == 800 && png.height == 600);
  std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(png));
  ASSERT_TRUE(png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr));
  // Pixels from the centre: corners, X axis, first cut and past its end; the letters X, in a cell
  // at (69, 0), Y at (0, -69) and Z at (0, 0).
  const struct {
    int x, y, colour;
  } points[] = {
      {-400, -300, 0xFFFFFF}, {399, 299, 0xFFFFFF}, {25, 0, 0x000000}, {0, 150, 0x0000C8},
      {-300, 150, 0x0000C8},  {301, 150, 0xFFFFFF}, {70, 3, 0x000000}, {76, 13, 0x000000},
      {76, 3, 0x000000},      {70, 13, 0x000000},   {73, 3, 0xFFFFFF}, {1, -66, 0x000000},
      {7, -66, 0x000000},     {4, -56, 0x000000},   {1, 3, 0x000000},  {7, 3, 0x000000},
      {7, 13, 0x000000},      {300, 130, 0xFF0000},
  };
  for (const auto& point : points) {
    const size_t at = static_cast<size_t>((point.y + 300) * 800 + point.x + 400) * 3;
    EXPECT_EQ(pixels[at] << 16 | pixels[at + 1] << 8 | pixels[at + 2], point.colour)
        << point.x << "," << point.y;
  }
}

TEST_F(PictureTest, PngWithoutPixelsOrOfTooManyIsRefused) {
  ViewTransform& view = scene.view.transform;
  view.clientWidth = 0;
  EXPECT_FALSE(Write(PictureFormat::kPng, "c:\\a.png"));
  view.clientWidth = view.clientHeight = INT32_MAX;
  EXPECT_FALSE(Write(PictureFormat::kPng, "c:\\a.png"));
}

}  // namespace
}  // namespace tvx
