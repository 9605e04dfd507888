// Every command of the tables, run by each menu entry, key and button that leads to it. What it
// changes is compared with what it should, so that no route leads to another command.

#include <QMenu>
#include <QStatusTipEvent>
#include <QToolBar>
#include <QToolButton>
#include <map>

#include "base/format.h"
#include "desktop/desktop_test.h"
#include "session/view_operations.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;
using enum CommandId;

constexpr char kPart[] = "c:\\marlo\\ncdata\\part.nc";
// The files that commands write.
constexpr const char* kFiles[] = {"windows/tvx.cfg", "marlo/dirlist.txt", "marlo/UserKey.txt",
                                  "marlo/shown.emf", "marlo/a.mma",       "marlo/info1.dat"};

class CommandsTest : public DesktopTest {
 protected:
  using Run = std::function<void()>;
  // What a command does: the parts of the state that it adds, the user's steps in the window that
  // opens, if one does, and what has to be prepared.
  struct Effect {
    std::string adds;
    std::string steps = "";
    Run prepare = [] {};
  };

  CommandsTest();

  // How the first two windows lie.
  std::string Places() {
    if (Children().size() < 2) return "";
    const QMdiSubWindow* const child = Children()[0];
    const QRect first = child->geometry(), second = Children()[1]->geometry();
    const QPoint foot = child->parentWidget()->rect().bottomLeft();
    if (child->isMinimized()) return first.bottomLeft() == foot ? "at the foot" : "";
    if (first.bottom() + 1 == second.top() && first.width() == second.width()) return "stacked";
    if (first.right() + 1 == second.left() && first.height() == second.height()) return "abreast";
    return first.size() == second.size() && first.topLeft() != second.topLeft() ? "cascaded" : "";
  }

  // What commands change.
  QStringList State() {
    std::string state =
        Format("%s|visible %d|tool bar %d|status bar %d|windows %d|cd %s", Places().c_str(),
               window->isVisible(), !window->findChild<QToolBar*>()->isHidden(),
               !window->statusBar()->isHidden(), static_cast<int>(Children().size()),
               files->CurrentDirectory().c_str());
    for (size_t n = 1; n <= 12; ++n) state += "|UK_" + std::to_string(n) + app.UserKeys[n];
    for (const std::string file : kFiles) {
      if (fs::exists(home / "drive_c" / file)) state += "|" + file;
    }
    if (window->ActiveView() == nullptr) return ToQt(state).split('|');
    CTVXView& view = View();
    const ViewTransform& turn = view.view.transform;
    state += Format("|file %s|%s|%s|rapids %d%d|results %d|turned %d %d %d",
                    view.fileName().c_str(), turn.viewScale == 1.25F ? "zoomed" : "fitted",
                    view.masterGrid.Cells.Empty() ? "no master" : "master", view.view.RapidVisible,
                    view.job.RapidShown, static_cast<int>(view.results.recorded.size()), turn.rotX,
                    turn.rotY, turn.rotZ);
    return ToQt(state).split('|');
  }

  void Check(const Effect& effect, const Run& run) {
    while (Children().size() > 1) delete Children().back();
    window->show();
    files->SetCurrentDirectory("c:\\marlo\\ncdata");
    for (const char* const file : kFiles) fs::remove(home / "drive_c" / file);
    if (window->ActiveView() != nullptr) {
      View().view.RapidVisible = View().job.RapidShown = 1;
      View().view.transform.viewScale = 1.25F;
      View().view.transform.rotX = 17;
      View().results.recorded.clear();
      View().job.MetafileCreateChk = 0;
      View().SetNames("", "a name");
      DropMaster(&View().masterGrid);
    }
    effect.prepare();
    if (!effect.steps.empty()) user.Next(effect.steps);
    const QStringList before = State();
    run();
    Settle();
    QStringList added = State();
    added.removeIf([&](const QString& part) { return before.contains(part); });
    EXPECT_EQ(FromQt(added.join('|')), effect.adds);
    EXPECT_TRUE(user.waiting.empty());
  }
  // All effects of a command; none, and nothing happens.
  void Check(CommandId id, const Run& run) {
    SCOPED_TRACE(static_cast<int>(id));
    if (!effects.contains(id)) Check(Effect{""}, run);
    for (auto [row, end] = effects.equal_range(id); row != end; ++row) Check(row->second, run);
  }
  // The same by an entry or a button, which is enabled if there is an effect.
  void Check(CommandId id, QAction* action) {
    ASSERT_NE(action, nullptr) << static_cast<int>(id);
    EXPECT_EQ(action->isEnabled(), effects.contains(id)) << static_cast<int>(id);
    Check(id, [action] { action->trigger(); });
  }

  std::multimap<CommandId, Effect> effects;  // the rows of one command follow each other
};

// The effects that need no preparation and no window.
constexpr std::pair<CommandId, const char*> kPlainEffects[] = {
    {kViewTop, "turned 0 0 0"},
    {kViewFront, "turned 270 0 0"},
    {kViewRight, "turned 0 90 270"},
    {kViewIsometric, "turned 300 0 330"},
    {kViewIsometric2, "turned 300 0 240"},
    {kViewIsometric3, "turned 300 0 150"},
    {kViewIsometric4, "turned 300 0 60"},
    {kFit, "fitted"},
    {kToggleRapids, "rapids 00"},
    {kPadRapids, "rapids 00"},
    {kToolBar, "tool bar 0"},
    {kToolBar, "tool bar 1"},
    {kStatusBar, "status bar 0"},
    {kStatusBar, "status bar 1"},
    {kWriteUserKeys, "marlo/UserKey.txt"},
    {kExit, "visible 0"},
    {kPlainCutTime, ""},
    {kNewDocument, "windows 2|file |fitted|turned 300 0 330"},
    {kNewWindow, "windows 2|file |fitted|turned 300 0 330"}};

CommandsTest::CommandsTest() {
  // Lines to and fro, enough of them for a master model.
  std::string program = "G90 G0 X0 Y0 Z9\nG1 Z1 F1000\n";
  for (int y = 0; y < 60; ++y) program += Format("X%d\nY%d\n", y % 2 == 0 ? 60 : 0, y + 1);
  Load("part.nc", program);
  home.Put("drive_c/marlo/하나.nc", program);
  for (const auto& [id, adds] : kPlainEffects) effects.insert({id, {adds}});
  // A master model takes the place of its program.
  const auto makeMaster = [this] {
    LoadProgram(&View(), kPart);
    RunCommand(kMasterBuild, "OK");
  };
  makeMaster();
  RunCommand(kMasterSave, "c:\\marlo\\kept.mma");
  const auto countDrawing = [this] {
    const auto count = [this] { View().results.recorded.emplace_back(); };
    QObject::connect(window->ActiveView(), &ViewWidget::Drawn, window.get(), count,
                     Qt::SingleShotConnection);
  };
  const auto twoWindows = [this] {
    window->NewView();
    for (QMdiSubWindow* const child : Children()) child->showNormal();
    Settle();
    Children()[0]->setGeometry({50, 50, 300, 200});
  };
  const auto iconAndWindow = [this, twoWindows] {
    twoWindows();
    Children()[0]->showMinimized();
    Children()[0]->move(50, 50);
  };
  effects.insert({
      {kLoad, {"cd c:\\marlo|file 하나.nc|fitted", "c:\\marlo\\하나.nc"}},
      {kWritePicture, {"cd c:\\marlo|marlo/shown.emf", "c:\\marlo\\shown.emf"}},
      {kSingleCutTime, {"fitted|results 1", "?전송 dialog | OK > Info list에추가"}},
      {kRunJobList,
       {"marlo/info1.dat|file part.nc|fitted|results 1", "화일 리#part.nc | 삽입 | 전송"}},
      {kResultList, {"", "?TVX 출력 | Esc"}},
      {kMasterBuild, {"file |master|rapids 01", "OK"}},
      {kMasterDelete, {"no master", "확인", makeMaster}},
      {kMasterSave, {"cd c:\\marlo|marlo/a.mma", "c:\\marlo\\a.mma", makeMaster}},
      {kMasterLoad, {"cd c:\\marlo|file |master|rapids 01", "c:\\marlo\\kept.mma"}},
      {kRedraw, {"results 1", "", countDrawing}},
      {kToggleRapids, {"rapids 11", "", [this] { View().view.RapidVisible = 0; }}},
      {kPadOptions, {"", "?설정 | Esc"}},
      {kPadJobList, {"", "?전송 | Esc > ?TVX 출력 & Esc"}},
      {kConfiguration, {"windows/tvx.cfg", "작업=d:\\nc | 저장"}},
      {kDirectoryList, {"marlo/dirlist.txt", "?디렉토리 리스트 | 저장"}},
      {kOpenDocument, {"windows 2|file part.nc|fitted|turned 300 0 330", kPart}},
      {kPrintSetup, {"", "?Page Setup | Esc"}},
      {kPrint, {"", "?Print | Esc"}},
      {kPrintPreview, {"", "?/ 1 | Esc"}},
      {kCascade, {"cascaded", "", twoWindows}},
      {kTileHorizontally, {"stacked", "", twoWindows}},
      {kTileVertically, {"abreast", "", twoWindows}},
      {kArrangeIcons, {"at the foot", "", iconAndWindow}},
      {kAbout, {"", "?About TVX | ?TVX Afa Version " TVX_VERSION " | ?[picture] | OK"}},
  });
  for (const MenuRow& row : WorkingMenu()) {
    const std::string key = row.text;
    if (!key.starts_with("UK_")) continue;
    const auto prepare = [this, key] { app.UserKeys[std::stoul(key.substr(3))] = "G90"; };
    effects.insert({row.id, {key + "G90M03", "M03 | OK", prepare}});
  }
}

TEST_F(CommandsTest, EveryEntryOfTheWorkingMenu) {
  for (const MenuRow& row : WorkingMenu()) {
    Check(row.id, Entry(row));
    Entry(row)->showStatusText(window.get());
    EXPECT_EQ(window->statusBar()->currentMessage(), MainWindow::PromptOf(row.id));
  }
}

TEST_F(CommandsTest, EveryKey) {
  for (const std::span<const Accelerator> table : {ViewAccelerators(), FrameAccelerators()}) {
    for (const auto& [key, id] : table) {
      if (id == kNextPane) continue;  // F6 belongs to the view, whose table comes first
      Check(id, [this, pressed = QKeySequence(key)[0]] { Press(pressed); });
    }
  }
  Check(Effect{""}, [this] { Press(Qt::Key_F12); });  // printed in a menu, and not a key
}

TEST_F(CommandsTest, EveryToolButtonAndMenuBesidePrinter) {
  auto* const bar = window->findChild<QToolBar*>();
  QList<QAction*> buttons = bar->actions();
  for (const auto& [id, text] : ToolBar()) {
    QAction* const button = buttons.takeFirst();
    EXPECT_EQ(button->isSeparator(), id == kNone);
    if (id == kNone) continue;
    EXPECT_FALSE(button->icon().isNull()) << text;
    Check(id, button);
    if (id != kPrint) continue;
    auto entries = qobject_cast<QToolButton*>(bar->widgetForAction(button))->menu()->actions();
    for (const MenuRow& row : PrinterMenu()) {
      EXPECT_EQ(entries[0]->text(), row.text);
      Check(row.id, entries.takeFirst());
    }
  }
}

TEST_F(CommandsTest, EveryEntryOfTheMenuWithoutADocument) {
  OpenWindow();
  const std::string view = "|fitted|no master|rapids 11|results 0|turned 300 0 330";
  effects.find(kNewDocument)->second.adds = "windows 1|file " + view;
  effects.find(kOpenDocument)->second.adds = "windows 1|file part.nc" + view;
  for (const MenuRow& row : EmptyMenu()) {
    SCOPED_TRACE(row.text);
    while (!Children().isEmpty()) delete Children().back();
    Settle();
    EXPECT_EQ(Entry(WorkingMenu()[0]), nullptr) << "its menus are hidden";
    Press(Qt::Key_F1);
    Press(Qt::CTRL | Qt::Key_T);
    // The recent files take the place of their entry, which is shown only while there are none.
    if (row.id != kRecentFiles || Entry(row) != nullptr) Check(row.id, Entry(row));
  }
}

TEST_F(CommandsTest, MenuShowsThatBuildOfModelHidesRapids) {
  QAction* const entry =
      Entry(*std::ranges::find(WorkingMenu(), CommandId::kToggleRapids, &MenuRow::id));
  for (const bool shown : {false, true}) {  // the model has been built
    for (QMenu* const menu : window->findChildren<QMenu*>()) emit menu->aboutToShow();
    EXPECT_EQ(entry->isChecked(), shown);
    entry->trigger();
  }
}

// A button that leaves the pad open is followed by the one that closes it.
TEST_F(CommandsTest, EveryButtonOfThePad) {
  for (const CCommandPadDlg::Button& button : CCommandPadDlg::Buttons()) {
    Check(button.id, [&] {
      user.waiting.push_front([&](QDialog* pad) {
        user.Do(pad, button.text);
        EXPECT_EQ(pad->isVisible(), button.id == kResultList);
        if (pad->isVisible()) user.Do(pad, "취소");
      });
      QTest::mouseClick(window->ActiveView(), Qt::LeftButton, {}, {100, 100});
    });
  }
}

}  // namespace
}  // namespace tvx
