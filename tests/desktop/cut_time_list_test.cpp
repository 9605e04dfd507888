// The list of results in its window.

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>

#include "desktop/cut_time_list_face.h"
#include "desktop_test.h"
#include "reports/example_entry.h"

namespace tvx {
namespace {

constexpr int kListCommand = 32774;

QStringList Rows(const QListWidget* list) {
  QStringList rows;
  for (int i = 0; i < list->count(); ++i) rows << list->item(i)->text();
  return rows;
}

QListWidget* FilesOf(CutTimeListFace* face) {
  return face->findChild<QListWidget*>("files");
}
QListWidget* LinesOf(CutTimeListFace* face) {
  return face->findChild<QListWidget*>("information");
}

void ClickRow(QListWidget* list, int row) {
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(row)).center());
}

class CutTimeListWindow : public DesktopTest {
 protected:
  explicit CutTimeListWindow(int32_t language = kKoreanLabels) : DesktopTest(language) {
    View().results = TableOf({PlainEntry("a.nc"), AdjustedEntry("b.nc")});
  }
};

TEST_F(CutTimeListWindow, ShowsTheLinesOfTheClickedFile) {
  user.On<CutTimeListFace>([](CutTimeListFace* face) {
    EXPECT_EQ(face->windowTitle(), "TVX 출력");
    QListWidget* const list = FilesOf(face);
    const QListWidget* const lines = LinesOf(face);
    EXPECT_EQ(Rows(list), QStringList({"a.nc", "b.nc"}));
    EXPECT_EQ(EditOf(face, "전체 시간 ")->text(), "29.65");
    list->setFocus();
    EXPECT_TRUE(list->selectedItems().isEmpty());
    EXPECT_EQ(lines->count(), 0) << "nothing is selected by the focus alone";
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_EQ(lines->count(), 11);
    ClickRow(list, 1);
    EXPECT_EQ(lines->count(), 26);
    EXPECT_EQ(lines->item(25)->text(), "그림화일 b.nc.emf");
    Click(face, "OK");
  });
  window->RunCommand(kListCommand);
  EXPECT_EQ(View().results.entryCount, 2);
}

TEST_F(CutTimeListWindow, DeletesAndClears) {
  user.On<CutTimeListFace>([&](CutTimeListFace* face) {
    Click(face, "화일삭제");
    ClickRow(FilesOf(face), 0);
    Click(face, "화일삭제");
    EXPECT_EQ(Rows(FilesOf(face)), QStringList("b.nc"));
    EXPECT_EQ(LinesOf(face)->count(), 11) << "kept until the next selection";
    EXPECT_TRUE(FilesOf(face)->selectedItems().isEmpty());
    EXPECT_EQ(EditOf(face, "전체 시간 ")->text(), "14.83");
    Click(face, "청소");
    EXPECT_FALSE(face->isVisible());
  });
  user.On<QMessageBox>([](QMessageBox* message) {
    EXPECT_EQ(message->windowTitle(), "DNC message");
    message->accept();
  });
  window->RunCommand(kListCommand);
  EXPECT_EQ(View().results.entryCount, 0);
}

TEST_F(CutTimeListWindow, WritesItsReports) {
  user.Does<CutTimeListFace>(
      {{"화일 출력"}, {"AFA 출력"}, {"AFA 출력, Copy"}, {"스프레드시트 출력"}, {"Cancel"}});
  const std::filesystem::path out = home / "drive_c/windows";
  home.Put("drive_c/windows/times.xls", "");
  PutProgram("a.nc", "G0 X1\n");
  for (const char* const name : {"r.tvx", "l.mcf", "c.mcf", "times.xls"}) user.OnFile(out / name);
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

TEST_F(CutTimeListWindow, AsksBeforeAReportIsOverwrittenAndNotForAList) {
  const std::filesystem::path report = home.Put("drive_c/marlo/r.tvx", "older");
  const std::filesystem::path list = home.Put("drive_c/marlo/l.mcf", "older");
  user.On<CutTimeListFace>([](CutTimeListFace* face) {
    Click(face, "화일 출력");
    Click(face, "AFA 출력");
    face->reject();
  });
  user.OnFile(report);
  user.On<QMessageBox>([](QMessageBox* message) {
    EXPECT_EQ(message->standardButtons(), QMessageBox::Yes | QMessageBox::No);
    message->button(QMessageBox::Yes)->click();
  });
  user.OnFile(list);
  window->RunCommand(kListCommand);
  EXPECT_NE(HostBytes(report), "older");
  EXPECT_TRUE(HostBytes(list).starts_with("File "));
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
    const QStringList lines = Rows(LinesOf(face));
    EXPECT_EQ(lines[0], "Dir : c:\\번호");
    EXPECT_EQ(lines[17], "MMA c:\\die\\코아.mma");
    EXPECT_EQ(lines[25], "Picture file 번호.emf");
    EXPECT_EQ(lines.filter(QRegularExpression("[가-힣]")).size(), 3);
    Click(face, "Remove file");
    face->accept();
  });
  window->RunCommand(kListCommand);
}

}  // namespace
}  // namespace tvx
