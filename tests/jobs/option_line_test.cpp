// The option line as text. The golden cases contain the lines that the tool builds.
#include "jobs/option_line.h"

#include <gtest/gtest.h>

#include "base/format.h"
#include "base/text.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

struct LineCase {
  std::string line;
  std::string changes;
};

// Each line changes exactly these fields of a record.
void ExpectChanges(const JobRecord& before, const std::vector<LineCase>& cases) {
  for (const LineCase& c : cases) {
    JobRecord job = before;
    ParseOptionLine(&job, c.line, nullptr);
    EXPECT_EQ(Changes(before, job), c.changes) << c.line;
  }
}

TEST(OptionLine, RestartComesFromItsOwnRecord) {
  JobRecord options = Record("RestartOn=1 RestartNumber=7 KeyCodeOn=1");
  options.KeyCodes = {"G90"};
  const JobRecord restart = Record("RestartOn=1 RestartKind=2");
  EXPECT_EQ(BuildOptionLine(options, JobRecord(), (uint64_t{1} << 32) + 5, std::nullopt),
            "Dir  FS 5 M30 ON RT OFF Afa OFF ")
      << "the low 32 bits of the size, and no key codes";
  EXPECT_EQ(BuildOptionLine(options, restart, 0xFFFFFFFFU, 800),
            "Dir  FS -1 M30 ON RT ON  2  200 Afa OFF  KeyCode  S800");
}

TEST(OptionLine, MissingTokenResetsItsSwitch) {
  const std::string off = "AfaEnabled=0 DeleteM30=1 KeyCodeOn=0";
  ExpectChanges(
      Record("AfaEnabled=1 RestartOn=1 KeyCodeOn=1 RestartKind=2"),
      {
          {"", off + " RestartOn=0"},
          {"Dir c:\\nc FS 1 RT OFF Afa OFF KeyCodes", "AfaEnabled=0 DeleteM30=1 RestartOn=0"},
          {"M30 ON", "AfaEnabled=0 KeyCodeOn=0 RestartOn=0"},
          {"AFA ON m30 on rt on keycode", off + " RestartOn=0"},
          {"RT ON 1 5 9", off + " RestartKind=1 RestartNumber=5"},
          {"RT ON  3  12.500\t-1", off + " RestartKind=3 RestartZMax=12.5 RestartZMin=-1"},
          {"RT ON 4 1 2 x 3", off + " RestartKind=4 RestartX=1 RestartY=2"},
          {"RT ON 5 1 2 3", off + " RestartKind=5"},
          {"RT ON x 77", off},
          {"RT ON 3.5 4", off + " RestartKind=3 RestartZMax=0.5 RestartZMin=4"},
          {"RT ON 2 x", off},
      });
}

TEST(OptionLine, ConditionsReadInAnyOrderUpToTheScanLimit) {
  const std::string switches = " CCC ON ZUDC ON FCS ON XYR ON MMA ";
  const std::string switchedOff =
      "ConCorChk=0 UpDownChk=0 FeedChgSmoothCheck=0 XyChgReduceCheck=0 AfaByMaster=0";
  // The scan of a token reads 100 bytes of the line and the rest of a word that begins in them.
  const std::string longPath = "c:\\" + std::string(150, 'p') + "\\a.mma";
  const std::string nearEnd(94, ' '), behindEnd(97, ' ');
  ExpectChanges(
      Record("AfaEnabled=1 AfaByMaster=1 DeleteM30=1 FeedChgSmoothCheck=1 XyChgReduceCheck=1"),
      {
          {"Afa ON", "AfaEnabled=0 " + switchedOff},
          {"Afa ON TD 10 ", switchedOff},
          {"Afa OFF TD 1.0 SD 3.0 CCC OFF ", "AfaEnabled=0"},
          {"Afa ON SD 3.0 MAF 12 CW 0.9 0.8 0.1" + switches + "c:\\a.mma",
           "AfaEnabled=0 SafetyDistance=3 MaxFeed=12 CorWeight0=0.9 CorWeight30=0.8 "
           "CorWeight60=0.1 AfaMasterFile=c:\\a.mma"},
          // In any order, and the first of two.
          {"x MAF 7 MAF 8 Afa ON TD 1" + switches, "ToolDiameter=1 MaxFeed=7"},
          // A value that cannot be read ends its scan.
          {"Afa ON TD x CW 0.5 y 0.2 SW 0.5" + switches, "CorWeight0=0.5 SideWeight0=0.5"},
          {"Afa ON TD CMIA 3.0 CMAR -.25 MAF 12.7 AF 1e3 MAT  a  b" + switches,
           "CornerMinAngle=3 CornerMaxRatio=-0.25 MaxFeed=12 PlungeFeed=1 Material=a"},
          {"Afa ON TD 1e99 SD 0x10 MAF 99999999999 MAT" + switches,
           "SafetyDistance=0 MaxFeed=2147483647 Material=CCC"},
          // Words need a blank on either side.
          {"Afa ON XTD 1 TDX 1 TD", "AfaEnabled=0 " + switchedOff},
          {"Afa ON TD 3" + switches + longPath + " ", "ToolDiameter=3 AfaMasterFile=" + longPath},
          {"Afa ON TD " + nearEnd + "12.5 ", "ToolDiameter=12.5 " + switchedOff},
          {"Afa ON TD " + behindEnd + "12.5 ", switchedOff},
      });
}

TEST(OptionLine, DirectoryIsTheSecondWord) {
  // The limit of the scan counts bytes of the file, where such a letter has two.
  std::string seen = "Dir c:\\FS";
  for (int i = 0; i < 48; ++i) seen += "형";
  const struct {
    std::string line;
    std::string directoryAndSize;
    std::string lineDirectory;
  } cases[] = {
      {"Dir c:\\marlo\\ncdata FS 20480 ", "c:\\marlo\\ncdata 20480", "c:\\marlo\\ncdata"},
      {"Dir c:\\nc\\FS FS 5", "c:\\nc\\FS -7", "c:\\nc\\FS"},  // the first "FS" is read
      {"Dir c:\\nc data FS 5", "c:\\nc 5", "c:\\nc"},
      {"FS 5 c:\\x", "old 5", "5"},
      {"Dir", "old -7", ""},
      {"", "old -7", ""},
      {"  xDirs\tc:\\금형  FS\t 4294967296", "c:\\금형 2147483647", "c:\\금형"},
      {seen + " 12", seen.substr(4) + " 12", seen.substr(4)},
      {seen + "형 12", seen.substr(4) + "형 -7", seen.substr(4) + "형"},
  };
  for (const auto& c : cases) {
    JobRecord job;
    LineFile file{"old", -7};
    ParseOptionLine(&job, c.line, &file);
    EXPECT_EQ(file.currentDirectory + Format(" %d", file.fileSize), c.directoryAndSize) << c.line;
    std::string directory = "older";
    EXPECT_EQ(LineDirectory(c.line, &directory), 1);
    EXPECT_EQ(directory, c.lineDirectory) << c.line;
  }
}

TEST(OptionLine, KeyCodesFollowTheFirstKeyCode) {
  const std::string longWord(500, 'G');
  const std::string none = "KeyCodeOn=1 KeyCodeCount=0 KeyCodeText= KeyCodes=";
  JobRecord before = Record("DeleteM30=1 KeyCodeCount=9 KeyCodeText=old");
  before.KeyCodes = {"old"};
  ExpectChanges(
      before,
      {
          {"RT OFF", "KeyCodeCount=0 KeyCodeText= KeyCodes="},
          {" KeyCode ", none},
          {" KeyCode", none},
          {"FCS ON KeyCode G90G54  S1000 \r\n",
           "KeyCodeOn=1 KeyCodeCount=2 KeyCodeText=G90G54\r\nS1000\r\n KeyCodes=[G90G54][S1000]"},
          {"KeyCode A", none},  // a text of one byte
          {"KeyCode  A", "KeyCodeOn=1 KeyCodeCount=1 KeyCodeText=A\r\n KeyCodes=[A]"},
          {"KeyCode " + DecodeCp949("\xFF"), none},  // one byte of the file as well
          {"KeyCodeXS1 2", "KeyCodeOn=1 KeyCodeCount=2 KeyCodeText=S1\r\n2\r\n KeyCodes=[S1][2]"},
          {"KeyCode가나 다",
           "KeyCodeOn=1 KeyCodeCount=2 KeyCodeText=나\r\n다\r\n KeyCodes=[나][다]"},
          {"KeyCode A\tB KeyCode " + longWord,
           "KeyCodeOn=1 KeyCodeCount=3 KeyCodeText=A\tB\r\nKeyCode\r\n" + longWord +
               "\r\n KeyCodes=[A\tB][KeyCode][" + longWord + "]"},
      });
}

}  // namespace
}  // namespace tvx
