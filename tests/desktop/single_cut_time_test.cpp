// The road of one file through the windows: Ctrl+T, the send options, the feed adjustment, the
// figures, the recorded result and its picture.

#include <QAbstractButton>
#include <QListWidget>

#include "desktop/condition_faces.h"
#include "desktop/file_info_face.h"
#include "desktop_test.h"

namespace tvx {
namespace {

// Down a wall and round a corner at a programmed feed of 500.
constexpr char kProgram[] = "G90 G0 X0 Y0 Z10\nG1 Z0 F500\nX100\nY100\nG0 Z10\n";

class SingleCutTime : public DesktopTest {
 protected:
  SingleCutTime() {
    window->LoadHostFile(ToQt(PutProgram("part.nc", kProgram).string()));
    Settle();
    files->SetCurrentDirectory("c:\\marlo\\ncdata");
  }

  std::vector<int32_t> Feeds() {
    std::vector<int32_t> feeds;
    for (uint32_t i = 0; i < View().program.store.blockCount; ++i) {
      feeds.push_back(View().program.store.Peek(i)->feed);
    }
    return feeds;
  }
};

TEST_F(SingleCutTime, FromCtrlTToTheRecordedResult) {
  user.On<SendOptionFace>([](SendOptionFace* options) {
    Type(options, "최저 피드", "400");
    Type(options, "최대 피드", "2000");
    QTest::keyClick(options, Qt::Key_Return);
  });
  QStringList lines;
  user.On<FileInfoFace>([&](FileInfoFace* info) {
    const auto* const list = info->findChild<QListWidget*>();
    for (int i = 0; i < list->count(); ++i) lines << list->item(i)->text();
    EXPECT_EQ(View().results.entryCount, 0);
    Click(info, "Info list에추가");
  });
  Press(Qt::Key_T, Qt::ControlModifier);

  ASSERT_TRUE(user.Done());
  EXPECT_TRUE(lines.contains("Afa On"));
  EXPECT_TRUE(lines.contains("최대피드  2000"));
  EXPECT_EQ(View().job.MaxFeed, 2000);
  EXPECT_EQ(View().job.CornerMaxRatio, 0.2F);
  EXPECT_EQ(View().program.FeedBase, 2000);
  ASSERT_EQ(View().results.entryCount, 1);
  const CutTimeEntry& entry = View().results.entries[0];
  EXPECT_EQ(entry.fileName, "part.nc");
  EXPECT_EQ(entry.MaxFeed, 2000);
  EXPECT_FLOAT_EQ(entry.cutLength, 210.0F);
  EXPECT_EQ(entry.pictureName, "part.nc.emf");
  EXPECT_TRUE(std::filesystem::exists(home / "drive_c/marlo/ncdata/part.nc.emf"));
}

TEST_F(SingleCutTime, TheUserCanStopAtEitherDialog) {
  const std::vector<int32_t> programmed = Feeds();
  user.On<SendOptionFace>(
      [](SendOptionFace* options) { QTest::keyClick(options, Qt::Key_Escape); });
  Press(Qt::Key_T, Qt::ControlModifier);
  EXPECT_EQ(Feeds(), programmed);
  EXPECT_EQ(View().job.AfaEnabled, 0) << "a cancel switches the adjustment off";

  user.On<SendOptionFace>([](SendOptionFace* options) { Click(options, "OK"); });
  user.On<FileInfoFace>([](FileInfoFace* info) { Click(info, "Cancel"); });
  Press(Qt::Key_T, Qt::ControlModifier);
  EXPECT_NE(Feeds(), programmed);
  EXPECT_EQ(View().results.entryCount, 0);
}

TEST_F(SingleCutTime, AnEmptyProgramGivesZeros) {
  window->NewView();
  Settle();
  user.On<SendOptionFace>([](SendOptionFace* options) { Click(options, "OK"); });
  user.On<FileInfoFace>([](FileInfoFace* info) { info->accept(); });
  Press(Qt::Key_T, Qt::ControlModifier);
  ASSERT_EQ(View().results.entryCount, 1);
  EXPECT_EQ(View().results.entries[0].totalMinutes, 0.0F);
}

}  // namespace
}  // namespace tvx
