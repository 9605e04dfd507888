#include "view/picture.h"

#include <gtest/gtest.h>
#include <png.h>

#include "allocation_count.h"
#include "support/memory_files.h"
#include "test_scene.h"
#include "view/metafile_device.h"
#include "view/raster_device.h"
#include "view/svg_device.h"

namespace tvx {
namespace {

// What the files hold is compared with the drawing through the command line; here is the rest.

class PictureTest : public testing::Test {
 protected:
  PictureTest() {
    scene.view.transform = ViewTransform();
    OnResize(&scene.view.transform, 800, 600);
    PrepareDevice(&scene.view.transform);
  }

  TestScene scene;
  MemoryFiles files;
};

TEST_F(PictureTest, APictureReplacesTheOlderOneAndChangesLittleInTheView) {
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockCut, 10, 0, 100);
  scene.program.FeedBase = 100;
  files.Put("c:\\part.nc.emf", "older");
  scene.view.screen.lastPenFeed = 77;
  EXPECT_EQ(WritePicture("c:\\part.nc.emf", scene.scene(), &files), 1);
  EXPECT_EQ(files.Bytes("c:\\part.nc.emf").substr(40, 4), " EMF");
  EXPECT_EQ(scene.program.firstPoint, 0);
  EXPECT_EQ(scene.view.screen.lastPenFeed, 77);
  EXPECT_EQ(scene.view.picture.lastPenFeed, 100);
  EXPECT_EQ(scene.ui.repaints, 1);  // of the scene's own set-up
}

TEST_F(PictureTest, AFileThatCannotBeWrittenIsNotReported) {
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockCut, 10, 0, 100);
  for (const PictureFormat format :
       {PictureFormat::kMetafile, PictureFormat::kSvg, PictureFormat::kPng}) {
    files.Put("c:\\picture", "older");
    scene.view.picture.lastPenFeed = 0;
    EXPECT_FALSE(WritePictureFile(format, "c:\\nowhere\\picture", scene.scene(), &files));
    EXPECT_EQ(scene.view.picture.lastPenFeed, 100) << "the drawing is made all the same";
    files.RefuseWrite(1);
    EXPECT_FALSE(WritePictureFile(format, "c:\\picture", scene.scene(), &files));
    files.RefuseCommit(1);
    EXPECT_FALSE(WritePictureFile(format, "c:\\picture", scene.scene(), &files));
    EXPECT_EQ(files.Bytes("c:\\picture"), "older");
  }
  files.RefuseWrite(2);  // completing the header
  EXPECT_EQ(WritePicture("c:\\picture", scene.scene(), &files), 1);
  EXPECT_EQ(files.Bytes("c:\\picture"), "older");
  EXPECT_EQ(WritePicture("c:\\nowhere\\picture", scene.scene(), &files), 1);
}

TEST_F(PictureTest, ThePngIsTheDrawingOnAWhitePageWithLetters) {
  scene.program.FeedBase = 1000;
  SetViewMode(&scene.view.transform, 1, &scene.ui);
  scene.Add(BlockRapidStart, -10, -5);
  scene.Add(BlockCut, 10, -5, 400);
  ASSERT_TRUE(WritePictureFile(PictureFormat::kPng, "c:\\a.png", scene.scene(), &files));
  const std::string bytes = files.Bytes("c:\\a.png");
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  ASSERT_TRUE(png_image_begin_read_from_memory(&png, bytes.data(), bytes.size()));
  png.format = PNG_FORMAT_RGB;
  ASSERT_EQ(png.width, 800U);
  ASSERT_EQ(png.height, 600U);
  std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(png));
  ASSERT_TRUE(png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr));
  const auto at = [&](int x, int y) {  // from the centre of the page
    const auto p = &pixels[(static_cast<size_t>(y + 300) * 800 + static_cast<size_t>(x + 400)) * 3];
    return p[0] << 16 | p[1] << 8 | p[2];
  };
  EXPECT_EQ(at(-400, -300), 0xFFFFFF);
  EXPECT_EQ(at(399, 299), 0xFFFFFF);
  EXPECT_EQ(at(25, 0), 0x000000);   // axis X
  EXPECT_EQ(at(0, 150), 0x0000C8);  // the cut
  EXPECT_EQ(at(-300, 150), 0x0000C8);
  EXPECT_EQ(at(301, 150), 0xFFFFFF);
  EXPECT_EQ(at(70, 3), 0x000000);  // the letter X, cell at (69, 0)
  EXPECT_EQ(at(73, 8), 0x000000);
  EXPECT_EQ(at(76, 13), 0x000000);
  EXPECT_EQ(at(73, 3), 0xFFFFFF);
}

TEST_F(PictureTest, APngNeedsAnArea) {
  scene.view.transform.clientWidth = 0;
  EXPECT_FALSE(WritePictureFile(PictureFormat::kPng, "c:\\a.png", scene.scene(), &files));
  scene.view.transform.clientWidth = scene.view.transform.clientHeight = INT32_MAX;
  EXPECT_FALSE(WritePictureFile(PictureFormat::kPng, "c:\\a.png", scene.scene(), &files));
}

// Swallows a file.
class Sink final : public OutputFile {
 public:
  bool Write(std::string_view) override { return true; }
  bool Patch(uint64_t, std::string_view) override { return true; }
  bool Commit() override { return true; }
};

TEST_F(PictureTest, ADrawingAllocatesNothingPerMove) {
  std::vector<uint32_t> pixels(size_t{800} * 600);
  const auto allocations = [&] {
    const size_t before = AllocationCount();
    Sink sink;
    RasterDevice raster({pixels.data(), 800, 600, 800}, {-400, -300});
    Paint(scene.scene(), &raster);
    MetafileDevice metafile(&sink);
    DrawPicture(scene.scene(), &metafile);
    metafile.Finish();
    SvgDevice svg(&sink, 800, 600, {-400, -300});
    DrawPicture(scene.scene(), &svg);
    svg.Finish();
    return AllocationCount() - before;
  };
  // Rows of a rapid, a cut with ramps, and an arc.
  const auto addRows = [&](int count) {
    for (int row = 0; row < count; ++row) {
      const float y = static_cast<float>(row % 100) * 0.2F;
      scene.Add(BlockRapidStart, 0, y);
      scene.Add({.x = 8, .y = y, .feed = row % 1000, .headPercent = 50, .type = BlockCut});
      scene.AddArc(BlockArcCcw, 7, y, -1, 0);
    }
  };
  scene.job.AfaEnabled = scene.job.FeedChgSmoothCheck = 1;
  scene.program.FeedBase = 1000;
  addRows(100);
  const size_t small = allocations();
  addRows(20000);
  EXPECT_LE(allocations(), small + 8);
}

}  // namespace
}  // namespace tvx
