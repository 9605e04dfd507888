// The list of results in its window.

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>

#include "desktop/result_faces.h"
#include "desktop_test.h"
#include "reports/example_entry.h"

namespace tvx {
namespace {

constexpr CommandId kListCommand = CommandId::kResultList;

using Names = std::vector<std::string>;

QListWidget* FilesOf(CutTimeListFace* face) {
  return face->findChild<QListWidget*>("files");
}
QListWidget* LinesOf(CutTimeListFace* face) {
  return face->findChild<QListWidget*>("information");
}

class CutTimeListWindow : public DesktopTest {
 protected:
  explicit CutTimeListWindow(int32_t language = kKoreanLabels) : DesktopTest(language) {
    View().results = TableOf({PlainEntry("a.nc"), AdjustedEntry("b.nc")});
  }
};

TEST_F(CutTimeListWindow, ShowsDeletesAndClears) {
  user.On<CutTimeListFace>([this](CutTimeListFace* face) {
    EXPECT_EQ(face->windowTitle(), "TVX 출력");
    QListWidget* const list = FilesOf(face);
    const QListWidget* const lines = LinesOf(face);
    EXPECT_EQ(Texts(*list), (Names{"a.nc", "b.nc"}));
    EXPECT_EQ(EditOf(face, "전체 시간 ")->text(), "29.65");
    list->setFocus();
    EXPECT_TRUE(list->selectedItems().isEmpty());
    EXPECT_EQ(lines->count(), 0) << "nothing is selected by the focus alone";
    user.Does<QMessageBox>({{"OK"}});
    Click(face, "화일삭제");
    ClickRow(list, 1);
    EXPECT_EQ(Texts(*lines).size(), 26U);
    EXPECT_EQ(Texts(*lines).back(), "그림화일 b.nc.emf");
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(list->currentRow(), 0);
    Click(face, "화일삭제");
    EXPECT_EQ(Texts(*list), Names{"b.nc"});
    EXPECT_EQ(lines->count(), 11) << "kept until the next selection";
    EXPECT_TRUE(list->selectedItems().isEmpty());
    EXPECT_EQ(EditOf(face, "전체 시간 ")->text(), "14.83");
    Click(face, "OK");
  });
  window->RunCommand(kListCommand);
  EXPECT_EQ(View().results.entryCount, 1);
  user.Does<CutTimeListFace>({{"청소"}});
  window->RunCommand(kListCommand);
  EXPECT_EQ(View().results.entryCount, 0);
}

TEST_F(CutTimeListWindow, WritesItsReports) {
  user.Does<CutTimeListFace>(
      {{"화일 출력"}, {"AFA 출력"}, {"AFA 출력, Copy"}, {"스프레드시트 출력"}, {"Cancel"}});
  const std::filesystem::path out = home / "drive_c/windows";
  for (const char* const name : {"r.tvx", "l.mcf", "c.mcf", "times.xls"}) {
    home.Put("drive_c/windows/" + std::string(name), "older");
    user.OnFile(out / name);
    // Asks before a report is overwritten, and not for a list.
    if (name != std::string("r.tvx")) continue;
    user.On<QMessageBox>(
        [](QMessageBox* question) { question->button(QMessageBox::Yes)->click(); });
  }
  PutProgram("a.nc", "G0 X1\n");
  user.On<QMessageBox>([](QMessageBox* message) {
    EXPECT_EQ(message->text(), "Couldn't start Excel.");
    message->accept();
  });
  window->RunCommand(kListCommand);
  EXPECT_TRUE(HostBytes(out / "r.tvx").starts_with("\r\n\xC8\xAD"));
  EXPECT_TRUE(HostBytes(out / "l.mcf").starts_with("File a.nc Dir X:\\windows FS 20480 "));
  EXPECT_EQ(HostBytes(out / "c.mcf").substr(0, 20), "File a.nc Dir X:\\win");
  EXPECT_EQ(HostBytes(out / "a.nc"), "G0 X1\n");
}

class EnglishCutTimeList : public CutTimeListWindow {
 protected:
  EnglishCutTimeList() : CutTimeListWindow(kEnglishLabels) {}
};

TEST_F(EnglishCutTimeList, NamesAloneStayAsTheyAre) {
  CutTimeEntry& entry = View().results.entries[1];
  entry.dirName = "c:\\번호";
  entry.pictureName = "번호.emf";
  user.On<CutTimeListFace>([](CutTimeListFace* face) {
    ClickRow(FilesOf(face), 1);
    const Names lines = Texts(*LinesOf(face));
    EXPECT_EQ(lines[0], "Dir : c:\\번호");
    EXPECT_EQ(lines[17], "MMA c:\\die\\코아.mma");
    EXPECT_EQ(lines[25], "Picture file 번호.emf");
    Click(face, "Remove file");
    face->accept();
  });
  window->RunCommand(kListCommand);
}

}  // namespace
}  // namespace tvx
