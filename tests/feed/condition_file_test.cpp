// Condition files: what reading takes from odd files, and the bytes that are written.
#include "feed/condition_file.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\marlo\\afa\\a.afa";

// The condition of a record of defaults, as it is written. UTF-8 here, CP949 in the file.
constexpr char kDefaults[] =
    "공구직경 10.000000\r\n"
    "안전거리 5.000000\r\n"
    "코너최소각도 10.000000\r\n"
    "코너최대감속비 0.100000\r\n"
    "경사최소각도 10.000000\r\n"
    "경사최대감속비 0.100000\r\n"
    "PlungeFeed 1000\r\n"
    "최대피드 1000\r\n"
    "가공소재 STEEL(S45C)\r\n"
    "AfaByMaster 0\r\n"
    "ConCorChk 1\r\n"
    "UpDownChk 1\r\n"
    "FeedChgSmoothCheck 0\r\n"
    "XyChgReduceCheck 0\r\n"
    "FeedChgAng 10\r\n"
    "CorWeight0 1.000000\r\n"
    "CorWeight30 0.700000\r\n"
    "CorWeight60 0.300000\r\n"
    "SideWeight0 1.000000\r\n"
    "SideWeight30 0.700000\r\n"
    "SideWeight60 0.300000\r\n"
    "ZupZdown 1.000000\r\n"
    "SideCorRat 1.000000\r\n"
    "Spindle 1000\r\n";

// Nine lines by place with values that tell them apart.
constexpr char kByPlace[] = "a 1 b 2 c 3 d 0.4 e 5 f 0.6 g 700 h 800 i SKD11 ";

class ConditionFile : public testing::Test {
 protected:
  // The condition after reading a text over the defaults, as it would be written.
  std::string AfterReading(const std::string& text) {
    files.Put(kPath, EncodeCp949(text));
    JobRecord record;
    int32_t spindle = 1000;
    EXPECT_TRUE(ReadConditionFile(kPath, &record, &spindle, &files));
    return Written(record, spindle);
  }

  std::string Written(const JobRecord& record, int32_t spindle) {
    EXPECT_TRUE(WriteConditionFile("c:\\out.afa", record, spindle, &files, &ui));
    return DecodeCp949(files.Bytes("c:\\out.afa"));
  }

  // The default condition with other values on some lines; a line is found by its key.
  static std::string DefaultsBut(const std::vector<std::string>& changedLines) {
    std::string text = kDefaults;
    for (const std::string& line : changedLines) {
      const size_t start = text.find(line.substr(0, line.find(' ') + 1));
      text.replace(start, text.find("\r\n", start) - start, line);
    }
    return text;
  }

  MemoryFiles files;
  ScriptedUi ui;
};

TEST_F(ConditionFile, TheBytesOfADefaultCondition) {
  const std::string text = Written(JobRecord{}, 1000);
  EXPECT_EQ(text, kDefaults);
  const std::string bytes = files.Bytes("c:\\out.afa");
  EXPECT_EQ(bytes.substr(0, 20), "\xB0\xF8\xB1\xB8\xC1\xF7\xB0\xE6 10.000000\r\n");  // 공구직경
}

TEST_F(ConditionFile, ReadsBackWhatItWrites) {
  JobRecord record;
  record.ToolDiameter = 0.1F;
  record.SafetyDistance = 1.23456789F;
  record.CornerMinAngle = -3;
  record.CornerMaxRatio = 123456.789F;
  record.SlopeMinAngle = 15;
  record.SlopeMaxRatio = 0.25F;
  record.PlungeFeed = -2147483647 - 1;
  record.MaxFeed = 2147483647;
  record.Material = "뷁강";  // a syllable that only the extended code has
  record.AfaByMaster = 1;
  record.ConCorChk = record.UpDownChk = 0;
  record.FeedChgSmoothCheck = record.XyChgReduceCheck = 1;
  record.FeedChgAng = 0;
  record.CorWeight0 = 0.9F;
  record.CorWeight30 = 0.8F;
  record.CorWeight60 = 0.7F;
  record.SideWeight0 = 0.6F;
  record.SideWeight30 = 0.5F;
  record.SideWeight60 = 0.4F;
  record.ZupZdown = 1.5F;
  record.SideCorRat = 2.5F;
  ASSERT_TRUE(WriteConditionFile(kPath, record, 3200, &files, &ui));

  JobRecord read;
  int32_t spindle = 0;
  ASSERT_TRUE(ReadConditionFile(kPath, &read, &spindle, &files));
  EXPECT_EQ(read.SafetyDistance, 1.234568F);  // the six decimals of the print
  EXPECT_EQ(read.Material, "뷁강");
  EXPECT_EQ(read.AfaByMaster, 0);  // a condition does not switch the master model
  read.AfaByMaster = 1;
  EXPECT_EQ(Written(read, spindle), DecodeCp949(files.Bytes(kPath)));
}

// The first nine values count by their place, whatever the words before them.
TEST_F(ConditionFile, ValuesByPlace) {
  const std::vector<std::string> allNine = {
      "공구직경 1.000000",       "안전거리 2.000000",     "코너최소각도 3.000000",
      "코너최대감속비 0.400000", "경사최소각도 5.000000", "경사최대감속비 0.600000",
      "PlungeFeed 700",          "최대피드 800",          "가공소재 SKD11"};
  const auto with = [&](std::vector<std::string> more) {
    more.insert(more.begin(), allNine.begin(), allNine.end());
    return more;
  };
  struct {
    const char* text;
    std::vector<std::string> changed;
  } const cases[] = {
      {"", {}},
      {"x 8.0", {"공구직경 8.000000"}},
      {"x 8 y", {"공구직경 8.000000"}},
      {"x\r\n\r\n8\ty\v9", {"공구직경 8.000000", "안전거리 9.000000"}},
      {kByPlace, allNine},
      // A keyed line counts from the tenth pair on only.
      {"Spindle 8 CorWeight0 9", {"공구직경 8.000000", "안전거리 9.000000"}},
      // A value that is no number is the key of the next pair: three pairs later all is in step.
      {"a 1 b zwei c 3 d 0.4 e 5",
       {"공구직경 1.000000", "코너최대감속비 3.000000", "경사최소각도 0.400000",
        "경사최대감속비 5.000000"}},
      // A fraction where a whole number is due: the rest of the word is the next key.
      {"a 1 b 2 c 3 d 0.4 e 5 f 0.6 g 700.5 h 800 i SKD11 SideCorRat 2",
       {"공구직경 1.000000", "안전거리 2.000000", "코너최소각도 3.000000",
        "코너최대감속비 0.400000", "경사최소각도 5.000000", "경사최대감속비 0.600000",
        "PlungeFeed 700", "가공소재 800", "SideCorRat 2.000000"}},
      // A material of two words puts the keyed pairs out of step for good.
      {"a 1 b 2 c 3 d 0.4 e 5 f 0.6 g 700 h 800 i SKD 11 ConCorChk 0 Spindle 5",
       with({"가공소재 SKD"})},
      {"a 1 b 2 c 3 d 0.4 e 5 f 0.6 g 700 h 800 i", {allNine.begin(), allNine.end() - 1}},
  };
  for (const auto& c : cases) EXPECT_EQ(AfterReading(c.text), DefaultsBut(c.changed)) << c.text;
}

// Behind them pairs in any order.
TEST_F(ConditionFile, ValuesByKey) {
  const std::string nine = kByPlace;
  const std::string before = AfterReading(nine);
  struct {
    const char* text;
    std::vector<std::pair<std::string, std::string>> changed;
  } const cases[] = {
      {"Spindle 5 UPDOWNCHK 0 concorchk 0",
       {{"Spindle 1000", "Spindle 5"},
        {"UpDownChk 1", "UpDownChk 0"},
        {"ConCorChk 1", "ConCorChk 0"}}},
      {"AfaByMaster 1 공구직경 99 MaxFeed 5 nothing 7", {}},
      {"FeedChgAng", {}},
      {"FeedChgAng 0", {{"FeedChgAng 10", "FeedChgAng 0"}}},
      {"FeedChgAng 50x", {{"FeedChgAng 10", "FeedChgAng 50"}}},
      {"FeedChgAng many", {{"FeedChgAng 10", "FeedChgAng 0"}}},
      {"Spindle 12.9", {{"Spindle 1000", "Spindle 12"}}},
      {"Spindle -5 Spindle 99999999999", {{"Spindle 1000", "Spindle 2147483647"}}},
      {"CorWeight0 .5 CorWeight30 5e-1 CorWeight60 +0.5\nSideWeight0 0,5",
       {{"CorWeight0 1.0", "CorWeight0 0.5"},
        {"CorWeight30 0.7", "CorWeight30 0.5"},
        {"CorWeight60 0.3", "CorWeight60 0.5"},
        {"SideWeight0 1.0", "SideWeight0 0.0"}}},
      {"SideCorRat 2 SideCorRat 3", {{"SideCorRat 1", "SideCorRat 3"}}},
      {"SideCorRat x y ZupZdown 2", {{"SideCorRat 1", "SideCorRat 0"}}},
  };
  for (const auto& c : cases) {
    std::string expected = before;
    for (const auto& [from, to] : c.changed) expected.replace(expected.find(from), from.size(), to);
    EXPECT_EQ(AfterReading(nine + c.text), expected) << c.text;
  }
}

TEST_F(ConditionFile, AFileThatDoesNotOpenChangesNothing) {
  JobRecord record;
  record.SideCorRat = 7;
  int32_t spindle = 42;
  for (const char* path : {"c:\\marlo\\afa\\none.afa", "c:\\marlo\\afa", "q:\\a.afa", ""}) {
    EXPECT_FALSE(ReadConditionFile(path, &record, &spindle, &files)) << path;
  }
  EXPECT_EQ(record.SideCorRat, 7);
  EXPECT_EQ(record.ToolDiameter, 10);
  EXPECT_EQ(spindle, 42);
}

// Bytes that are no text of any kind survive as a material that is passed on.
TEST_F(ConditionFile, ForeignBytesInTheMaterialComeBack) {
  std::string bytes = EncodeCp949(kDefaults);
  const std::string foreign = "\xFF\x80\xC7";
  bytes.replace(bytes.find("STEEL"), 11, foreign);
  files.Put(kPath, bytes);
  JobRecord record;
  int32_t spindle = 0;
  ASSERT_TRUE(ReadConditionFile(kPath, &record, &spindle, &files));
  ASSERT_TRUE(WriteConditionFile("c:\\out.afa", record, spindle, &files, &ui));
  EXPECT_EQ(files.Bytes("c:\\out.afa"), bytes);
}

TEST_F(ConditionFile, AFileThatCannotBeWrittenLeavesTheOldOneAndSaysSo) {
  files.Put(kPath, "old");
  struct {
    const char* what;
    const char* path;
    void (*prepare)(MemoryFiles*);
  } const cases[] = {
      {"no directory", "c:\\none\\a.afa", [](MemoryFiles*) {}},
      {"no name", "", [](MemoryFiles*) {}},
      {"disk full", kPath, [](MemoryFiles* f) { f->RefuseWrite(1); }},
      {"not put in place", kPath, [](MemoryFiles* f) { f->RefuseCommit(1); }},
      {"write protected", kPath, [](MemoryFiles* f) { f->RefuseCreation(kPath); }},
  };
  for (const auto& c : cases) {
    c.prepare(&files);
    ui.messages.clear();
    EXPECT_FALSE(WriteConditionFile(c.path, JobRecord{}, 0, &files, &ui)) << c.what;
    ASSERT_EQ(ui.messages.size(), 1U) << c.what;
    EXPECT_EQ(ui.messages[0].text, "화일을 열수 없읍니다. ");
    EXPECT_EQ(ui.messages[0].caption, "Error message");
    EXPECT_EQ(ui.messages[0].icon, MessageIcon::kInformation);
    EXPECT_EQ(ui.messages[0].buttons, MessageButtons::kOk);
    EXPECT_EQ(files.Bytes(kPath), "old") << c.what;
  }
}

}  // namespace
}  // namespace tvx
