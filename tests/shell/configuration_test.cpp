// The configuration file and the settings dialog.
#include "shell/configuration.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

constexpr char kPath[] = "c:\\windows\\tvx.cfg";

// The four values in the order of the file.
std::vector<std::string> Values(const Configuration& c) {
  return {c.EnvDir, c.WorkDir, c.AFADir, c.Editor};
}

std::vector<std::string> ValuesOf(const std::string& text) {
  MemoryFiles files;
  files.Put(kPath, EncodeCp949(text));
  Configuration configuration;
  ReadConfiguration(&configuration, &files);
  EXPECT_EQ(files.Bytes(kPath), EncodeCp949(text));  // a file that exists is only read
  return Values(configuration);
}

const std::vector<std::string> kInitial = {"c:\\marlo", "c:\\marlo\\ncdata", "c:\\marlo\\afa",
                                           "wordpad.exe"};

TEST(Configuration, TheFirstStartWritesTheFileAndTheSecondReadsItBack) {
  MemoryFiles files;
  Configuration configuration;
  ReadConfiguration(&configuration, &files);
  EXPECT_EQ(Values(configuration), kInitial);
  EXPECT_EQ(configuration.WindowsDir, "c:\\windows");
  EXPECT_EQ(files.Bytes(kPath),
            "\xC8\xAF\xB0\xE6"  // 환경
            "Dir c:\\marlo \r\n"
            "WorkDir  c:\\marlo\\ncdata \r\n"
            "AFADir  c:\\marlo\\afa \r\n"
            "Editor  wordpad.exe \r\n");

  Configuration second;
  ReadConfiguration(&second, &files);
  EXPECT_EQ(Values(second), kInitial);
}

TEST(Configuration, AFirstStartThatCannotWriteRunsOnTheInitialValues) {
  MemoryFiles files;
  files.RefuseCreation(kPath);
  Configuration configuration;
  ReadConfiguration(&configuration, &files);
  EXPECT_EQ(Values(configuration), kInitial);
  EXPECT_FALSE(files.Exists(kPath));
}

TEST(Configuration, ReadsPairsOfWords) {
  const std::string fifty(50, 'x');
  struct {
    std::string text;
    std::vector<std::string> values;
  } const cases[] = {
      {"", {"", "", "", ""}},
      {"WorkDir d:\\nc", {"", "d:\\nc", "", ""}},
      {"workdir d:\\nc\r\n환경DIR e:\\tvx editor vi AFAdir f:", {"e:\\tvx", "d:\\nc", "f:", "vi"}},
      {"Editor\n\n  vi\tEditor ed", {"", "", "", "ed"}},
      {"Printer lpt1 Editor vi", {"", "", "", "vi"}},
      {"Editor", {"", "", "", ""}},
      // A blank ends a value, and what follows is read as a key.
      {"EnvDir x 환경Dir c:\\my dir Editor vi", {"c:\\my", "", "", ""}},
      {"환경Dir c:\\금형\\자료", {"c:\\금형\\자료", "", "", ""}},
      // 51 bytes of a word count, and no half of a character.
      {"Editor " + fifty + "yz", {"", "", "", fifty + "y"}},
      {"Editor " + fifty + "한", {"", "", "", fifty}},
      {"Editor " + fifty + "한글 AFADir f:", {"", "", "f:", fifty}},
  };
  for (const auto& c : cases) EXPECT_EQ(ValuesOf(c.text), c.values) << c.text;
}

TEST(Configuration, TheDialogSavesAndHandsBack) {
  MemoryFiles files;
  ScriptedUi ui;
  Configuration configuration;
  ReadConfiguration(&configuration, &files);
  ui.OnDialog<CDirSetupDlg>([](CDirSetupDlg* dialog) {
    EXPECT_EQ(Values(dialog->values), kInitial);
    dialog->values.EnvDir = "c:\\환경";
    dialog->values.WorkDir = "";
    dialog->values.Editor = "my editor";  // not checked
    return true;
  });
  EditConfiguration(&configuration, &files, &ui);
  EXPECT_EQ(Values(configuration),
            (std::vector<std::string>{"c:\\환경", "", "c:\\marlo\\afa", "my editor"}));
  EXPECT_EQ(DecodeCp949(files.Bytes(kPath)),
            "환경Dir c:\\환경\r\n"
            "WorkDir \r\n"
            "AFADir c:\\marlo\\afa\r\n"
            "Editor my editor\r\n");
  EXPECT_TRUE(ui.messages.empty());
}

TEST(Configuration, CancelLeavesFileAndValues) {
  MemoryFiles files;
  ScriptedUi ui;
  Configuration configuration;
  ReadConfiguration(&configuration, &files);
  const std::string before = files.Bytes(kPath);
  ui.OnDialog<CDirSetupDlg>([](CDirSetupDlg* dialog) {
    dialog->values.EnvDir = "d:";
    return false;
  });
  EditConfiguration(&configuration, &files, &ui);
  EXPECT_EQ(Values(configuration), kInitial);
  EXPECT_EQ(files.Bytes(kPath), before);
}

// The values are those of the dialog in either case; they last until the end of the program.
TEST(Configuration, AFailedSaveSaysSoAndLeavesTheOldFile) {
  MemoryFiles files;
  ScriptedUi ui;
  Configuration configuration;
  ReadConfiguration(&configuration, &files);
  const std::string before = files.Bytes(kPath);
  files.RefuseWrite(1);
  ui.OnDialog<CDirSetupDlg>([](CDirSetupDlg* dialog) {
    dialog->values.EnvDir = "d:";
    return true;
  });
  EditConfiguration(&configuration, &files, &ui);
  EXPECT_EQ(configuration.EnvDir, "d:");
  EXPECT_EQ(files.Bytes(kPath), before);
  ASSERT_EQ(ui.messages.size(), 1U);
  EXPECT_EQ(ui.messages[0].text, "화일을 열수 없읍니다.\n");
  EXPECT_EQ(ui.messages[0].caption, "Error message");
  EXPECT_EQ(ui.messages[0].icon, MessageIcon::kInformation);
}

}  // namespace
}  // namespace tvx
