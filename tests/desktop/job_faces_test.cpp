// The windows of a job: the job dialog with its lists, buttons and keys, the key-code pad.

#include "desktop/job_faces.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTreeWidget>

#include "desktop/condition_faces.h"
#include "desktop/restart_face.h"
#include "desktop_test.h"

namespace tvx {
namespace {

using Names = std::vector<std::string>;

class StartedPrograms : public Programs {
 public:
  bool Start(const std::string& program, const std::string& path) override {
    started.push_back(program + " " + path);
    return true;
  }
  bool HasWindowOfClass(const std::string& /*windowClass*/) override { return false; }
  void Quit() override {}
  Names started;
};

// As the system reports it: a click, and then the second press.
void DoubleClickRow(QListWidget* list, int row) {
  ClickRow(list, row);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, CentreOf(list, row));
}

void PressIn(QWidget* widget, std::initializer_list<Qt::Key> keys) {
  QApplication::setActiveWindow(widget->window());
  widget->setFocus();
  for (const Qt::Key key : keys) QTest::keyClick(widget, key);
  QApplication::processEvents();
}

QListWidget* FilesOf(QWidget* face) {
  return RowsOf(face, CTransferDlg::kFileListCaption);
}
QListWidget* EntriesOf(QWidget* face) {
  return RowsOf(face, CTransferDlg::kJobListCaption);
}
QListWidget* InformationOf(QWidget* face) {
  return RowsOf(face, CTransferDlg::kInfoListCaption);
}

void ClickFolder(QWidget* face, const char* name) {
  auto* const tree = face->findChild<QTreeWidget*>();
  const auto found = tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1) << name;
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                    tree->visualItemRect(found.constFirst()).center());
  QApplication::processEvents();
}

class JobFaces : public DesktopTest {
 protected:
  JobFaces() {
    PutProgram("a.nc", "G90 G0 X0 Y0 Z10\nG1 Z0 F500\nX100\nY100\nG0 Z10\n");
    PutProgram("b.nc", "G90 G0 X0 Y0 Z10\nG1 Z0 F500\nX50\nY50\nG0 Z10\n");
    PutProgram("empty.nc", "");
    PutProgram("note.txt", "x");
    PutProgram("sub/deeper/e.nc", "G1 X1 F100\n");
    PutProgram("sub/d.nc", "G90 G0 X0 Y0\nG1 X30 F300\n");
    slot.WorkDir = "c:\\marlo\\ncdata";
    working.FirstEditable = 0;
  }

  // Opens the dialog for a user. After every step the lists hold together and are those shown.
  bool Run(std::function<void(TransferFace*)> act) {
    dialog.Open({&slot, &working, "c:\\marlo", "ed", &app.ExtensionList, &programs});
    user.On<TransferFace>([this, act = std::move(act)](TransferFace* face) {
      act(face);
      ExpectConsistent(face);
      face->reject();
    });
    return ui.RunModal(&dialog);
  }

  void ExpectConsistent(TransferFace* face) {
    EXPECT_EQ(dialog.list.names.size(), dialog.list.lines.size());
    EXPECT_EQ(Texts(*EntriesOf(face)), dialog.list.names);
    EXPECT_EQ(Texts(*InformationOf(face)), dialog.information);
    EXPECT_EQ(Texts(*FilesOf(face)), dialog.browser.files);
  }

  void ClickAnd(TransferFace* face, const char* button) {
    Click(face, button);
    ExpectConsistent(face);
  }
  // The same with what the user types on the key-code pad that opens.
  void ClickPad(TransferFace* face, const char* button, const char* text) {
    user.Does<KeyCodeFace>({{"", text}, {"OK"}});
    ClickAnd(face, button);
  }
  // And with the message box that opens: what it says is one of the dialog's own texts.
  void ClickMessage(TransferFace* face, const char* button, JobMessage message) {
    user.On<QMessageBox>([message](QMessageBox* box) {
      EXPECT_EQ(FromQt(box->text()), MessageOf(message).text);
      EXPECT_EQ(FromQt(box->windowTitle()), MessageOf(message).caption);
      box->accept();
    });
    ClickAnd(face, button);
  }

  JobRecord slot, working;
  StartedPrograms programs;
  CTransferDlg dialog{&app.UserKeys, files.get(), &ui};
};

TEST_F(JobFaces, AClickOnTheTreeBrowsesAndASecondOneDoesNot) {
  Run([&](TransferFace* face) {
    EXPECT_EQ(Texts(*FilesOf(face)), (Names{"a.nc", "b.nc", "empty.nc"}));
    ClickFolder(face, "sub");
    EXPECT_EQ(dialog.browser.directory, "c:\\marlo\\ncdata\\sub");
    EXPECT_EQ(dialog.ListOptions().WorkDir, "c:\\marlo\\ncdata\\sub");
    EXPECT_EQ(Texts(*FilesOf(face)), Names{"d.nc"});

    // The other press of a double click, on the folder that now stands there.
    auto* const tree = face->findChild<QTreeWidget*>();
    const auto deeper = tree->findItems("deeper", Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(deeper.size(), 1);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {},
                       tree->visualItemRect(deeper[0]).center());
    Settle();
    EXPECT_EQ(dialog.browser.directory, "c:\\marlo\\ncdata\\sub");

    std::filesystem::remove_all(home / "drive_c/marlo/ncdata/sub/deeper");
    ClickFolder(face, "deeper");  // it has gone since: the directory stays
    EXPECT_EQ(dialog.browser.directory, "c:\\marlo\\ncdata\\sub");
    EXPECT_TRUE(tree->findItems("deeper", Qt::MatchExactly | Qt::MatchRecursive).empty());
    std::filesystem::remove_all(home / "drive_c/marlo/ncdata/sub");
    ClickFolder(face, "[z:]");
    EXPECT_EQ(dialog.browser.directory, "z:\\");
    ClickFolder(face, "[c:]");
    ClickFolder(face, "marlo");
    EXPECT_EQ(dialog.browser.Items().back().text, "ncdata");
  });
}

TEST_F(JobFaces, AllIsReachedByKeys) {
  Run([&](TransferFace* face) {
    auto* const tree = face->findChild<QTreeWidget*>();
    PressIn(tree, {Qt::Key_Down});
    EXPECT_EQ(dialog.browser.directory, "c:\\marlo\\ncdata") << "Enter browses, not an arrow";
    PressIn(tree, {Qt::Key_Enter});
    EXPECT_EQ(dialog.browser.directory, "c:\\marlo\\ncdata\\sub");
    PressIn(tree, {Qt::Key_Up, Qt::Key_Return});
    EXPECT_EQ(dialog.browser.directory, "c:\\marlo\\ncdata");

    PressIn(FilesOf(face), {Qt::Key_Shift});
    EXPECT_EQ(dialog.selectedFile, -1) << "the focus alone selects nothing";
    PressIn(FilesOf(face), {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return, Qt::Key_Up, Qt::Key_Enter});
    EXPECT_EQ(dialog.list.names, (Names{"b.nc", "a.nc"}));
    ExpectConsistent(face);

    QListWidget* const entries = EntriesOf(face);
    PressIn(entries, {Qt::Key_Down});
    EXPECT_EQ(dialog.selectedEntry, entries->currentRow());
    PressIn(entries, {Qt::Key_Home});
    EXPECT_EQ(dialog.information.at(0), "화일명 : b.nc ");
    PressIn(entries, {Qt::Key_Return});
    PressIn(InformationOf(face), {Qt::Key_Down, Qt::Key_Return});
    EXPECT_TRUE(face->isVisible()) << "Enter belongs to the lists";
    PressIn(entries, {Qt::Key_Delete});
    EXPECT_EQ(dialog.list.names, Names{"a.nc"});
  });
}

TEST_F(JobFaces, TheButtonsOfTheLists) {
  home.Put("drive_c/lists/old.mcf", "File a.nc Dir X:\\lists FS 5 RT OFF Afa OFF  \r\n");
  Run([&](TransferFace* face) {
    ClickMessage(face, "삽입", JobMessage::kNoFileSelected);
    ClickMessage(face, "삭제", JobMessage::kEntryIsFrozen);
    for (const char* const nothing : {"화일정보", "미리보기", "편집", "K저장", "K읽기"}) {
      ClickAnd(face, nothing);  // there is no entry
    }
    EXPECT_TRUE(dialog.information.empty());

    DoubleClickRow(FilesOf(face), 0);
    EXPECT_EQ(dialog.list.names, Names{"a.nc"});
    user.Does<QMessageBox>({{"OK"}});
    DoubleClickRow(FilesOf(face), 2);
    EXPECT_EQ(dialog.list.names, Names{"a.nc"}) << "an empty file is refused";
    ClickRow(EntriesOf(face), 0);
    ClickRow(FilesOf(face), 1);
    ClickAnd(face, "삽입");
    EXPECT_EQ(dialog.list.names, (Names{"b.nc", "a.nc"})) << "in front of the selected entry";
    DoubleClickRow(FilesOf(face), 1);
    EXPECT_EQ(dialog.list.names, (Names{"b.nc", "a.nc", "b.nc"})) << "always at the end";

    ClickRow(EntriesOf(face), 1);
    ClickAnd(face, "미리보기");
    EXPECT_EQ(dialog.information.at(0), "G90 G0 X0 Y0 Z10");
    ClickAnd(face, "화일정보");
    EXPECT_EQ(dialog.information.at(0), "화일명 : a.nc ");
    ClickAnd(face, "편집");
    EXPECT_EQ(programs.started, Names{"ed c:\\marlo\\ncdata\\a.nc"});

    user.OnFile(home / "drive_c/lists/old.mcf");
    const std::pair<const char*, Names> steps[] = {{"저장", {"b.nc", "a.nc", "b.nc"}},
                                                   {"삭제", {"b.nc", "b.nc"}},
                                                   {"청소", {}},
                                                   {"읽기", {"b.nc", "a.nc", "b.nc"}},
                                                   {"TVX", {"a.nc"}}};
    for (const auto& [button, names] : steps) {
      ClickAnd(face, button);
      EXPECT_EQ(dialog.list.names, names) << button;
    }
    EXPECT_EQ(dialog.list.lines, Names{"Dir c:\\lists FS 5 RT OFF Afa OFF "});
    DoubleClickRow(EntriesOf(face), 0);
    EXPECT_EQ(dialog.list.names, Names());
  });
}

TEST_F(JobFaces, TheMaskDecidesWhichFilesAreListed) {
  Run([&](TransferFace* face) {
    auto* const masks = face->findChild<QComboBox*>();
    EXPECT_EQ(masks->currentText(), "*.nc");
    ClickRow(FilesOf(face), 1);
    masks->setFocus();
    QTest::keyClick(masks, Qt::Key_Home);
    EXPECT_EQ(dialog.ListOptions().NcdataExt, "*.*");
    EXPECT_EQ(Texts(*FilesOf(face)).size(), 4U);
    EXPECT_EQ(dialog.selectedFile, -1);
    ClickPad(face, "화일확장자", "*.txt");
    EXPECT_EQ(masks->currentText(), "*.txt");
    EXPECT_EQ(Texts(*FilesOf(face)), Names{"note.txt"});
    user.Does<KeyCodeFace>({{"Cancel"}});
    ClickAnd(face, "화일확장자");
    EXPECT_EQ(Texts(*FilesOf(face)), Names{"note.txt"});
  });
}

TEST_F(JobFaces, TheOptionsGoWithTheFilesToCome) {
  Run([&](TransferFace* face) {
    DoubleClickRow(FilesOf(face), 0);
    Click(face, CTransferDlg::kDeleteM30);
    EXPECT_EQ(dialog.ListOptions().DeleteM30, 1);
    user.Does<RestartFace>({{"시퀀스 번호"}, {"", "120"}, {"OK"}});
    Click(face, CTransferDlg::kRestartButton);
    EXPECT_NE(ButtonOf(face, "재전송: 번호->120"), nullptr);
    user.Does<SendOptionFace>({{"최대 피드", "2000"}, {"Spindle"}, {"OK"}});
    QAbstractButton* const condition = ButtonFrom(face, "Afa조건:");
    condition->click();
    EXPECT_NE(condition->text().indexOf("2000"), -1);
    DoubleClickRow(FilesOf(face), 0);
    user.Does<SendOptionFace>({{"Cancel"}});
    condition->click();
    EXPECT_EQ(condition->text(), "Afa조건: ");
    user.Does<RestartFace>({{"Cancel"}});
    Click(face, "재전송: 번호->120");
    DoubleClickRow(FilesOf(face), 0);

    const Names& lines = dialog.list.lines;
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_TRUE(ToQt(lines[0]).contains("M30 ON RT OFF Afa ON ")) << lines[0];
    const QRegularExpression second(
        "^((?!M30).)* RT ON  1  120 Afa ON .* MAF 2000 .* KeyCode  S1000");
    EXPECT_TRUE(ToQt(lines[1]).contains(second)) << lines[1];
    EXPECT_TRUE(ToQt(lines[2]).contains(" RT OFF Afa OFF ")) << lines[2];
  });
}

TEST_F(JobFaces, TheKeyCodeButtonsWorkOnTheSelectedRow) {
  const auto selectWord = [](TransferFace* face, const char* row) {
    const auto found = InformationOf(face)->findItems(row, Qt::MatchExactly);
    ASSERT_FALSE(found.empty()) << row;
    InformationOf(face)->scrollToItem(found[0]);
    ClickRow(InformationOf(face), InformationOf(face)->row(found[0]));
  };
  Run([&](TransferFace* face) {
    DoubleClickRow(FilesOf(face), 0);
    const std::string bare = dialog.list.lines[0];
    const auto codes = [&] { return dialog.list.lines[0].substr(bare.size()); };
    for (const char* const guarded : {"K추가", "K삽입", "K삭제", "K수정", "K읽기"}) {
      ClickMessage(face, guarded, JobMessage::kEntryIsFrozen);
    }
    ClickRow(EntriesOf(face), 0);
    const struct {
      const char* row;  // selected before; null: none
      const char* button;
      const char* typed;  // null: no pad opens
      const char* codes;
    } steps[] = {
        {nullptr, "K추가", "G90", "G90"},
        {nullptr, "K삽입", "S1000", "G90 S1000"},  // at the end
        {"  S1000", "K삽입", "G54", "G90 G54  S1000"},
        {nullptr, "K저장", nullptr, "G90 G54  S1000"},
        {"  G90", "K수정", "G91", "G91 G54  S1000"},
        {"  G54", "K삭제", nullptr, "G91   S1000"},
        {nullptr, "K삭제", nullptr, "G91   "},  // the last one
        {nullptr, "K읽기", nullptr, "G90 G54  S1000"},
    };
    for (const auto& step : steps) {
      if (step.row != nullptr) selectWord(face, step.row);
      if (step.typed != nullptr) {
        ClickPad(face, step.button, step.typed);
      } else {
        ClickAnd(face, step.button);
      }
      EXPECT_EQ(codes(), std::string(" KeyCode  ") + step.codes) << step.button;
    }
    user.On<KeyCodeFace>([](KeyCodeFace* pad) {
      EXPECT_EQ(pad->findChild<QLineEdit*>()->text(), "S1000");
      pad->reject();
    });
    ClickAnd(face, "K수정");
    EXPECT_EQ(codes(), " KeyCode  G90 G54  S1000");
  });
}

TEST_F(JobFaces, EveryButtonOfThePadWritesIntoItsField) {
  for (size_t n = 1; n <= 12; ++n) app.UserKeys[n] = "u" + std::to_string(n);
  CKeyCodeDlg pad(&app.UserKeys);
  pad.Open();
  user.On<KeyCodeFace>([&](KeyCodeFace* face) {
    auto* const field = face->findChild<QLineEdit*>();
    std::string expected;
    int buttons = 0;
    for (QAbstractButton* const button : face->findChildren<QAbstractButton*>()) {
      const std::string caption = FromQt(button->text());
      if (caption == "OK" || caption == "Cancel" || caption == "Clear") continue;
      expected += caption.starts_with("UK")
                      ? "u" + std::to_string(std::stoi(caption.substr(2))) + " "
                      : caption;
      QTest::mouseClick(button, Qt::LeftButton);
      ++buttons;
    }
    EXPECT_EQ(buttons, 90);
    EXPECT_EQ(FromQt(field->text()), expected);
    EXPECT_TRUE(expected.ends_with("G92u1 u2 u3 u4 u5 u6 u7 u8 u9 u10 u11 ")) << expected;

    Click(face, "Clear");
    EXPECT_EQ(field->text(), "");
    field->setFocus();
    QTest::keyClicks(field, "x");
    Click(face, "G90");
    EXPECT_EQ(field->text(), "xG90") << "typed text stays";
    EXPECT_EQ(face->focusWidget(), field) << "and the typing goes on";
    face->reject();
  });
  EXPECT_FALSE(ui.RunModal(&pad));
  EXPECT_EQ(pad.KeyText, "") << "a cancel leaves it";

  pad.Open();
  user.On<KeyCodeFace>([](KeyCodeFace* face) {
    Click(face, "M03");
    QTest::keyClick(face->findChild<QLineEdit*>(), Qt::Key_Return);
  });
  EXPECT_TRUE(ui.RunModal(&pad));
  EXPECT_EQ(pad.KeyText, "M03");
}

TEST_F(JobFaces, TheFaceFitsOnASmallScreenAndGrowsWithItsWindow) {
  const std::string folder = "folders/of/names/" + std::string(200, 'd');
  home.Put("drive_c/" + folder + "/a.nc", "x");
  slot.WorkDir = "c:\\" + folder;
  Run([&](TransferFace* face) {
    EXPECT_EQ(face->findChild<QTreeWidget*>()->currentItem()->text(0).size(), 200);
    dialog.restartCaption = "재전송: 좌표->XYZ(-1234.56, -1234.56, -1234.56)  공차->  1.50  ";
    ClickAnd(face, "청소");
    face->resize(1180, 640);
    Settle();
    EXPECT_EQ(face->size(), QSize(1180, 640));
    const int before = EntriesOf(face)->height();
    face->resize(1800, 1000);
    Settle();
    EXPECT_EQ(EntriesOf(face)->height(), before + 360);
  });
}

TEST_F(JobFaces, ListsStayWhereTheUserLooks) {
  for (int i = 0; i < 80; ++i) PutProgram("n" + std::to_string(100 + i) + ".nc", "G1 X1 F100\n");
  Run([&](TransferFace* face) {
    QListWidget* const list = FilesOf(face);
    list->scrollToBottom();
    const int row = list->count() - 1;
    const auto isVisible = [](QListWidget* rows, int at) {
      return rows->viewport()->rect().contains(CentreOf(rows, at));
    };
    for (int i = 0; i < 80; ++i) DoubleClickRow(list, row);
    EXPECT_TRUE(isVisible(list, row));
    EXPECT_TRUE(isVisible(EntriesOf(face), 79)) << "follows what is appended";
    EntriesOf(face)->scrollToTop();
    Click(face, CTransferDlg::kDeleteM30);
    ClickAnd(face, "화일정보");
    EXPECT_TRUE(isVisible(EntriesOf(face), 0));
    ClickRow(EntriesOf(face), 0);
    ClickAnd(face, "삭제");
    EXPECT_TRUE(isVisible(EntriesOf(face), 0));
    EXPECT_TRUE(isVisible(list, row));
  });
}

}  // namespace
}  // namespace tvx
