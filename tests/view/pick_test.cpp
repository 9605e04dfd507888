// Picking against a test of every drawn line.
#include "view/pick.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "feed/feed_pass.h"
#include "support/random_program.h"
#include "test_scene.h"
#include "view/view_transform.h"

namespace tvx {
namespace {

struct DrawnLine {
  uint32_t block;
  Pixel from, to;
};

// All lines of a drawing, with the block that each belongs to.
class LineList final : public DrawingDevice {
 public:
  explicit LineList(const Scene& scene) {
    PathDrawing drawing(scene, &scene.view->screen, kScreenPalette, this);
    drawing.DrawAxes();
    lines.clear();
    scene.view->screen.prevEnd = {};
    scene.program->firstPoint = 1;
    while (block_ < scene.program->store.blockCount) block_ = drawing.DrawBlock(block_);
  }

  std::optional<uint32_t> Nearest(Pixel pixel) const {
    std::optional<uint32_t> found;
    double nearest = PickIndex::kReach;
    for (const DrawnLine& line : lines) {
      const double distance = Distance(pixel, line);
      if (distance > nearest) continue;
      nearest = distance;
      found = line.block;
    }
    return found;
  }

  std::vector<DrawnLine> lines;

 private:
  void FillRectangle(int32_t, int32_t, int32_t, int32_t, Colour) override {}
  Pen SelectPen(Pen pen) override { return pen; }
  void MoveTo(Pixel point) override { position_ = point; }
  void LineTo(Pixel point) override {
    lines.push_back({block_, position_, point});
    position_ = point;
  }
  void Text(Pixel, std::string_view) override {}

  // The square root is rounded, but equal squares have equal roots; the squares are exact.
  static double Distance(Pixel p, const DrawnLine& line) {
    const double x = line.to.x - line.from.x, y = line.to.y - line.from.y;
    const double px = p.x - line.from.x, py = p.y - line.from.y;
    const double length = x * x + y * y;
    const double share = length > 0 ? std::clamp((px * x + py * y) / length, 0.0, 1.0) : 0;
    if (share <= 0) return std::sqrt(px * px + py * py);
    if (share >= 1) return std::sqrt((px - x) * (px - x) + (py - y) * (py - y));
    return std::sqrt((px * y - py * x) * (px * y - py * x) / length);
  }

  uint32_t block_ = 0;
  Pixel position_;
};

constexpr int32_t kFar = 1'000'000;  // pixels

void ChooseView(int mode, Random* random, TestScene* scene) {
  ViewTransform* const view = &scene->view.transform;
  OnResize(view, 900, 700);
  PrepareDevice(view);
  SetViewMode(view, mode);
  FitToPath(view, &scene->program.store);
  view->viewScale *= static_cast<float>(random->OneOf({0.3, 1.0, 1.0, 7.0, 60.0, 300.0}));
  if (-kFar < view->panX && view->panX < kFar) view->panX += random->Whole(-20, 20);
  scene->view.RapidVisible = random->OneOf({1, 1, 0});
  scene->job.AfaEnabled = random->OneOf({1, 1, 0});
  scene->job.FeedChgSmoothCheck = random->OneOf({1, 0});
}

TEST(Pick, FindsWhatATestOfEveryDrawnLineFinds) {
  constexpr int kPoints = 143;
  for (uint32_t seed = 0; seed < 20; ++seed) {
    Random random(seed);
    TestScene scene;
    Fill(&scene.program.store, RandomProgram(&random, 250, seed % 3 == 0));
    const PickIndex index(&scene.program.store);
    FeedPassMemory memory;
    if (seed % 2 == 0) FeedPass(&scene.program, scene.job, nullptr, &memory);
    for (int mode = 1; mode <= kViewModes; ++mode) {
      ChooseView(mode, &random, &scene);
      const LineList drawn(scene.scene());
      for (int i = 0; i < kPoints; ++i) {
        Pixel pixel{random.Whole(-450, 450), random.Whole(-350, 350)};
        if (!drawn.lines.empty() && random.Chance(50)) {
          const Pixel end =
              drawn.lines[static_cast<size_t>(random.Whole(0, 1 << 20)) % drawn.lines.size()].to;
          pixel.x = std::clamp(end.x, -kFar, kFar) + random.Whole(-7, 7);
          pixel.y = std::clamp(end.y, -kFar, kFar) + random.Whole(-7, 7);
        }
        ASSERT_EQ(index.Pick(scene.scene(), pixel), drawn.Nearest(pixel))
            << "program " << seed << " view " << mode << " at " << pixel.x << ", " << pixel.y;
      }
      if (drawn.lines.empty()) continue;
      const uint32_t block = drawn.lines[drawn.lines.size() / 2].block;
      std::vector<Pixel> expected;
      for (const DrawnLine& line : drawn.lines) {
        if (line.block != block) continue;
        if (expected.empty()) expected.push_back(line.from);
        expected.push_back(line.to);
      }
      EXPECT_EQ(index.DrawnLine(scene.scene(), block), expected);
    }
  }
}

// A walk back over them for each run of blocks would take hours.
TEST(Pick, MillionsOfBlocksThatAreNoMovesFinishQuickly) {
  TestScene scene;
  OnResize(&scene.view.transform, 900, 700);
  PrepareDevice(&scene.view.transform);
  scene.Add(BlockRapidStart, 0, 0);
  for (int i = 0; i < 1'000'000; ++i) scene.Add(BlockNone, 0, 0);
  scene.Add(BlockCut, 100, 0);
  const PickIndex index(&scene.program.store);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(index.Pick(scene.scene(), {50, 6}), 1'000'001U);
}

}  // namespace
}  // namespace tvx
