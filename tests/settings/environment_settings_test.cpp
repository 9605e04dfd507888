// The environment settings: the parameter file and its dialog.
#include <gtest/gtest.h>

#include "base/text.h"
#include "settings/option_dialog.h"
#include "settings/parameter_file.h"
#include "support/memory_files.h"
#include "support/record_changes.h"
#include "support/rows.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\marlo\\tvx.par";

TEST(ParameterFile, BytesWritten) {
  MemoryFiles files;
  const JobRecord record = Record(
      "IntNcdataFlg=1 NcdataExt=*.가공 AfaByMaster=1 InputFileType=2 RapidFeed=12000 FeedChgAng=50 "
      "CorWeight30=0.65 ZupZdown=1.5");
  ASSERT_TRUE(WriteParameterFile("c:\\marlo", record, &files).ok());
  EXPECT_EQ(files.Bytes(kPath),
            EncodeCp949("IntNcdataFlg 1\r\nNCDATA확장자 *.가공\r\nAfaByMasterFlg 1\r\n"
                        "MetafileCreateChk 1\r\nInputFileType 2\r\nRapidFeed 12000\r\n"
                        "FeedChgSmoothCheck 0\r\nXyChgReduceCheck 0\r\nFeedChgAng 50\r\n"
                        "CorWeight0 1.000000\r\nCorWeight30 0.650000\r\nCorWeight60 0.300000\r\n"
                        "SideWeight0 1.000000\r\nSideWeight30 0.700000\r\n"
                        "SideWeight60 0.300000\r\nZupZdown 1.500000\r\n"));
}

TEST(ParameterFile, ReadsFourValuesByKey) {
  MemoryFiles files;
  for (const auto& [text, changes] : Rows<const char*, const char*>{
           {"", ""},
           {"inputfiletype 2 ncdata확장자 *.가공 rapidfeed 7 INTNCDATAFLG 1 FeedChgAng 5",
            "RapidFeed=7 InputFileType=2 IntNcdataFlg=1 NcdataExt=*.가공"},
           {"RapidFeed\n6000\nRapidFeed 9e3", "RapidFeed=9"},
           {"RapidFeed fast", "RapidFeed=0"},
           {"IntNcdataFlg 1 InputFileType", "IntNcdataFlg=1"},
           {"RapidFeed 6000 mm InputFileType 2", "RapidFeed=6000"}}) {  // out of step
    files.Put(kPath, EncodeCp949(text));
    JobRecord record;
    EXPECT_TRUE(ReadParameterFile("c:\\marlo", &record, &files).ok()) << text;
    EXPECT_EQ(Changes(JobRecord{}, record), changes) << text;
  }
}

struct OptionDialog : testing::Test {
  MemoryFiles files;
  ScriptedUi ui;
  JobRecord job;
  COptionDlg dialog{&files, &ui};
};

TEST_F(OptionDialog, ListShowsTheEntryThatStartsWithTheFeed) {
  for (const auto& [rapidFeed, shown] :
       Rows<int, int>{{5000, 0}, {30000, 4}, {7000, -1}, {3, 4}, {1000, 2}, {50000, -1}}) {
    job.RapidFeed = rapidFeed;
    dialog.Open(&job, "c:\\marlo");
    EXPECT_EQ(dialog.ShownRapidFeed(), shown) << rapidFeed;
    EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
    EXPECT_EQ(job.RapidFeed, rapidFeed);
  }
}

TEST_F(OptionDialog, AcceptReturnsTheSettingsAndNothingElse) {
  dialog.Open(&job, "c:\\marlo");
  dialog.own.ToolDiameter = 99;  // no setting of this dialog
  dialog.own.FeedChgAng = 0;     // below 1
  dialog.own.ZupZdown = 0.5F;
  dialog.ToggleMetafileCreate();
  dialog.ToggleIntNcdata();
  std::string mask;
  for (int i = 0; i < 100; ++i) mask += "형";
  dialog.EditNcdataExt(mask + "h");  // cut to a hundred characters
  EXPECT_EQ(Changes(JobRecord{}, job), "");
  dialog.Accept();
  EXPECT_EQ(Changes(JobRecord{}, job),
            "IntNcdataFlg=1 MetafileCreateChk=0 NcdataExt=" + mask + " ZupZdown=0.5");
  dialog.ToggleMetafileCreate();
  dialog.ToggleIntNcdata();
  dialog.EditNcdataExt("*.h");
  dialog.own.FeedChgAng = 1;
  dialog.Accept();
  EXPECT_EQ(Changes(JobRecord{}, job), "NcdataExt=*.h FeedChgAng=1 ZupZdown=0.5");
}

TEST_F(OptionDialog, SaveWritesItsOwnSettings) {
  dialog.Open(&job, "c:\\marlo");
  dialog.ChooseRapidFeed(3);
  dialog.Save();
  EXPECT_NE(files.Bytes(kPath).find("RapidFeed 20000\r\n"), std::string::npos);
  EXPECT_EQ(Changes(JobRecord{}, job), "");
  files.RefuseCreation(kPath);
  dialog.Save();
  EXPECT_FALSE(ReadParameterFile("c:\\none", &job, &files).ok());
  EXPECT_EQ(ui.log, (std::vector<std::string>{"status c:\\marlo\\tvx.par: 저장했습니다.",
                                              "status c:\\marlo\\tvx.par: 저장하지 못했습니다.",
                                              "message 화일을 열수 없읍니다.\n"}));
}

}  // namespace
}  // namespace tvx
