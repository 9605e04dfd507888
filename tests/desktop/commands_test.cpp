// Every command of the tables: carried out by each menu entry, key and button that leads to it, and
// seen to do what docs/commands.md says. That page is written from what stands here.

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <fstream>
#include <map>

#include "desktop/command_pad_face.h"
#include "desktop/condition_faces.h"
#include "desktop/cut_time_list_face.h"
#include "desktop/file_info_face.h"
#include "desktop/job_faces.h"
#include "desktop/master_face.h"
#include "desktop/settings_faces.h"
#include "desktop_test.h"
#include "shell/view_operations.h"

namespace tvx {
namespace {

// Lines to and fro, enough of them for a master model.
std::string Program() {
  std::string text = "G90 G0 X0 Y0 Z9\nG1 Z1 F1000\n";
  for (int line = 0; line < 60; ++line) {
    text += "X" + std::to_string(line % 2 == 0 ? 60 : 0) + "\nY" + std::to_string(line + 1) + "\n";
  }
  return text;
}

struct Angles {
  int32_t x, y, z;
  friend bool operator==(const Angles&, const Angles&) = default;
};

class CommandsTest : public DesktopTest {
 protected:
  using Run = std::function<void()>;

  // What a command does, in words and as a check around its run.
  struct Effect {
    std::string words;
    std::function<void(const Run& run)> check;
  };

  CommandsTest() {
    Load("part.nc");
    Describe();
  }

  void Load(const char* name) {
    window->LoadHostFile(ToQt(PutProgram(name, Program()).string()));
    Settle();
  }

  Angles ViewAngles() {
    const ViewTransform& view = View().view.transform;
    return {view.rotX, view.rotY, view.rotZ};
  }

  Effect Turns(const std::string& words, const Angles& angles) {
    return {words, [this, angles](const Run& run) {
              View().view.transform.rotX = 17;
              run();
              EXPECT_EQ(ViewAngles(), angles);
            }};
  }

  template <typename Window>
  Effect Opens(const std::string& words) {
    return {words, [this](const Run& run) {
              user.Rejects<Window>();
              run();
              EXPECT_TRUE(user.Done());
            }};
  }

  Effect Toggles(const std::string& words, QWidget* bar) {
    return {words, [bar](const Run& run) {
              run();
              EXPECT_FALSE(bar->isVisible());
              run();
              EXPECT_TRUE(bar->isVisible());
            }};
  }

  // A new window whose view is empty, or has the file.
  Effect NewWindow(const std::string& words, const std::string& file = "") {
    return {words, [this, file](const Run& run) {
              const auto before = Children().size();
              if (!file.empty()) user.OnFile(PutProgram(file, Program()));
              run();
              Settle();
              EXPECT_EQ(Children().size(), before + 1);
              EXPECT_EQ(View().fileName, file);
              EXPECT_EQ(View().program.store.blockCount == 0, file.empty());
              Load("part.nc");
            }};
  }

  Effect Arranges(const std::string& words, std::function<void()> expect) {
    return {words, [this, expect = std::move(expect)](const Run& run) {
              while (Children().size() < 2) window->NewView();
              for (QMdiSubWindow* const child : Children()) child->showNormal();
              Settle();
              run();
              expect();
              Load("part.nc");
            }};
  }

  // A master model takes the place of its program, which the next one needs again.
  void MakeMaster() {
    LoadProgram(&View(), "c:\\marlo\\ncdata\\part.nc");
    user.Does<MasterFace>({{"OK"}});
    window->RunCommand(32792);
  }

  void Describe();
  void DescribeView();
  void DescribePad();
  void DescribeFrame();

  bool HasEffect(int id) const { return effects.contains(id); }
  void Check(int id, const Run& run) {
    SCOPED_TRACE(id);
    effects.at(id).check(run);
    EXPECT_TRUE(user.Done());
  }

  std::map<int, Effect> effects;
};

void CommandsTest::Describe() {
  DescribeView();
  DescribePad();
  DescribeFrame();
  effects[32789] = {"shows the directories and the editor; \"저장\" writes `tvx.cfg`",
                    [this](const Run& run) {
                      user.Does<DirSetupFace>({{"작업 DIR", "d:\\nc"}, {"저장"}});
                      run();
                      EXPECT_EQ(app.configuration.WorkDir, "d:\\nc");
                      EXPECT_TRUE(std::filesystem::exists(home / "drive_c/windows/tvx.cfg"));
                    }};
  effects[32796] = {"shows the directory list; \"저장\" writes `dirlist.txt`",
                    [this](const Run& run) {
                      user.Does<DirListFace>({{"저장"}});
                      run();
                      EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/dirlist.txt"));
                    }};
  for (const Command& command : Commands()) {
    if (command.action != Action::kEditUserKey) continue;
    const size_t key = static_cast<size_t>(command.argument);
    effects[command.id] = {"edits user key " + std::to_string(key) + " on the key-code pad",
                           [this, key](const Run& run) {
                             app.UserKeys[key] = "G90";
                             user.Does<KeyCodeFace>({{"M03"}, {"OK"}});
                             run();
                             EXPECT_EQ(app.UserKeys[key], "G90M03");
                           }};
  }
  effects[32813] = {"writes the user keys to `UserKey.txt`", [this](const Run& run) {
                      app.UserKeys[12] = "M30";
                      run();
                      const std::string text = HostBytes(home / "drive_c/marlo/UserKey.txt");
                      EXPECT_NE(text.find("M30\r\n"), std::string::npos);
                    }};
  effects[57664] = {"shows the icon, \"TVX Afa Version 3.1\" and OK", [this](const Run& run) {
                      user.On<QMessageBox>([](QMessageBox* box) {
                        EXPECT_EQ(box->text(), "TVX Afa Version 3.1");
                        EXPECT_FALSE(box->iconPixmap().isNull());
                        EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
                        box->accept();
                      });
                      run();
                    }};
}

void CommandsTest::DescribeView() {
  effects[32771] = {"asks for a file, loads it and fits it into the window",
                    [this](const Run& run) {
                      user.OnFile(PutProgram("하나.nc", Program()));
                      View().view.transform.viewScale = 1.25F;
                      run();
                      EXPECT_EQ(View().fileName, "하나.nc");
                      EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo\\ncdata");
                      EXPECT_GT(View().program.store.blockCount, 100U);
                      EXPECT_NE(View().view.transform.viewScale, 1.25F);
                    }};
  effects[32791] = {"asks for a name and writes the picture file", [this](const Run& run) {
                      user.OnFile(home / "drive_c/marlo/shown.emf");
                      run();
                      EXPECT_TRUE(std::filesystem::remove(home / "drive_c/marlo/shown.emf"));
                    }};
  effects[32773] = {"nothing", [this](const Run& run) {
                      const auto results = View().results.entryCount;
                      run();
                      EXPECT_EQ(View().results.entryCount, results);
                    }};
  effects[32772] = {"asks for the options, adjusts the feeds, shows the figures and records them",
                    [this](const Run& run) {
                      View().job.MetafileCreateChk = 0;
                      user.Does<SendOptionFace>({{"OK"}});
                      user.Does<FileInfoFace>({{"Info list에추가"}});
                      const auto results = View().results.entryCount;
                      run();
                      EXPECT_EQ(View().results.entryCount, results + 1);
                    }};
  effects[32785] = {"shows the job list, then runs its files and records their figures",
                    [this](const Run& run) {
                      View().job.MetafileCreateChk = 0;
                      user.On<TransferFace>([](TransferFace* face) {
                        QListWidget* const list = RowsOf(face, CTransferDlg::kFileListCaption);
                        ASSERT_NE(list, nullptr);
                        list->setCurrentRow(0);
                        Click(face, "삽입");
                        Click(face, "전송");
                      });
                      const auto results = View().results.entryCount;
                      run();
                      EXPECT_EQ(View().results.entryCount, results + 1);
                    }};
  effects[32774] =
      Opens<CutTimeListFace>("shows the list of results, and writes the reports from there");
  effects[32792] = {"asks for tool and tolerance and builds the master model",
                    [this](const Run& run) {
                      user.Does<MasterFace>({{"OK"}});
                      run();
                      EXPECT_FALSE(View().masterGrid.Cells.Empty());
                    }};
  effects[32794] = {"asks, and deletes the master model", [this](const Run& run) {
                      MakeMaster();
                      user.Does<QMessageBox>({{"OK"}});
                      run();
                      EXPECT_TRUE(View().masterGrid.Cells.Empty());
                    }};
  effects[32795] = {"asks for a name and writes the master model", [this](const Run& run) {
                      MakeMaster();
                      user.OnFile(home / "drive_c/marlo/a.mma");
                      run();
                      EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/a.mma"));
                    }};
  effects[32802] = {"asks for a file and reads a master model", [this](const Run& run) {
                      MakeMaster();
                      user.OnFile(home / "drive_c/marlo/b.mma");
                      window->RunCommand(32795);
                      DropMaster(&View().masterGrid);
                      user.OnFile(home / "drive_c/marlo/b.mma");
                      run();
                      EXPECT_FALSE(View().masterGrid.Cells.Empty());
                    }};
  effects[32775] = Turns("turns the view to the top", {0, 0, 0});
  effects[32776] = Turns("turns the view to the front", {270, 0, 0});
  effects[32777] = Turns("turns the view to the right side", {0, 90, 270});
  effects[32778] = Turns("turns the view to the first isometric one", {300, 0, 330});
  effects[32779] = Turns("turns the view to the second isometric one", {300, 0, 240});
  effects[32786] = Turns("turns the view to the third isometric one", {300, 0, 150});
  effects[32780] = Turns("turns the view to the fourth isometric one", {300, 0, 60});
  effects[32781] = {"fits the path into the window", [this](const Run& run) {
                      View().view.transform.viewScale = 1.25F;
                      run();
                      EXPECT_NE(View().view.transform.viewScale, 1.25F);
                    }};
  effects[32782] = {"draws the picture anew, once", [this](const Run& run) {
                      int drawn = 0;
                      QObject context;
                      QObject::connect(window->ActiveView(), &ViewWidget::Drawn, &context,
                                       [&] { ++drawn; });
                      run();
                      EXPECT_EQ(drawn, 1);
                    }};
  effects[32783] = {"shows or hides the rapid moves", [this](const Run& run) {
                      const int32_t before = View().view.RapidVisible;
                      run();
                      EXPECT_NE(View().view.RapidVisible, before);
                      EXPECT_EQ(View().job.RapidShown, View().view.RapidVisible);
                    }};
}

// The buttons of the pad that are no commands of the tables.
void CommandsTest::DescribePad() {
  effects[1000] = {"closes the pad, runs the job list as 32785 does and shows the list of results",
                   [this](const Run& run) {
                     user.Rejects<TransferFace>();
                     user.Rejects<CutTimeListFace>();
                     run();
                   }};
  effects[1005] = {"closes the pad and does what 32783 does", effects.at(32783).check};
  effects[1006] = Opens<OptionFace>("closes the pad and shows the options of the window");
  effects[1004] = {"closes the pad", [this](const Run& run) {
                     const int32_t rapids = View().view.RapidVisible;
                     run();
                     EXPECT_EQ(View().view.RapidVisible, rapids);
                   }};
}

void CommandsTest::DescribeFrame() {
  effects[57600] = NewWindow("opens an empty window");
  effects[57648] = NewWindow("opens an empty window");
  effects[57601] = NewWindow("asks for a file and loads it into a new window", "opened.nc");
  effects[57606] = Opens<QPageSetupDialog>("asks for paper and margins");
  effects[57607] = Opens<QPrintDialog>("asks for the printer and prints the picture");
  effects[57609] = {"shows the page with the picture as it would be printed",
                    [this](const Run& run) {
                      user.On<QPrintPreviewDialog>([](QPrintPreviewDialog* preview) {
                        EXPECT_EQ(preview->findChild<QPrintPreviewWidget*>()->pageCount(), 1);
                        preview->reject();
                      });
                      run();
                    }};
  effects[57665] = {"closes the program's window", [this](const Run& run) {
                      run();
                      EXPECT_FALSE(window->isVisible());
                      window->show();
                      Settle();
                    }};
  effects[59392] = Toggles("hides or shows the tool bar", window->findChild<QToolBar*>());
  effects[59393] = Toggles("hides or shows the status bar", window->statusBar());
  effects[57650] = Arranges("lays the windows one behind the other", [this] {
    EXPECT_EQ(Children()[0]->size(), Children()[1]->size());
    EXPECT_NE(Children()[0]->pos(), Children()[1]->pos());
  });
  effects[57651] = Arranges("lays the windows one below the other", [this] {
    EXPECT_EQ(Children()[0]->width(), Children()[1]->width());
    EXPECT_EQ(Children()[0]->geometry().bottom() + 1, Children()[1]->geometry().top());
  });
  effects[57652] = Arranges("lays the windows side by side", [this] {
    EXPECT_EQ(Children()[0]->height(), Children()[1]->height());
    EXPECT_EQ(Children()[0]->geometry().right() + 1, Children()[1]->geometry().left());
  });
  effects[57649] = {"lays the windows shown as icons along the foot", [this](const Run& run) {
                      QMdiSubWindow* const child = Children().front();
                      for (QMdiSubWindow* const open : Children()) open->showNormal();
                      child->showMinimized();
                      Settle();
                      EXPECT_TRUE(child->isMinimized());
                      child->move(50, 50);
                      run();
                      EXPECT_EQ(child->geometry().bottom(), child->parentWidget()->rect().bottom());
                      EXPECT_EQ(child->x(), 0);
                      child->showMaximized();
                      Settle();
                    }};
}

TEST_F(CommandsTest, EveryEntryOfTheWorkingMenu) {
  for (const MenuRow& row : WorkingMenu()) {
    SCOPED_TRACE(row.text);
    QAction* const entry = Entry(row);
    ASSERT_NE(entry, nullptr);
    ASSERT_EQ(entry->isEnabled(), HasEffect(row.id));
    if (entry->isEnabled()) Check(row.id, [entry] { entry->trigger(); });
  }
}

TEST_F(CommandsTest, EveryKey) {
  for (const std::span<const Accelerator> table : {ViewAccelerators(), FrameAccelerators()}) {
    for (const Accelerator& accelerator : table) {
      SCOPED_TRACE(accelerator.key);
      // The key of a view in the first table, which comes first.
      if (accelerator.key == std::string_view("F6") && accelerator.id == 57680) continue;
      const QKeyCombination key = QKeySequence(accelerator.key)[0];
      const Run press = [&] { Press(key.key(), key.keyboardModifiers()); };
      if (HasEffect(accelerator.id)) {
        Check(accelerator.id, press);
        continue;
      }
      const Angles before = ViewAngles();
      const auto windows = Children().size();
      press();
      EXPECT_EQ(ViewAngles(), before);
      EXPECT_EQ(Children().size(), windows);
    }
  }
  // A key that is printed in a menu and is none.
  const int32_t rapids = View().view.RapidVisible;
  Press(Qt::Key_F12);
  EXPECT_EQ(View().view.RapidVisible, rapids);
}

TEST_F(CommandsTest, EveryToolButton) {
  auto* const bar = window->findChild<QToolBar*>();
  const QList<QAction*> actions = bar->actions();
  ASSERT_EQ(static_cast<size_t>(actions.size()), ToolBar().size());
  for (size_t i = 0; i < ToolBar().size(); ++i) {
    QAction* const action = actions[static_cast<qsizetype>(i)];
    const int id = ToolBar()[i].id;
    SCOPED_TRACE(ToolBar()[i].text);
    EXPECT_EQ(action->isSeparator(), id == 0);
    if (action->isSeparator()) continue;
    EXPECT_FALSE(action->icon().isNull());
    ASSERT_EQ(action->isEnabled(), HasEffect(id));
    auto* const button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
    if (action->isEnabled()) Check(id, [button] { button->click(); });
  }
}

TEST_F(CommandsTest, EveryEntryBesideThePrinter) {
  QMenu* menu = nullptr;
  for (const QToolButton* const button : window->findChildren<QToolButton*>()) {
    if (button->menu() != nullptr) menu = button->menu();
  }
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(static_cast<size_t>(menu->actions().size()), PrinterMenu().size());
  for (size_t i = 0; i < PrinterMenu().size(); ++i) {
    QAction* const entry = menu->actions()[static_cast<qsizetype>(i)];
    EXPECT_EQ(entry->text(), ToQt(PrinterMenu()[i].text));
    Check(PrinterMenu()[i].id, [entry] { entry->trigger(); });
  }
}

// The files opened last stand in the place of an entry that is shown only while there are none.
constexpr int kRecentFiles = 57616;

TEST_F(CommandsTest, EveryEntryOfTheMenuWithoutADocument) {
  window = std::make_unique<MainWindow>(&app, &drives);
  ui.SetWindow(window.get());
  window->show();
  effects.clear();
  Describe();
  for (const MenuRow& row : EmptyMenu()) {
    SCOPED_TRACE(row.text);
    for (QMdiSubWindow* const child : Children()) child->close();
    Settle();
    EXPECT_EQ(Entry(WorkingMenu()[0]), nullptr) << "its menus are hidden";
    Press(Qt::Key_F1);
    Press(Qt::Key_T, Qt::ControlModifier);
    QAction* const entry = Entry(row);
    if (row.id == kRecentFiles && entry == nullptr) continue;
    ASSERT_NE(entry, nullptr);
    ASSERT_EQ(entry->isEnabled(), HasEffect(row.id));
    if (entry->isEnabled()) Check(row.id, [entry] { entry->trigger(); });
  }
}

// A button that leaves the pad open is followed by the one that closes it.
TEST_F(CommandsTest, EveryButtonOfThePad) {
  for (const CCommandPadDlg::Button& button : CCommandPadDlg::Buttons()) {
    SCOPED_TRACE(button.text);
    Check(button.id, [&] {
      QTimer::singleShot(0, window.get(), [&] {
        QPointer<QWidget> pad = QApplication::activeModalWidget();
        Click(pad, button.text);
        EXPECT_EQ(pad->isVisible(), button.id == 32774);
        if (pad->isVisible()) Click(pad, "취소");
      });
      QTest::mouseClick(window->ActiveView(), Qt::LeftButton, {}, {100, 100});
    });
  }
}

// The page of the commands, a row for each in the order of the tables.
class CommandsPage {
 public:
  explicit CommandsPage(std::function<std::string(int)> effectOf) : effectOf_(std::move(effectOf)) {
    for (const MenuRow& row : WorkingMenu()) AddMenuRow(row);
    for (const MenuRow& row : EmptyMenu()) AddMenuRow(row);
    for (const MenuRow& row : PrinterMenu()) AddRow(row.id, row.text, "arrow beside the printer");
    for (const ToolButton& button : ToolBar()) {
      if (button.id != 0) AddRow(button.id, button.text, "tool bar");
    }
    for (const CCommandPadDlg::Button& button : CCommandPadDlg::Buttons()) {
      AddRow(button.id, button.text, "command pad");
    }
    for (const auto table : {ViewAccelerators(), FrameAccelerators()}) {
      for (const Accelerator& accelerator : table) {
        AddRow(accelerator.id, "", "");
        keys_[accelerator.id] << accelerator.key;
      }
    }
  }

  std::string Text() {
    QString text =
        "# Commands\n\n"
        "Every command of the menus, keys and buttons, and what a test saw it do. That test writes "
        "the page\n(`scripts/accept-commands`) and fails when it no longer fits the program.\n\n"
        "| Id | Text | In English | Where | Key | What happens |\n|---|---|---|---|---|---|\n";
    for (const int id : order_) {
      text += QString("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
                  .arg(QString::number(id), texts_[id].join("; "), english_[id].join("; "),
                       places_[id].join("; "), keys_[id].join(", "), ToQt(effectOf_(id)));
    }
    return FromQt(text) + kInThePicture;
  }

 private:
  // What ViewWidgetTest does with keys and mouse.
  static constexpr char kInThePicture[] =
      "\n## In the picture\n\n"
      "Whatever modifier keys are down; every press draws the picture anew.\n\n"
      "| Key or mouse | What happens |\n|---|---|\n"
      "| arrow keys | move the picture by about ten pixels, and at least by 1 mm |\n"
      "| Page Up, Page Down | turn by 10 degrees forth and back about Z |\n"
      "| Home, End | the same about Y |\n"
      "| Insert, Delete | the same about the horizontal of the screen |\n"
      "| right button, drag | zooms to the rectangle if it is more than 10 pixels wide and high |\n"
      "| right button, click or shorter drag | fits the path into the window |\n"
      "| left button | opens the command pad |\n";

  void AddMenuRow(const MenuRow& row) {
    QString place = Plain(ToQt(row.menu));
    if (*row.submenu != '\0') place += " > " + Plain(ToQt(row.submenu));
    AddRow(row.id, row.text, place);
  }

  void AddRow(int id, const char* text, const QString& place) {
    if (!order_.contains(id)) order_ << id;
    AddOnce(Plain(ToQt(text)), &texts_[id]);
    const QString english = Plain(English(text));
    if (english != Plain(ToQt(text))) AddOnce(english, &english_[id]);
    AddOnce(place, &places_[id]);
  }

  static void AddOnce(const QString& text, QStringList* texts) {
    if (!text.isEmpty() && !texts->contains(text)) texts->append(text);
  }

  static QString English(const char* text) {
    UseLanguage(kEnglishLabels);
    QString english = Translated(text);
    UseLanguage(kKoreanLabels);
    return english;
  }

  // Without the marks of access keys, and the key as printed behind a blank.
  static QString Plain(QString text) {
    return text.remove(QRegularExpression("\\(&[A-Z]\\)")).remove('&').replace('\t', ' ');
  }

  std::function<std::string(int)> effectOf_;
  QList<int> order_;
  std::map<int, QStringList> texts_, english_, places_, keys_;
};

TEST_F(CommandsTest, ThePageTellsThem) {
  const std::map<int, std::string> others = {
      {kRecentFiles,
       "gives way to the four files opened last; a choice loads one into a new window"},
  };
  CommandsPage page([&](int id) -> std::string {
    if (HasEffect(id)) return effects.at(id).words;
    const auto other = others.find(id);
    return other == others.end() ? "no action: its entries are disabled, its keys do nothing"
                                 : other->second;
  });
  if (qEnvironmentVariableIsSet("TVX_ACCEPT")) std::ofstream(TVX_COMMANDS_PAGE) << page.Text();
  EXPECT_EQ(page.Text(), HostBytes(TVX_COMMANDS_PAGE))
      << "scripts/accept-commands takes the new page";
}

}  // namespace
}  // namespace tvx
