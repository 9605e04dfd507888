#include "view/view_commands.h"

#include <gtest/gtest.h>

#include "test_scene.h"

namespace tvx {
namespace {

class ViewCommandsTest : public testing::Test {
 protected:
  ViewCommandsTest() : commands(&scene.program, &scene.job, &scene.view, &scene.ui) {
    OnResize(&view(), 800, 600);
    PrepareDevice(&view());
    scene.ui.repaints = 0;
  }
  ViewTransform& view() { return scene.view.transform; }

  TestScene scene;
  ViewCommands commands;
};

TEST_F(ViewCommandsTest, ArrowKeysPanByAboutTenPixels) {
  const struct {
    ViewKey key;
    float scale;
    int32_t panX, panY;
  } cases[] = {
      {ViewKey::kUp, 30.0F, 0, 1},     {ViewKey::kDown, 0.5F, 0, -21},
      {ViewKey::kRight, 0.5F, -21, 0}, {ViewKey::kLeft, 500.0F, 1, 0},
      {ViewKey::kLeft, 10.0F, 2, 0},   {ViewKey::kLeft, 9.9F, 2, 0},
  };
  for (const auto& c : cases) {
    view().panX = view().panY = 0;
    view().viewScale = c.scale;
    scene.ui.repaints = 0;
    commands.PressKey(c.key);
    EXPECT_EQ(view().panX, c.panX) << c.scale;
    EXPECT_EQ(view().panY, c.panY) << c.scale;
    EXPECT_EQ(scene.ui.repaints, 1);
  }
}

TEST_F(ViewCommandsTest, APanStaysWithinItsRange) {
  view().viewScale = 0.0F;
  for (int i = 0; i < 3; ++i) commands.PressKey(ViewKey::kLeft);
  EXPECT_EQ(view().panX, INT32_MAX);
}

TEST_F(ViewCommandsTest, RotationKeysTurnByTenDegrees) {
  const struct {
    ViewKey key;
    int32_t ViewTransform::*angle;
    int32_t before, after;
  } cases[] = {
      {ViewKey::kPageUp, &ViewTransform::rotZ, 330, 340},
      {ViewKey::kPageUp, &ViewTransform::rotZ, 355, 5},
      {ViewKey::kPageUp, &ViewTransform::rotZ, 350, 360},  // stands
      {ViewKey::kPageUp, &ViewTransform::rotZ, 360, 10},
      {ViewKey::kPageDown, &ViewTransform::rotZ, 10, 0},
      {ViewKey::kPageDown, &ViewTransform::rotZ, 5, 355},
      {ViewKey::kHome, &ViewTransform::rotY, 0, 10},
      {ViewKey::kEnd, &ViewTransform::rotY, 0, 350},
      {ViewKey::kInsert, &ViewTransform::rotX, 300, 310},
      {ViewKey::kDelete, &ViewTransform::rotX, 300, 290},
  };
  for (const auto& c : cases) {
    view() = ViewTransform();
    view().*c.angle = c.before;
    view().panX = 4;
    commands.PressKey(c.key);
    EXPECT_EQ(view().*c.angle, c.after) << c.before;
    EXPECT_EQ(view().panX, 4);
    ViewTransform fresh = view();
    fresh.UpdateTrigTable();
    EXPECT_EQ(fresh.sinX, view().sinX);
    EXPECT_EQ(fresh.cosY, view().cosY);
    EXPECT_EQ(fresh.cosZ, view().cosZ);
  }
  EXPECT_EQ(scene.ui.repaints, 10);
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

TEST_F(ViewCommandsTest, AReleaseLatchesTheSizeBeforeItFits) {
  OnResize(&view(), 400, 400);
  commands.PressRight({0, 0});
  commands.ReleaseRight({0, 0});
  EXPECT_EQ(view().clientWidth, 400);
  EXPECT_EQ(view().viewScale, 10.0F);
}

TEST_F(ViewCommandsTest, TheCommandPadActsWhenItHasClosed) {
  const struct {
    std::vector<int> presses;  // ids
    const char* actions;
  } cases[] = {
      {{1000}, "run list "},
      {{1005}, "rapids "},
      {{1006}, "options "},
      {{1004}, ""},
      {{CCommandPadDlg::kListCommand, 1006}, "options "},
      {{}, ""},  // closed at its frame
  };
  CCommandPadDlg pad;
  for (const auto& c : cases) {
    std::string actions;
    const PadActions padActions = {[&] { actions += "run "; }, [&] { actions += "list "; },
                                   [&] { actions += "options "; }};
    scene.view.RapidVisible = 1;
    scene.ui.OnDialog<CCommandPadDlg>([&](CCommandPadDlg*) {
      EXPECT_FALSE(pad.cutTime || pad.rapids || pad.settings);
      for (const int id : c.presses) {
        for (const auto& button : CCommandPadDlg::Buttons()) {
          if (button.id == id) {
            EXPECT_EQ(pad.Press(button), id != CCommandPadDlg::kListCommand) << id;
          }
        }
      }
      EXPECT_EQ(actions, "");
      return false;
    });
    commands.PressLeft(&pad, padActions);
    if (scene.view.RapidVisible == 0) actions += "rapids ";
    EXPECT_EQ(actions, c.actions);
  }
}

}  // namespace
}  // namespace tvx
