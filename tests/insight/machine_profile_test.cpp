// Machine files: every key, every error, failed writes.
#include "insight/machine_profile.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"

namespace tvx {
namespace {

TEST(MachineProfile, EveryKeyIsReadAndMissingOnesKeepTheirDefaults) {
  MachineProfile profile;
  EXPECT_FALSE(ParseMachineProfile("# nothing\r\n\r\n", "mill.machine", &profile).has_value());
  EXPECT_EQ(MachineProfileText(profile),
            "Name mill.machine\nRapidFeed 24000 24000 24000\nCutFeed 12000 12000 12000\n"
            "Acceleration 3000 3000 2000\nCornerTolerance 0.02\nBlockTime 0\nStopAtRapids 1\n"
            "ToolChange 0\nFactor 1\n");
  const char kAll[] =
      "\xEF\xBB\xBF  Name \xEB\xB0\x80\xEB\xA7\x81 1 # comment\nRapidFeed 36000\n"
      "CutFeed +1e4\t2.5 3\nAcceleration 1 2 .5\nCornerTolerance 0\nBlockTime 0.001\n"
      "StopAtRapids 0\nToolChange 8\nFactor 1.25";
  EXPECT_FALSE(ParseMachineProfile(kAll, "mill.machine", &profile).has_value());
  const std::string text = MachineProfileText(profile);
  EXPECT_EQ(text,
            "Name \xEB\xB0\x80\xEB\xA7\x81 1\nRapidFeed 36000 36000 36000\nCutFeed 10000 2.5 3\n"
            "Acceleration 1 2 0.5\nCornerTolerance 0\nBlockTime 0.001\nStopAtRapids 0\n"
            "ToolChange 8\nFactor 1.25\n");
  MachineProfile again;
  EXPECT_FALSE(ParseMachineProfile(text, "", &again).has_value());
  EXPECT_EQ(MachineProfileText(again), text);
}

TEST(MachineProfile, WrongFilesAreRefusedWithLineAndKey) {
  const struct {
    std::string_view text;
    const char* fault;
  } kCases[] = {
      {"Name a\nSpeed 3\n", "line 2: Speed: unknown key"},
      {"\n\nfactor 1\n", "line 3: factor: unknown key"},
      {"Factor 1\nFactor 1\n", "line 2: Factor: the key is set twice"},
      {"Factor\n", "line 1: Factor: a value is missing"},
      {"Name # no name\n", "line 1: Name: a value is missing"},
      {"RapidFeed 1 2\n", "line 1: RapidFeed: a value is missing"},
      {"RapidFeed 1 2 3 4\n", "line 1: RapidFeed: too many values"},
      {"BlockTime 1 s\n", "line 1: BlockTime: too many values"},
      {"Factor one\n", "line 1: Factor: not a number"},
      {"Factor nan\n", "line 1: Factor: not a number"},
      {"Factor 1x\n", "line 1: Factor: not a number"},
      {"Factor 0\n", "line 1: Factor: value out of range"},
      {"Factor -1\n", "line 1: Factor: value out of range"},
      {"Factor inf\n", "line 1: Factor: value out of range"},
      {"Factor 1e400\n", "line 1: Factor: value out of range"},
      {"Acceleration 1 0 1\n", "line 1: Acceleration: value out of range"},
      {"CornerTolerance -0.1\n", "line 1: CornerTolerance: value out of range"},
      {"StopAtRapids 2\n", "line 1: StopAtRapids: value out of range"},
      {std::string_view("Factor 1\n\0\n", 11), "is no text file"},
  };
  for (const auto& example : kCases) {
    MachineProfile profile;
    profile.Factor = 7;
    const auto fault = ParseMachineProfile(example.text, "x", &profile);
    ASSERT_TRUE(fault.has_value()) << example.text;
    EXPECT_EQ(FaultText(*fault, Language::kEnglish), example.fault);
    EXPECT_EQ(profile.Factor, 7) << example.text;
  }
}

TEST(MachineProfile, FilesAreReadAndWrittenWhole) {
  MemoryFiles files;
  MachineProfile profile;
  const auto read = [&](const char* path) {
    const auto fault = ReadMachineProfile(path, &files, &profile);
    return fault ? FaultText(*fault, Language::kEnglish) : "read";
  };
  EXPECT_EQ(read("c:\\none.machine"), "cannot be read");
  files.Put("c:\\big.machine", std::string(kLargestMachineFile + 1, ' '));
  EXPECT_EQ(read("c:\\big.machine"), "is too large for a machine file");
  files.Put("c:\\shop\\mill.machine", "Factor 2\n");
  EXPECT_EQ(read("c:\\shop\\mill.machine"), "read");
  EXPECT_EQ(profile.Name, "mill.machine");
  EXPECT_EQ(profile.Factor, 2);

  files.RefuseWrite(1);
  EXPECT_FALSE(WriteMachineProfile("c:\\shop\\mill.machine", MachineProfile{}, &files).ok());
  EXPECT_EQ(files.Bytes("c:\\shop\\mill.machine"), "Factor 2\n");
  EXPECT_TRUE(WriteMachineProfile("c:\\shop\\mill.machine", profile, &files).ok());
  EXPECT_EQ(files.Bytes("c:\\shop\\mill.machine"), MachineProfileText(profile));
}

}  // namespace
}  // namespace tvx
