#include "view/picture.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdlib>

#include "allocation_count.h"
#include "support/memory_files.h"
#include "support/temp_dir.h"
#include "test_scene.h"
#include "view/metafile_device.h"
#include "view/raster_device.h"
#include "view/svg_device.h"

namespace tvx {
namespace {

// A program with every kind of move: rapids, all feed bands, portions, ramps and arcs.
void AddVariedProgram(TestScene* scene, int rows) {
  scene->job.AfaEnabled = 1;
  scene->job.FeedChgSmoothCheck = 1;
  scene->program.FeedBase = 1000;
  scene->Add({.z = 50, .type = BlockRapidStart});
  for (int row = 0; row < rows; ++row) {
    const float y = static_cast<float>(row % 100) * 2.0F;
    scene->Add({.x = 0, .y = y, .z = 50, .type = BlockRapidStart});
    scene->Add({.x = 0, .y = y, .z = 0, .type = BlockRapid});
    for (int step = 1; step <= 12; ++step) {
      MotionBlock block;
      block.x = static_cast<float>(step) * 8.0F;
      block.y = y;
      block.z = step % 2 == 0 ? 0.0F : 3.5F;
      block.feed = (step * 83 + row) % 1000;
      block.headPercent = static_cast<int16_t>(step % 3 * 10);
      block.headFeed = static_cast<int16_t>(100 * (step % 5));
      block.tailPercent = static_cast<int16_t>(step % 4 * 5);
      block.tailFeed = 900;
      block.type = step == 1 ? BlockCutStart : BlockCut;
      scene->Add(block);
    }
    scene->AddArc(row % 2 == 0 ? BlockArcCcw : BlockArcCw, 90, y, -3, 0);
  }
}

class PictureTest : public testing::Test {
 protected:
  PictureTest() {
    scene.view.transform = ViewTransform();
    OnResize(&scene.view.transform, 800, 600);
    PrepareDevice(&scene.view.transform);
  }

  void Fit() { FitToPath(&scene.view.transform, &scene.program.store, &scene.ui); }

  // Has the separate reader compare the metafile with the calls of the same drawing.
  void ExpectMetafileHoldsTheCalls(const char* what) {
    ASSERT_EQ(WritePicture("c:\\part.nc.emf", scene.scene(), &files), 1);
    scene.view.picture.lastPenFeed = 0;
    std::string calls;
    RecorderDevice recorder([&](std::string_view line) { (calls += line) += '\n'; });
    DrawPicture(scene.scene(), &recorder);
    const TempDir directory;
    const auto picture = directory.Put("part.emf", files.Bytes("c:\\part.nc.emf"));
    const auto expected = directory.Put("part.calls", calls);
    const std::string command = std::string(TVX_PYTHON) + " " + TVX_METAFILE_READER + " " +
                                picture.string() + " " + expected.string();
    EXPECT_EQ(std::system(command.c_str()), 0) << what;
  }

  TestScene scene;
  MemoryFiles files;
};

TEST_F(PictureTest, TheMetafileHoldsTheCallsOfTheDrawing) {
  ExpectMetafileHoldsTheCalls("axes only");

  AddVariedProgram(&scene, 150);
  Fit();
  scene.view.picture.lastPenFeed = 0;
  ExpectMetafileHoldsTheCalls("whole program");

  scene.view.RapidVisible = 0;
  SetViewMode(&scene.view.transform, 2, &scene.ui);
  scene.view.picture.lastPenFeed = 0;
  ExpectMetafileHoldsTheCalls("hidden rapids");

  // Arms of the axes beyond 16 bits, moves beyond the limit.
  scene.view.transform.viewScale = 500.0F;
  scene.view.transform.panX = 80;
  scene.view.picture.lastPenFeed = 0;
  ExpectMetafileHoldsTheCalls("at high magnification");
}

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

TEST(Picture, FormatsByTheEnding) {
  EXPECT_EQ(PictureFormatOf("c:\\a.nc.emf"), PictureFormat::kMetafile);
  EXPECT_EQ(PictureFormatOf("a.SVG"), PictureFormat::kSvg);
  EXPECT_EQ(PictureFormatOf(".png"), PictureFormat::kPng);
  EXPECT_EQ(PictureFormatOf("a.emf.nc"), std::nullopt);
  EXPECT_EQ(PictureFormatOf("png"), std::nullopt);
}

TEST_F(PictureTest, TheSvgHasAWhitePageAndARunForEachPen) {
  scene.program.FeedBase = 1000;
  SetViewMode(&scene.view.transform, 1, &scene.ui);
  scene.view.transform.viewScale = 10.0F;
  scene.Add(BlockRapidStart, 0, 0);
  scene.Add(BlockRapid, 1, 0);
  scene.Add(BlockCut, 2, 1, 100);
  scene.Add(BlockCut, 3, 1, 100);
  ASSERT_TRUE(WritePictureFile(PictureFormat::kSvg, "c:\\a.svg", scene.scene(), &files));
  EXPECT_EQ(files.Bytes("c:\\a.svg"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"800\" height=\"600\" "
            "viewBox=\"-400.5 -300.5 800 600\">\n"
            "<rect x=\"-400.5\" y=\"-300.5\" width=\"800\" height=\"600\" fill=\"#FFFFFF\"/>\n"
            "<g fill=\"none\" stroke-width=\"1\" font-family=\"sans-serif\" font-size=\"16\">\n"
            "<polyline stroke=\"#000000\" points=\"0,0 50,0 \"/>\n"
            "<text x=\"70\" y=\"13\" fill=\"#000000\">X</text>\n"
            "<polyline stroke=\"#000000\" points=\"0,0 0,-50 \"/>\n"
            "<text x=\"0\" y=\"-57\" fill=\"#000000\">Y</text>\n"
            "<polyline stroke=\"#000000\" points=\"0,0 0,0 \"/>\n"
            "<text x=\"0\" y=\"13\" fill=\"#000000\">Z</text>\n"
            "<polyline stroke=\"#FF0000\" stroke-dasharray=\"18 6\" points=\"0,0 10,0 \"/>\n"
            "<polyline stroke=\"#FF0000\" points=\"10,0 20,-10 30,-10 \"/>\n"
            "</g>\n</svg>\n");
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
  int inked = 0;  // the letter X
  for (int y = 0; y < 16; ++y) {
    for (int x = 70; x < 79; ++x) inked += at(x, y) == 0 ? 1 : 0;
  }
  EXPECT_GT(inked, 15);
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
  const auto allocationsOf = [&](auto draw) {
    const size_t before = AllocationCount();
    draw();
    return AllocationCount() - before;
  };
  std::vector<uint32_t> pixels(size_t{800} * 600);
  const auto drawAll = [&] {
    Sink sink;
    RasterDevice raster({pixels.data(), 800, 600, 800}, {-400, -300});
    Paint(scene.scene(), &raster);
    MetafileDevice metafile(&sink);
    DrawPicture(scene.scene(), &metafile);
    metafile.Finish();
    SvgDevice svg(&sink, 800, 600, {-400, -300});
    DrawPicture(scene.scene(), &svg);
    svg.Finish();
  };
  AddVariedProgram(&scene, 10);
  Fit();
  const size_t small = allocationsOf(drawAll);
  AddVariedProgram(&scene, 2000);
  EXPECT_LE(allocationsOf(drawAll), small + 8);
}

}  // namespace
}  // namespace tvx
