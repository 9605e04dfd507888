// Every command of the tables: carried out by each menu entry, key and button that leads to it, and
// seen to do what docs/commands.md says.

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
#include <QSignalSpy>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <array>
#include <fstream>
#include <map>

#include "desktop/command_pad_face.h"
#include "desktop/condition_faces.h"
#include "desktop/job_faces.h"
#include "desktop/result_faces.h"
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

using Angles = std::array<int32_t, 3>;

class CommandsTest : public DesktopTest {
 protected:
  using Run = std::function<void()>;
  // What a command does, as a check around its run.
  using Effect = std::function<void(const Run& run)>;

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

  bool HasMaster() { return !View().masterGrid.Cells.Empty(); }

  // Takes away a file of the drive c: that a run wrote.
  bool Took(const char* path) { return std::filesystem::remove(home / "drive_c" / path); }

  Effect Turns(const Angles& angles) {
    return [this, angles](const Run& run) {
      View().view.transform.rotX = 17;
      run();
      EXPECT_EQ(ViewAngles(), angles);
    };
  }

  template <typename Window>
  Effect Opens() {
    return [this](const Run& run) {
      user.Rejects<Window>();
      run();
    };
  }

  static Effect Toggles(QWidget* bar) {
    return [bar](const Run& run) {
      for (const bool shown : {false, true}) {
        run();
        EXPECT_EQ(bar->isVisible(), shown);
      }
    };
  }

  // Adds so many results.
  Effect Records(int32_t count, std::function<void()> prepare) {
    return [this, count, prepare = std::move(prepare)](const Run& run) {
      View().job.MetafileCreateChk = 0;
      const int32_t before = View().results.entryCount;
      prepare();
      run();
      EXPECT_EQ(View().results.entryCount, before + count);
    };
  }

  // A new window whose view is empty, or has the file.
  Effect NewWindow(const std::string& file = "") {
    return [this, file](const Run& run) {
      const auto before = Children().size();
      if (!file.empty()) user.OnFile(PutProgram(file, Program()));
      run();
      Settle();
      EXPECT_EQ(Children().size(), before + 1);
      EXPECT_EQ(View().fileName, file);
      EXPECT_EQ(View().program.store.blockCount == 0, file.empty());
      Load("part.nc");
    };
  }

  Effect Arranges(std::function<void(QRect first, QRect second)> expect) {
    return [this, expect = std::move(expect)](const Run& run) {
      while (Children().size() < 2) window->NewView();
      for (QMdiSubWindow* const child : Children()) child->showNormal();
      Settle();
      run();
      expect(Children()[0]->geometry(), Children()[1]->geometry());
      Load("part.nc");
    };
  }

  // A master model takes the place of its program, which the next one needs again.
  void MakeMaster() {
    LoadProgram(&View(), "c:\\marlo\\ncdata\\part.nc");
    user.Does<MasterFace>({{"OK"}});
    window->RunCommand(CommandId::kMasterBuild);
  }

  void Describe() {
    DescribeSettings();
    DescribeView();
    DescribePad();
    DescribeFrame();
  }
  void DescribeSettings();
  void DescribeView();
  void DescribePad();
  void DescribeFrame();

  bool HasEffect(CommandId id) const { return effects.contains(id); }
  void Check(CommandId id, const Run& run) {
    SCOPED_TRACE(static_cast<int>(id));
    effects.at(id)(run);
    EXPECT_TRUE(user.Done());
  }
  // The same by an entry or a button, which is enabled if there is a check.
  void Check(CommandId id, QAction* action) {
    ASSERT_NE(action, nullptr) << static_cast<int>(id);
    ASSERT_EQ(action->isEnabled(), HasEffect(id)) << static_cast<int>(id);
    if (action->isEnabled()) Check(id, [action] { action->trigger(); });
  }

  std::map<CommandId, Effect> effects;
};

void CommandsTest::DescribeSettings() {
  effects[CommandId::kConfiguration] = [this](const Run& run) {
    user.Does<DirSetupFace>({{"작업 DIR", "d:\\nc"}, {"저장"}});
    run();
    EXPECT_EQ(app.configuration.WorkDir, "d:\\nc");
    EXPECT_TRUE(Took("windows/tvx.cfg"));
  };
  effects[CommandId::kDirectoryList] = [this](const Run& run) {
    user.Does<DirListFace>({{"저장"}});
    run();
    EXPECT_TRUE(Took("marlo/dirlist.txt"));
  };
  using enum CommandId;
  size_t next = 1;
  for (const CommandId id : {kUserKey1, kUserKey2, kUserKey3, kUserKey4, kUserKey5, kUserKey6,
                             kUserKey7, kUserKey8, kUserKey9, kUserKey10, kUserKey11, kUserKey12}) {
    effects[id] = [this, key = next++](const Run& run) {
      app.UserKeys[key] = "G90";
      user.Does<KeyCodeFace>({{"M03"}, {"OK"}});
      run();
      EXPECT_EQ(app.UserKeys[key], "G90M03");
    };
  }
  effects[CommandId::kWriteUserKeys] = [this](const Run& run) {
    app.UserKeys[12] = "M30";
    run();
    EXPECT_TRUE(HostBytes(home / "drive_c/marlo/UserKey.txt").ends_with("M30\r\n"));
  };
  effects[CommandId::kAbout] = [this](const Run& run) {
    user.On<QMessageBox>([](QMessageBox* box) {
      EXPECT_EQ(box->text(), "TVX Afa Version 3.1");
      EXPECT_FALSE(box->iconPixmap().isNull());
      EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
      box->accept();
    });
    run();
  };
}

void CommandsTest::DescribeView() {
  effects[CommandId::kLoad] = [this](const Run& run) {
    user.OnFile(PutProgram("하나.nc", Program()));
    View().view.transform.viewScale = 1.25F;
    run();
    EXPECT_EQ(View().fileName, "하나.nc");
    EXPECT_EQ(files->CurrentDirectory(), "c:\\marlo\\ncdata");
    EXPECT_GT(View().program.store.blockCount, 100U);
    EXPECT_NE(View().view.transform.viewScale, 1.25F);
  };
  effects[CommandId::kWritePicture] = [this](const Run& run) {
    user.OnFile(home / "drive_c/marlo/shown.emf");
    run();
    EXPECT_TRUE(Took("marlo/shown.emf"));
  };
  effects[CommandId::kPlainCutTime] = Records(0, [] {});
  effects[CommandId::kSingleCutTime] = Records(1, [this] {
    user.Does<SendOptionFace>({{"OK"}});
    user.Does<FileInfoFace>({{"Info list에추가"}});
  });
  effects[CommandId::kRunJobList] = Records(1, [this] {
    user.On<TransferFace>([](TransferFace* face) {
      RowsOf(face, CTransferDlg::kFileListCaption)->setCurrentRow(0);
      Do(face, {{"삽입"}, {"전송"}});
    });
  });
  effects[CommandId::kResultList] = Opens<CutTimeListFace>();
  effects[CommandId::kMasterBuild] = [this](const Run& run) {
    user.Does<MasterFace>({{"OK"}});
    run();
    EXPECT_TRUE(HasMaster());
  };
  effects[CommandId::kMasterDelete] = [this](const Run& run) {
    MakeMaster();
    user.Does<QMessageBox>({{"OK"}});
    run();
    EXPECT_FALSE(HasMaster());
  };
  effects[CommandId::kMasterSave] = [this](const Run& run) {
    MakeMaster();
    user.OnFile(home / "drive_c/marlo/a.mma");
    run();
    EXPECT_TRUE(Took("marlo/a.mma"));
  };
  effects[CommandId::kMasterLoad] = [this](const Run& run) {
    MakeMaster();
    user.OnFile(home / "drive_c/marlo/b.mma");
    window->RunCommand(CommandId::kMasterSave);
    DropMaster(&View().masterGrid);
    user.OnFile(home / "drive_c/marlo/b.mma");
    run();
    EXPECT_TRUE(HasMaster());
  };
  effects[CommandId::kViewTop] = Turns({0, 0, 0});
  effects[CommandId::kViewFront] = Turns({270, 0, 0});
  effects[CommandId::kViewRight] = Turns({0, 90, 270});
  effects[CommandId::kViewIsometric] = Turns({300, 0, 330});
  effects[CommandId::kViewIsometric2] = Turns({300, 0, 240});
  effects[CommandId::kViewIsometric3] = Turns({300, 0, 150});
  effects[CommandId::kViewIsometric4] = Turns({300, 0, 60});
  effects[CommandId::kFit] = [this](const Run& run) {
    View().view.transform.viewScale = 1.25F;
    run();
    EXPECT_NE(View().view.transform.viewScale, 1.25F);
  };
  effects[CommandId::kRedraw] = [this](const Run& run) {
    const QSignalSpy drawn(window->ActiveView(), &ViewWidget::Drawn);
    run();
    EXPECT_EQ(drawn.count(), 1);
  };
  effects[CommandId::kToggleRapids] = [this](const Run& run) {
    const int32_t before = View().view.RapidVisible;
    run();
    EXPECT_NE(View().view.RapidVisible, before);
    EXPECT_EQ(View().job.RapidShown, View().view.RapidVisible);
  };
}

// The buttons of the pad that are no commands of the tables.
void CommandsTest::DescribePad() {
  effects[CommandId::kPadJobList] = [this](const Run& run) {
    user.Rejects<TransferFace>();
    user.Rejects<CutTimeListFace>();
    run();
  };
  effects[CommandId::kPadRapids] = effects.at(CommandId::kToggleRapids);
  effects[CommandId::kPadOptions] = Opens<OptionFace>();
  effects[CommandId::kPadCancel] = [this](const Run& run) {
    const int32_t rapids = View().view.RapidVisible;
    run();
    EXPECT_EQ(View().view.RapidVisible, rapids);
  };
}

void CommandsTest::DescribeFrame() {
  effects[CommandId::kNewDocument] = effects[CommandId::kNewWindow] = NewWindow();
  effects[CommandId::kOpenDocument] = NewWindow("opened.nc");
  effects[CommandId::kPrintSetup] = Opens<QPageSetupDialog>();
  effects[CommandId::kPrint] = Opens<QPrintDialog>();
  effects[CommandId::kPrintPreview] = [this](const Run& run) {
    user.On<QPrintPreviewDialog>([](QPrintPreviewDialog* preview) {
      EXPECT_EQ(preview->findChild<QPrintPreviewWidget*>()->pageCount(), 1);
      preview->reject();
    });
    run();
  };
  effects[CommandId::kExit] = [this](const Run& run) {
    run();
    EXPECT_FALSE(window->isVisible());
    window->show();
    Settle();
  };
  effects[CommandId::kToolBar] = Toggles(window->findChild<QToolBar*>());
  effects[CommandId::kStatusBar] = Toggles(window->statusBar());
  effects[CommandId::kCascade] = Arranges([](QRect first, QRect second) {
    EXPECT_EQ(first.size(), second.size());
    EXPECT_NE(first.topLeft(), second.topLeft());
  });
  effects[CommandId::kTileHorizontally] = Arranges([](QRect first, QRect second) {
    EXPECT_EQ(first.width(), second.width());
    EXPECT_EQ(first.bottom() + 1, second.top());
  });
  effects[CommandId::kTileVertically] = Arranges([](QRect first, QRect second) {
    EXPECT_EQ(first.height(), second.height());
    EXPECT_EQ(first.right() + 1, second.left());
  });
  effects[CommandId::kArrangeIcons] = [this](const Run& run) {
    QMdiSubWindow* const child = Children().front();
    for (QMdiSubWindow* const open : Children()) open->showNormal();
    child->showMinimized();
    Settle();
    EXPECT_TRUE(child->isMinimized());
    child->move(50, 50);
    run();
    EXPECT_EQ(child->geometry().bottomLeft(), child->parentWidget()->rect().bottomLeft());
    child->showMaximized();
    Settle();
  };
}

TEST_F(CommandsTest, EveryEntryOfTheWorkingMenu) {
  for (const MenuRow& row : WorkingMenu()) Check(row.id, Entry(row));
}

TEST_F(CommandsTest, EveryKey) {
  for (const std::span<const Accelerator> table : {ViewAccelerators(), FrameAccelerators()}) {
    for (const Accelerator& accelerator : table) {
      SCOPED_TRACE(accelerator.key);
      // The key of a view in the first table, which comes first.
      if (accelerator.key == std::string_view("F6") && accelerator.id == CommandId::kNextPane)
        continue;
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
  const QList<QAction*> actions = window->findChild<QToolBar*>()->actions();
  ASSERT_EQ(static_cast<size_t>(actions.size()), ToolBar().size());
  for (size_t i = 0; i < ToolBar().size(); ++i) {
    QAction* const action = actions[static_cast<qsizetype>(i)];
    EXPECT_EQ(action->isSeparator(), ToolBar()[i].id == CommandId::kNone);
    if (action->isSeparator()) continue;
    EXPECT_FALSE(action->icon().isNull()) << ToolBar()[i].text;
    Check(ToolBar()[i].id, action);
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
    Check(PrinterMenu()[i].id, entry);
  }
}

// The files opened last stand in the place of an entry that is shown only while there are none.
constexpr CommandId kRecentFiles = CommandId::kRecentFiles;

TEST_F(CommandsTest, EveryEntryOfTheMenuWithoutADocument) {
  OpenWindow();
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
    Check(row.id, entry);
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
        EXPECT_EQ(pad->isVisible(), button.id == CommandId::kResultList);
        if (pad->isVisible()) Click(pad, "취소");
      });
      QTest::mouseClick(window->ActiveView(), Qt::LeftButton, {}, {100, 100});
    });
  }
}

QString InEnglish(const char* text) {
  UseLanguage(kEnglishLabels);
  QString english = Translated(text);
  UseLanguage(kKoreanLabels);
  return english;
}

// Without the marks of access keys, and the key as printed behind a blank.
QString Plain(QString text) {
  return text.remove(QRegularExpression("\\(&[A-Z]\\)")).remove('&').replace('\t', ' ');
}

// The table of the page, a row for each command in the order of the tables.
class CommandsPage {
 public:
  CommandsPage() {
    for (const auto& menu : {WorkingMenu(), EmptyMenu()}) {
      for (const MenuRow& row : menu) {
        const QString submenu = *row.submenu == '\0' ? "" : " > " + Plain(ToQt(row.submenu));
        Add(row.id, row.text, Plain(ToQt(row.menu)) + submenu);
      }
    }
    for (const MenuRow& row : PrinterMenu()) Add(row.id, row.text, "arrow beside the printer");
    for (const ToolButton& button : ToolBar()) {
      if (button.id != CommandId::kNone) Add(button.id, button.text, "tool bar");
    }
    for (const auto& button : CCommandPadDlg::Buttons()) Add(button.id, button.text, "command pad");
    for (const auto table : {ViewAccelerators(), FrameAccelerators()}) {
      for (const Accelerator& key : table) Add(key.id, "", "", key.key);
    }
  }

  // With what happens, by command.
  QString Text(std::map<int, QString> words) {
    QString text;
    for (const CommandId id : order_) {
      text += "| " + QString::number(static_cast<int>(id));
      for (QStringList& cell : cells_[id]) {
        cell.removeDuplicates();
        cell.removeAll("");
        text += " | " + cell.join(&cell == &cells_[id].back() ? ", " : "; ");
      }
      text += " | " + words[static_cast<int>(id)] + " |\n";
    }
    return text;
  }

 private:
  void Add(CommandId id, const char* text, const QString& place, const char* key = "") {
    if (!order_.contains(id)) order_ << id;
    const QString korean = Plain(ToQt(text));
    const QString english = Plain(InEnglish(text));
    const QStringList cells = {korean, english == korean ? "" : english, place, key};
    for (size_t i = 0; i < 4; ++i) cells_[id][i] << cells[static_cast<qsizetype>(i)];
  }

  QList<CommandId> order_;
  std::map<CommandId, std::array<QStringList, 4>> cells_;  // texts, in English, places, keys
};

// What happens is told by hand, in the last column of the table, and so is all around it.
TEST_F(CommandsTest, ThePageTellsThem) {
  const QString page = ToQt(HostBytes(TVX_COMMANDS_PAGE));
  std::map<int, QString> words;
  for (const QString& line : page.split('\n')) {
    const QStringList cells = line.split(" | ");
    if (cells.size() == 6) words[cells[0].mid(2).toInt()] = cells[5].chopped(2);
  }
  for (const auto& [id, told] : words) {
    const bool acts =
        HasEffect(CommandId{id}) || CommandId{id} == kRecentFiles || id == 0;  // 0: the heads
    EXPECT_EQ(!told.startsWith("no action"), acts) << static_cast<int>(id);
  }
  const auto from = page.indexOf("\n| 3") + 1;
  const auto to = page.indexOf("\n\n", from) + 1;
  const QString expected = page.left(from) + CommandsPage().Text(words) + page.mid(to);
  if (qEnvironmentVariableIsSet("TVX_ACCEPT")) {
    std::ofstream(TVX_COMMANDS_PAGE) << FromQt(expected);
  }
  EXPECT_EQ(expected, page) << "scripts/accept-commands takes the new page";
}

}  // namespace
}  // namespace tvx
