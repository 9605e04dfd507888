#include "view/view_commands.h"

#include <gtest/gtest.h>

#include "base/format.h"
#include "test_scene.h"

namespace tvx {
namespace {

class ViewCommandsTest : public testing::Test {
 protected:
  ViewCommandsTest() : commands(&scene.program, &scene.job, &scene.view, &scene.ui) {
    OnResize(&view(), 800, 600);
    scene.ui.repaints = 0;
  }
  ViewTransform& view() { return scene.view.transform; }

  TestScene scene;
  ViewCommands commands;
};

std::string Text(const ViewTransform& view) {
  return Format("angles %d %d %d, pan %d %d, scale %g, sines %g %g %g", view.rotX, view.rotY,
                view.rotZ, view.panX, view.panY, view.viewScale, view.sinX, view.sinY, view.sinZ);
}

TEST_F(ViewCommandsTest, KeysPanByAboutTenPixelsAndTurnByTenDegrees) {
  const struct {
    ViewKey key;
    int32_t ViewTransform::*value;
    float scale;
    int32_t before, after;
  } cases[] = {
      {ViewKey::kUp, &ViewTransform::panY, 30.0F, 0, 1},
      {ViewKey::kDown, &ViewTransform::panY, 0.5F, 0, -21},
      {ViewKey::kRight, &ViewTransform::panX, 0.5F, 5, -16},
      {ViewKey::kLeft, &ViewTransform::panX, 500.0F, 0, 1},
      {ViewKey::kLeft, &ViewTransform::panX, 10.0F, 0, 2},
      {ViewKey::kLeft, &ViewTransform::panX, 0.0F, INT32_MAX - 5, INT32_MAX},
      {ViewKey::kPageUp, &ViewTransform::rotZ, 1.0F, 355, 5},
      {ViewKey::kPageUp, &ViewTransform::rotZ, 1.0F, 350, 360},  // stands
      {ViewKey::kPageUp, &ViewTransform::rotZ, 1.0F, 360, 10},
      {ViewKey::kPageDown, &ViewTransform::rotZ, 1.0F, 10, 0},
      {ViewKey::kPageDown, &ViewTransform::rotZ, 1.0F, 5, 355},
      {ViewKey::kHome, &ViewTransform::rotY, 1.0F, 0, 10},
      {ViewKey::kEnd, &ViewTransform::rotY, 1.0F, 0, 350},
      {ViewKey::kInsert, &ViewTransform::rotX, 1.0F, 300, 310},
      {ViewKey::kDelete, &ViewTransform::rotX, 1.0F, 300, 290},
  };
  for (const auto& c : cases) {
    view() = ViewTransform();
    view().viewScale = c.scale;
    view().*c.value = c.before;
    ViewTransform expected = view();
    expected.*c.value = c.after;
    expected.UpdateTrigTable();
    commands.PressKey(c.key);
    EXPECT_EQ(Text(view()), Text(expected)) << "from " << c.before;
  }
  EXPECT_EQ(scene.ui.repaints, std::ssize(cases));
}

TEST_F(ViewCommandsTest, TheRapidsToggleGoesIntoTheJobRecordToo) {
  const int32_t after[][2] = {{1, 0}, {0, 1}, {7, 1}};
  for (const auto& [before, expected] : after) {
    scene.view.RapidVisible = before;
    commands.ToggleRapids();
    EXPECT_EQ(scene.view.RapidVisible, expected) << before;
    EXPECT_EQ(scene.job.RapidShown, expected) << before;
  }
  EXPECT_EQ(scene.ui.repaints, 3);
}

// A release also latches the size of the window, which it then fits or zooms to.
TEST_F(ViewCommandsTest, ADragOfMoreThanTenPixelsBothWaysZooms) {
  const struct {
    int32_t dx, dy;
    bool zooms;
  } cases[] = {
      {0, 0, false},   {11, 10, false}, {10, 11, false},  {11, 11, true},
      {-11, 11, true}, {11, -11, true}, {-11, -11, true}, {-300, 0, false},
  };
  for (const auto& c : cases) {
    view().viewScale = 1.0F;
    view().panX = view().panY = 0;
    commands.PressRight({400, 300});
    commands.ReleaseRight({400 + c.dx, 300 + c.dy});
    // The fit of an empty program gives 15; the zoom to 11 by 11 pixels 600 / 11.
    EXPECT_FLOAT_EQ(view().viewScale, c.zooms ? 600.0F / 11.0F : 15.0F) << c.dx << "," << c.dy;
  }
  EXPECT_EQ(scene.ui.repaints, 8);
}

TEST_F(ViewCommandsTest, TheRubberBandLivesFromPressToRelease) {
  EXPECT_FALSE(commands.MoveMouse({5, 5}));
  EXPECT_FALSE(commands.RubberBand());
  commands.PressRight({10, 20});
  EXPECT_FALSE(commands.RubberBand());
  EXPECT_TRUE(commands.MoveMouse({50, 7}));
  EXPECT_EQ(commands.RubberBand(), (std::array<Pixel, 2>{{{10, 20}, {50, 7}}}));
  commands.PressRight({1, 2});  // the release got lost outside
  EXPECT_FALSE(commands.RubberBand());
  commands.MoveMouse({9, 9});
  commands.ReleaseRight({9, 9});
  EXPECT_FALSE(commands.RubberBand());
  EXPECT_FALSE(commands.MoveMouse({5, 5}));
}

TEST_F(ViewCommandsTest, TheCommandPadActsWhenItHasClosed) {
  const char* const expected[] = {"run list ", "", "rapids ", "options ", ""};
  std::string actions;
  const PadActions padActions = {[&] { actions += "run "; }, [&] { actions += "list "; },
                                 [&] { actions += "options "; }};
  CCommandPadDlg pad;
  for (size_t i = 0; i < std::size(expected); ++i) {
    const CCommandPadDlg::Button& button = CCommandPadDlg::Buttons()[i];
    actions.clear();
    scene.view.RapidVisible = 1;
    scene.ui.OnDialog<CCommandPadDlg>([&](CCommandPadDlg* dialog) {
      EXPECT_EQ(dialog->Press(button), button.id != CommandId::kResultList) << button.text;
      EXPECT_EQ(actions, "");
      return false;
    });
    commands.PressLeft(&pad, padActions);
    if (scene.view.RapidVisible == 0) actions += "rapids ";
    EXPECT_EQ(actions, expected[i]) << button.text;
  }
}

}  // namespace
}  // namespace tvx
