#include "jobs/option_line.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/record_changes.h"

namespace tvx {
namespace {

// Most fields at their defaults, and one of each kind of token.
JobRecord SampleRecord() {
  JobRecord job;
  job.WorkDir = "c:\\marlo\\ncdata";
  job.DeleteM30 = 1;
  job.RestartOn = 1;
  job.RestartKind = 3;
  job.AfaEnabled = 1;
  job.FeedChgSmoothCheck = 1;
  return job;
}

constexpr char kConditions[] =
    "Afa ON TD 10.0 SD 5.0 CMIA 10.0 CMAR 0.10 SMIA 10.0 SMAR 0.10 CCC ON ZUDC ON "
    "MAT STEEL(S45C) MAF 1000 AF 1000 CW 1.00 0.70 0.30 SW 1.00 0.70 0.30 ";

// What a line changes in a record.
std::string Parsed(JobRecord job, std::string_view line) {
  const JobRecord before = job;
  ParseOptionLine(&job, line, nullptr);
  return Changes(before, job);
}

TEST(OptionLine, SampleLine) {
  JobRecord job = SampleRecord();
  EXPECT_EQ(BuildOptionLine(job, job, 20480, 1000),
            "Dir c:\\marlo\\ncdata FS 20480 RT ON  3  200.000 -200.000 " +
                std::string(kConditions) + "FCS ON  KeyCode  S1000");
}

TEST(OptionLine, Tokens) {
  const std::string start = "Dir c:\\nc FS 0 ";
  const std::string off = "RT OFF Afa OFF ";
  const struct {
    const char* what;
    void (*change)(JobRecord* options, JobRecord* restart);
    std::string line;
  } cases[] = {
      {"nothing", [](JobRecord*, JobRecord*) {}, start + "M30 ON " + off},
      {"delete M30", [](JobRecord* o, JobRecord*) { o->DeleteM30 = 1; }, start + off},
      {"the restart position is the restart dialog's",
       [](JobRecord* o, JobRecord* r) {
         o->RestartOn = 1;
         r->RestartNumber = 7;
       },
       start + "M30 ON " + off},
      {"sequence number",
       [](JobRecord*, JobRecord* r) {
         r->RestartOn = 1, r->RestartKind = 1, r->RestartNumber = -7;
       },
       start + "M30 ON RT ON  1  -7 Afa OFF "},
      {"block", [](JobRecord*, JobRecord* r) { r->RestartOn = 1, r->RestartKind = 2; },
       start + "M30 ON RT ON  2  200 Afa OFF "},
      {"point",
       [](JobRecord*, JobRecord* r) {
         r->RestartOn = 1, r->RestartKind = 4, r->RestartX = 1.23456F;
       },
       start + "M30 ON RT ON  4   1.235 9999.000 9999.000 Afa OFF "},
      {"unknown kind", [](JobRecord*, JobRecord* r) { r->RestartOn = 1, r->RestartKind = 9; },
       start + "M30 ON RT ON  9 Afa OFF "},
      {"switches off, and words that are never written",
       [](JobRecord* o, JobRecord*) {
         o->AfaEnabled = 1;
         o->ConCorChk = o->UpDownChk = 0;
         o->AfaByMaster = 1;
         o->AfaMasterFile = "c:\\a";
         o->KeyCodeOn = 1;
         o->KeyCodes = {"G90"};
         o->ToolDiameter = 7.96F;
         o->CornerMaxRatio = 0.126F;
       },
       start + "M30 ON RT OFF Afa ON TD 8.0 SD 5.0 CMIA 10.0 CMAR 0.13 SMIA 10.0 SMAR 0.10 CCC OFF "
               "ZUDC OFF MAT STEEL(S45C) MAF 1000 AF 1000 CW 1.00 0.70 0.30 SW 1.00 0.70 0.30 "},
      {"master model and both options",
       [](JobRecord* o, JobRecord*) {
         o->AfaEnabled = o->AfaByMaster = o->FeedChgSmoothCheck = o->XyChgReduceCheck = 1;
         o->AfaMasterFile = "c:\\ab";
       },
       start + "M30 ON RT OFF " + kConditions + "MMA c:\\ab FCS ON XYR ON "},
      {"a path of four bytes in the file's encoding",
       [](JobRecord* o, JobRecord*) {
         o->AfaEnabled = o->AfaByMaster = 1;
         o->AfaMasterFile = "c:형";
       },
       start + "M30 ON RT OFF " + kConditions},
  };
  for (const auto& c : cases) {
    JobRecord options;
    JobRecord restart;
    options.WorkDir = "c:\\nc";
    c.change(&options, &restart);
    EXPECT_EQ(BuildOptionLine(options, restart, std::nullopt, std::nullopt), c.line) << c.what;
  }
}

TEST(OptionLine, FileSizeIsTheLow32Bits) {
  const JobRecord job;
  EXPECT_EQ(BuildOptionLine(job, job, (uint64_t{1} << 32) + 5, std::nullopt),
            "Dir  FS 5 M30 ON RT OFF Afa OFF ");
  EXPECT_EQ(BuildOptionLine(job, job, 0xFFFFFFFFU, std::nullopt),
            "Dir  FS -1 M30 ON RT OFF Afa OFF ");
}

TEST(OptionLine, SwitchesAndRestartPositions) {
  JobRecord before;
  before.AfaEnabled = before.RestartOn = before.KeyCodeOn = 1;
  before.RestartKind = 2;
  const std::string off = "AfaEnabled=0 DeleteM30=1 KeyCodeOn=0";
  const struct {
    const char* line;
    std::string changes;
  } cases[] = {
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
  };
  for (const auto& c : cases) EXPECT_EQ(Parsed(before, c.line), c.changes) << c.line;
}

TEST(OptionLine, ReadingConditions) {
  JobRecord before;
  before.AfaEnabled = before.AfaByMaster = before.DeleteM30 = 1;
  before.FeedChgSmoothCheck = before.XyChgReduceCheck = 1;
  const std::string switches = " CCC ON ZUDC ON FCS ON XYR ON MMA ";
  const std::string switchedOff =
      "ConCorChk=0 UpDownChk=0 FeedChgSmoothCheck=0 XyChgReduceCheck=0 AfaByMaster=0";
  const struct {
    std::string line;
    std::string changes;
  } cases[] = {
      {"Afa ON", "AfaEnabled=0 " + switchedOff},
      {"Afa ON TD 10 ", switchedOff},
      {"Afa OFF TD 1.0 SD 3.0 CCC OFF ", "AfaEnabled=0"},
      {"Afa ON SD 3.0 MAF 12 CW 0.9 0.8 0.1" + switches + "c:\\a.mma",
       "AfaEnabled=0 SafetyDistance=3 MaxFeed=12 CorWeight0=0.9 CorWeight30=0.8 CorWeight60=0.1 "
       "AfaMasterFile=c:\\a.mma"},
      // In any order, and the first of two.
      {"x MAF 7 MAF 8 Afa ON TD 1" + switches, "ToolDiameter=1 MaxFeed=7"},
      // A value that does not read ends its scan.
      {"Afa ON TD x CW 0.5 y 0.2 SW 0.5" + switches, "CorWeight0=0.5 SideWeight0=0.5"},
      {"Afa ON TD CMIA 3.0 CMAR -.25 MAF 12.7 AF 1e3 MAT  a  b" + switches,
       "CornerMinAngle=3 CornerMaxRatio=-0.25 MaxFeed=12 PlungeFeed=1 Material=a"},
      {"Afa ON TD 1e99 SD 1 MAF 99999999999 MAT" + switches,
       "ToolDiameter=inf SafetyDistance=1 MaxFeed=2147483647 Material=CCC"},
      // Words need a blank on either side.
      {"Afa ON XTD 1 TDX 1 TD", "AfaEnabled=0 " + switchedOff},
  };
  for (const auto& c : cases) EXPECT_EQ(Parsed(before, c.line), c.changes) << c.line;
}

TEST(OptionLine, DirectoryAndSize) {
  const struct {
    const char* line;
    const char* directory;
    int32_t size;
    const char* lineDirectory;
  } cases[] = {
      {"Dir c:\\marlo\\ncdata FS 20480 ", "c:\\marlo\\ncdata", 20480, "c:\\marlo\\ncdata"},
      {"Dir c:\\nc\\FS FS 5", "c:\\nc\\FS", -7, "c:\\nc\\FS"},  // the first "FS" is read
      {"Dir c:\\nc data FS 5", "c:\\nc", 5, "c:\\nc"},
      {"FS 5 c:\\x", "old", 5, "5"},
      {"Dir", "old", -7, ""},
      {"", "old", -7, ""},
      {"  xDirs\tc:\\금형  FS\t 4294967296", "c:\\금형", INT32_MAX, "c:\\금형"},
  };
  for (const auto& c : cases) {
    JobRecord job;
    LineFile file{"old", -7};
    ParseOptionLine(&job, c.line, &file);
    EXPECT_EQ(file.currentDirectory, c.directory) << c.line;
    EXPECT_EQ(file.fileSize, c.size) << c.line;
    std::string directory = "older";
    EXPECT_EQ(LineDirectory(c.line, &directory), 1);
    EXPECT_EQ(directory, c.lineDirectory) << c.line;
  }
}

// A token sees 100 bytes of the line, and a word that begins in them whole.
TEST(OptionLine, ScanOfAToken) {
  const std::string longPath = "c:\\" + std::string(150, 'p') + "\\a.mma";
  const auto blanks = [](size_t count) { return std::string(count, ' '); };
  const struct {
    const char* what;
    std::string line;
    float diameter;
    std::string master;
  } cases[] = {
      {"long word", "Afa ON TD 3 MMA " + longPath + " ", 3, longPath},
      {"number at the end", "Afa ON TD " + blanks(94) + "12.5 ", 12.5F, "old"},
      {"number behind the end", "Afa ON TD " + blanks(97) + "12.5 ", 10, "old"},
  };
  for (const auto& c : cases) {
    JobRecord job;
    job.AfaMasterFile = "old";
    ParseOptionLine(&job, c.line, nullptr);
    EXPECT_EQ(job.ToolDiameter, c.diameter) << c.what;
    EXPECT_EQ(job.AfaMasterFile, c.master) << c.what;
  }

  // The bytes are those of the file, where a letter of the directory has two.
  const auto sizeBehind = [](size_t letters) {
    std::string line = "Dir c:\\FS";
    for (size_t i = 0; i < letters; ++i) line += "형";
    JobRecord job;
    LineFile file;
    ParseOptionLine(&job, line + " 12", &file);
    return file.fileSize;
  };
  EXPECT_EQ(sizeBehind(48), 12);
  EXPECT_EQ(sizeBehind(49), 0);
}

TEST(OptionLine, KeyCodes) {
  const std::string longWord(500, 'G');
  const struct {
    std::string line;
    int32_t on;
    std::string text;
    std::vector<std::string> words;
  } cases[] = {
      {"RT OFF", 0, "", {}},
      {" KeyCode ", 1, "", {}},
      {" KeyCode", 1, "", {}},
      {"KeyCode  S1000", 1, "S1000\r\n", {"S1000"}},
      {"FCS ON KeyCode G90G54  S1000 \r\n", 1, "G90G54\r\nS1000\r\n", {"G90G54", "S1000"}},
      {"KeyCode A", 1, "", {}},  // a text of one byte
      {"KeyCode  A", 1, "A\r\n", {"A"}},
      {"KeyCode " + DecodeCp949("\xFF"), 1, "", {}},  // one byte of the file as well
      {"KeyCodeXS1 2", 1, "S1\r\n2\r\n", {"S1", "2"}},
      {"KeyCode가나 다", 1, "나\r\n다\r\n", {"나", "다"}},
      {"KeyCode A\tB C", 1, "A\tB\r\nC\r\n", {"A\tB", "C"}},
      {"KeyCode G1 KeyCode G2", 1, "G1\r\nKeyCode\r\nG2\r\n", {"G1", "KeyCode", "G2"}},
      {"KeyCode " + longWord + " M30 ON",
       1,
       longWord + "\r\nM30\r\nON\r\n",
       {longWord, "M30", "ON"}},
  };
  for (const auto& c : cases) {
    JobRecord job;
    job.KeyCodes = {"old"};
    job.KeyCodeText = "old";
    job.KeyCodeCount = 9;
    ParseOptionLine(&job, c.line, nullptr);
    EXPECT_EQ(job.KeyCodeOn, c.on) << c.line;
    EXPECT_EQ(job.KeyCodeText, c.text) << c.line;
    EXPECT_EQ(job.KeyCodes, c.words) << c.line;
    EXPECT_EQ(job.KeyCodeCount, static_cast<int32_t>(c.words.size())) << c.line;
  }
}

// What comes back from a line differs from what went in only in the ways that the format states.
TEST(OptionLine, RoundTrip) {
  JobRecord sent = SampleRecord();
  sent.DeleteM30 = 0;
  sent.ToolDiameter = 7.96F;
  sent.CornerMaxRatio = 0.126F;
  sent.CorWeight30 = 0.456F;
  sent.Material = "KP4 M";
  sent.MaxFeed = 2500;
  sent.ConCorChk = 0;
  sent.AfaByMaster = 1;
  sent.AfaMasterFile = "c:\\형\\a.mma";
  sent.RestartKind = 4;
  sent.RestartX = 1.23456F;
  sent.RestartTolerance = 3;
  sent.FeedChgAng = 25;
  sent.SideCorRat = 2;
  sent.ZupZdown = 0.5F;
  sent.RapidFeed = 9000;
  JobRecord received;
  received.WorkDir = sent.WorkDir;
  ParseOptionLine(&received, BuildOptionLine(sent, sent, 1, 800), nullptr);
  EXPECT_EQ(Changes(sent, received),
            "RapidFeed=5000 ToolDiameter=8 CornerMaxRatio=0.13 KeyCodeOn=1 KeyCodeCount=1 "
            "Material=KP4 KeyCodeText=S800\r\n KeyCodes=[S800] FeedChgAng=10 CorWeight30=0.46 "
            "SideCorRat=1 ZupZdown=1 RestartX=1.235 RestartTolerance=1.5");
}

// A run parses line after line into one record.
TEST(OptionLine, ASecondLineInARowInheritsConditions) {
  JobRecord job;
  ParseOptionLine(&job, "Afa ON TD 3.0 MAF 700 MMA c:\\a.mma ", nullptr);
  const JobRecord first = job;
  ParseOptionLine(&job, "Dir c:\\nc FS 1 M30 ON RT OFF Afa OFF ", nullptr);
  EXPECT_EQ(Changes(first, job), "AfaEnabled=0 DeleteM30=0");
}

}  // namespace
}  // namespace tvx
