// Keys, mouse and command pad, with the repaints that each makes.
#include "session/view_commands.h"

#include <gtest/gtest.h>

#include "support/scripted_ui.h"
#include "view/test_scene.h"

namespace tvx {
namespace {

class ViewCommandsTest : public testing::Test {
 protected:
  ViewCommandsTest() { OnResize(&view, 800, 600); }

  // The value of a field after a key.
  int32_t Press(ViewKey key, int32_t ViewTransform::*field, int32_t before) {
    view.*field = before;
    commands.PressKey(key);
    return view.*field;
  }

  TestScene scene;
  ScriptedUi ui;
  ViewTransform& view = scene.view.transform;
  ChangeNotifier changes;
  const Subscription repaints = ui.WatchRepaints(&changes);
  ViewCommands commands{&scene.program, &scene.job, &scene.view, &changes, &ui};
};

using View = ViewTransform;

TEST_F(ViewCommandsTest, ArrowKeyPansAboutTenPixels) {
  for (const auto& [scale, step] : {std::pair(0.5F, 21), {10, 2}, {30, 1}, {500, 1}}) {
    view.viewScale = scale;
    EXPECT_EQ(Press(ViewKey::kUp, &View::panY, 0), step);
    EXPECT_EQ(Press(ViewKey::kDown, &View::panY, 5), 5 - step);
    EXPECT_EQ(Press(ViewKey::kRight, &View::panX, 5), 5 - step);
    EXPECT_EQ(Press(ViewKey::kLeft, &View::panX, 0), step);
  }
  view.viewScale = 0;
  EXPECT_EQ(Press(ViewKey::kLeft, &View::panX, INT32_MAX - 5), INT32_MAX);
  EXPECT_EQ(ui.repaints, 17);
}

TEST_F(ViewCommandsTest, OtherKeyTurnsOneAngleByTenDegrees) {
  const std::tuple<ViewKey, ViewKey, int32_t View::*, double View::*> rows[] = {
      {ViewKey::kPageUp, ViewKey::kPageDown, &View::rotZ, &View::sinZ},
      {ViewKey::kHome, ViewKey::kEnd, &View::rotY, &View::sinY},
      {ViewKey::kInsert, ViewKey::kDelete, &View::rotX, &View::sinX}};
  for (const auto& [increase, decrease, angle, sine] : rows) {
    EXPECT_EQ(Press(increase, angle, 0), 10);
    EXPECT_NEAR(view.*sine, 0.17365, 1e-5);
    EXPECT_EQ(Press(increase, angle, 350), 360);
    EXPECT_EQ(Press(increase, angle, 355), 5);
    EXPECT_EQ(Press(decrease, angle, 10), 0);
    EXPECT_EQ(Press(decrease, angle, 5), 355);
  }
  EXPECT_EQ(ui.repaints, 15);
}

TEST_F(ViewCommandsTest, ViewModeRepaintsOnceIfKnown) {
  for (const int mode : {1, kViewModes, 0, kViewModes + 1}) commands.ShowViewMode(mode);
  EXPECT_EQ(ui.repaints, 2);
  EXPECT_EQ(view.rotZ, 60);
}

TEST_F(ViewCommandsTest, RapidsToggleIsRecordedInTheJob) {
  for (const auto& [before, after] : {std::pair(1, 0), {0, 1}, {7, 1}}) {
    scene.view.RapidVisible = before;
    commands.ToggleRapids();
    EXPECT_EQ(std::pair(scene.view.RapidVisible, scene.job.RapidShown), std::pair(after, after));
  }
  EXPECT_EQ(ui.repaints, 3);
}

// An empty program is fitted at 15 pixels a unit, a rectangle of 11 by 11 pixels at 600 / 11.
TEST_F(ViewCommandsTest, DragOfMoreThanTenPixelsBothWaysZooms) {
  const auto scaleAfterDrag = [&](Pixel by) {
    view.viewScale = 1.0F;
    view.panX = view.panY = 0;
    commands.PressRight({400, 300});
    commands.ReleaseRight({400 + by.x, 300 + by.y});
    return view.viewScale;
  };
  for (const Pixel by : {Pixel{0, 0}, {11, 10}, {10, 11}, {-300, 0}}) {
    EXPECT_FLOAT_EQ(scaleAfterDrag(by), 15) << by.x << "," << by.y;
  }
  for (const Pixel by : {Pixel{11, 11}, {-11, 11}, {11, -11}, {-11, -11}}) {
    EXPECT_FLOAT_EQ(scaleAfterDrag(by), 600.0F / 11) << by.x << "," << by.y;
  }
  EXPECT_EQ(ui.repaints, 8);
}

TEST_F(ViewCommandsTest, RubberBandExistsFromTheFirstMoveToTheRelease) {
  commands.PressRight({10, 20});
  EXPECT_FALSE(commands.RubberBand());
  EXPECT_TRUE(commands.MoveMouse({50, 7}));
  EXPECT_EQ(commands.RubberBand(), (std::array<Pixel, 2>{{{10, 20}, {50, 7}}}));
  commands.PressRight({1, 2});  // the button was released outside the view
  EXPECT_FALSE(commands.RubberBand());
  commands.MoveMouse({9, 9});
  commands.ReleaseRight({9, 9});
  EXPECT_FALSE(commands.RubberBand());
  EXPECT_FALSE(commands.MoveMouse({5, 5}));
}

TEST_F(ViewCommandsTest, CommandPadActsAfterItHasClosed) {
  std::string log;
  const PadActions actions = {[&] { log += "run "; }, [&] { log += "list "; },
                              [&] { log += "options "; }};
  CCommandPadDlg pad;
  for (const CCommandPadDlg::Button& button : CCommandPadDlg::Buttons()) {
    scene.view.RapidVisible = 1;
    ui.OnDialog<CCommandPadDlg>([&](CCommandPadDlg* dialog) {
      log += button.text + std::string(dialog->Press(button) ? " closes: " : " stays: ");
      return false;
    });
    commands.PressLeft(&pad, actions);
    if (scene.view.RapidVisible == 0) log += "rapids ";
  }
  EXPECT_EQ(
      log,
      "Cut Time closes: run list TVX 출력 stays: 급속이송 closes: rapids 설정 closes: options "
      "취소 closes: ");
}

}  // namespace
}  // namespace tvx
