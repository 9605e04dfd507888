// The settings files: configuration, lists and user keys, and the dialogs that write them. What is
// read from odd ones stands in the golden cases of the configuration.
#include <gtest/gtest.h>

#include "base/text.h"
#include "jobs/key_code_pad.h"
#include "settings/configuration.h"
#include "settings/lists.h"
#include "settings/user_keys.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

constexpr char kEnvironment[] = "c:\\marlo";

constexpr char kConfigurationFile[] = "c:\\windows\\tvx.cfg";
constexpr char kInitial[] = "[c:\\marlo][c:\\marlo\\ncdata][c:\\marlo\\afa][wordpad.exe]";

// The four values in the order of the file.
std::string Values(const Configuration& c) {
  return "[" + c.EnvDir + "][" + c.WorkDir + "][" + c.AFADir + "][" + c.Editor + "]";
}

TEST(Configuration, TheDialogSavesAndHandsBack) {
  MemoryFiles files;
  ScriptedUi ui;
  Configuration configuration;
  files.RefuseWrite(1);
  ReadConfiguration(&configuration, &files);
  EXPECT_EQ(Values(configuration), kInitial);
  EXPECT_FALSE(files.Exists(kConfigurationFile)) << "a start that cannot write";
  ReadConfiguration(&configuration, &files);
  const std::string before = files.Bytes(kConfigurationFile);
  const auto edit = [&](bool accepts) {
    ui.OnDialog<CDirSetupDlg>([accepts](CDirSetupDlg* dialog) {
      EXPECT_EQ(Values(dialog->values), kInitial);
      dialog->values.EnvDir = "c:\\환경";
      dialog->values.WorkDir = "";
      if (!accepts) return false;
      dialog->values.Editor = "my editor";
      EXPECT_EQ(dialog->Accept(), Closing::kStaysOpen);
      dialog->values.Editor = "no\\editor";  // not checked
      return dialog->Accept() == Closing::kAccepted;
    });
    EditConfiguration(&configuration, &files, &ui);
  };
  edit(false);
  EXPECT_EQ(Values(configuration), kInitial);
  EXPECT_EQ(files.Bytes(kConfigurationFile), before);

  // The values are those of the dialog in either case; they last until the end of the program.
  files.RefuseWrite(1);
  edit(true);
  EXPECT_EQ(Values(configuration), "[c:\\환경][][c:\\marlo\\afa][no\\editor]");
  EXPECT_EQ(files.Bytes(kConfigurationFile), before);
  EXPECT_EQ(ui.messages.at(0).path, "my editor");
  EXPECT_EQ(ui.messages.at(1).caption + ": " + ui.messages.at(1).text,
            "Error message: 화일을 열수 없읍니다.\n");

  ReadConfiguration(&configuration, &files);
  edit(true);
  EXPECT_EQ(ui.messages.size(), 3U);
  EXPECT_EQ(DecodeCp949(files.Bytes(kConfigurationFile)),
            "환경Dir c:\\환경\r\nWorkDir -\r\nAFADir c:\\marlo\\afa\r\nEditor no\\editor\r\n");
  ReadConfiguration(&configuration, &files);
  EXPECT_EQ(Values(configuration), "[c:\\환경][][c:\\marlo\\afa][no\\editor]");
}

constexpr char kExtensionFile[] = "c:\\marlo\\fileext.txt";
constexpr char kDirectoryFile[] = "c:\\marlo\\dirlist.txt";

TEST(Lists, StopAtTheirLastElement) {
  MemoryFiles files;
  std::string words;
  for (int i = 1; i <= 501; ++i) words += "w" + std::to_string(i) + "\r\n";
  files.Put(kExtensionFile, words);
  files.Put(kDirectoryFile, words);
  Lines list;
  ReadExtensionList(kEnvironment, &list, &files);
  EXPECT_EQ(std::pair(list.size(), list.back()), std::pair(size_t{100}, std::string("w100")));
  ReadDirectoryList(kEnvironment, &list, &files);
  EXPECT_EQ(std::pair(list.size(), list.back()), std::pair(size_t{500}, std::string("w500")));
}

// A window that opens reads the list once more: the tail of a longer one stays.
TEST(Lists, AShorterFileLeavesTheTail) {
  MemoryFiles files;
  Lines list;
  files.Put(kExtensionFile, "a b c d e f g h i");
  ReadExtensionList(kEnvironment, &list, &files);
  files.Put(kExtensionFile, "x y");
  ReadExtensionList(kEnvironment, &list, &files);
  EXPECT_EQ(ListEntries(list), (Lines{"x", "y", "c", "d", "e", "f", "g", "h", "i"}));
  files.Remove(kExtensionFile);
  ReadExtensionList(kEnvironment, &list, &files);
  EXPECT_EQ(ListEntries(list),
            (Lines{"*.*", "*.nc", "*.hnc", "*.ppp", "*.ppp", "*.tap", "*.tif", "h", "i"}));
}

class DirectoryListDialog : public testing::Test {
 protected:
  DirectoryListDialog() { list.resize(kDirectories); }

  void SetEntries(const Lines& entries) { std::copy(entries.begin(), entries.end(), list.begin()); }
  void Edit(std::function<bool(CDirListDlg*)> script) {
    ui.OnDialog<CDirListDlg>(std::move(script));
    EditDirectoryList(kEnvironment, &list, &files, &ui);
  }
  // The answer of the user who is asked for a line's text.
  void OnTextInput(const std::string& text, bool accept) {
    ui.OnDialog<CTextInputDlg>([text, accept](CTextInputDlg* input) {
      input->text = text;
      return accept;
    });
  }

  MemoryFiles files;
  ScriptedUi ui;
  Lines list;
};

TEST_F(DirectoryListDialog, AddsTheDirectoryOfThePickedFile) {
  struct {
    const char* picked;
    Lines added;
  } const cases[] = {
      {"C:\\A\\B.TXT", {"C:\\A"}}, {"C:\\B.TXT", {"C:"}}, {"\\B.TXT", {}},
      {"\\A\\B.TXT", {"\\A"}},     {"B.TXT", {}},         {"c:\\my dir\\b", {"c:\\my dir"}},
  };
  for (const auto& c : cases) {
    CDirListDlg dialog(&ui);
    ui.OnFile(c.picked);
    dialog.Add();
    EXPECT_EQ(dialog.lines, c.added) << c.picked;
    EXPECT_EQ(ui.log.back(), "file *.");
    ui.OnFileCancel();
    dialog.Add();
    EXPECT_EQ(dialog.lines, c.added);
  }
  CDirListDlg full(&ui);
  full.lines.resize(kDirectories, "d");
  ui.OnFile("c:\\a\\b");
  full.Add();
  EXPECT_EQ(full.lines, Lines(kDirectories, "d"));
}

TEST_F(DirectoryListDialog, SavesWhatItShows) {
  SetEntries({"c:\\a", "c:\\b", "c:\\c"});
  Edit([&](CDirListDlg* dialog) {
    dialog->Delete();  // nothing is selected
    dialog->Change();
    dialog->selection = 1;
    dialog->Delete();
    dialog->Delete();  // the selection went with its line
    EXPECT_EQ(dialog->lines, (Lines{"c:\\a", "c:\\c"}));
    OnTextInput("d:\\금형 자료", true);
    dialog->selection = 0;
    dialog->Change();
    OnTextInput("dropped", false);
    dialog->selection = 1;
    dialog->Change();
    ui.OnFile("c:\\new\\x.nc");
    dialog->Add();
    dialog->Refresh();
    return true;
  });
  EXPECT_EQ(ListEntries(list), (Lines{"d:\\금형 자료", "c:\\c", "c:\\new"}));
  EXPECT_EQ(list.size(), kDirectories);
  EXPECT_EQ(DecodeCp949(files.Bytes(kDirectoryFile)), "d:\\금형 자료\r\nc:\\c\r\nc:\\new\r\n");
}

TEST_F(DirectoryListDialog, ALineChangedToNothingHidesNoOther) {
  SetEntries({"c:\\a", "c:\\b"});
  Edit([&](CDirListDlg* dialog) {
    OnTextInput("", true);
    dialog->selection = 0;
    dialog->Change();
    return true;
  });
  EXPECT_EQ(ListEntries(list), Lines{"c:\\b"});
}

TEST_F(DirectoryListDialog, CancelAndFailureLeaveListAndFile) {
  SetEntries({"c:\\a"});
  files.Put(kDirectoryFile, "old");
  files.RefuseCommit(1);
  const auto clear = [this](bool answer) {
    Edit([answer](CDirListDlg* dialog) {
      dialog->lines.clear();
      return answer;
    });
    return std::pair(ListEntries(list), files.Bytes(kDirectoryFile));
  };
  EXPECT_EQ(clear(false), std::pair(Lines{"c:\\a"}, std::string("old")));
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(clear(true), std::pair(Lines{"c:\\a"}, std::string("old")));
  EXPECT_EQ(ui.log.back(), "message 화일을 열수 없읍니다.\n");
  EXPECT_EQ(clear(true), std::pair(Lines(), std::string()));
}

constexpr char kUserKeyFile[] = "c:\\marlo\\UserKey.txt";

TEST(UserKeys, TheBytesWritten) {
  MemoryFiles files;
  Lines keys(1, "without a file all are empty");
  ReadUserKeys(kEnvironment, &keys, &files);
  ASSERT_EQ(keys, Lines(kUserKeyElements));
  keys[1] = "G04 P500 ";
  keys[2] = "확인";
  keys[12] = "M30";
  WriteUserKeys(kEnvironment, keys, &files);
  const std::string written =
      "=======USER KEY======\r\nG04 P500 \r\n\xC8\xAE\xC0\xCE\r\n"
      "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nM30\r\n";
  EXPECT_EQ(files.Bytes(kUserKeyFile), written);
  files.RefuseWrite(1);
  WriteUserKeys(kEnvironment, Lines(kUserKeyElements), &files);
  WriteUserKeys("c:\\none", Lines(kUserKeyElements), &files);
  EXPECT_EQ(files.Bytes(kUserKeyFile), written);
}

// A leading byte without its second one, at the limit and in front of the line end.
TEST(UserKeys, HalfACharacterComesBack) {
  MemoryFiles files;
  const std::string line = "\r\n" + std::string(49, 'x') + "\xB2\r\n";
  files.Put(kUserKeyFile, "h" + line);
  Lines keys;
  ReadUserKeys(kEnvironment, &keys, &files);
  WriteUserKeys(kEnvironment, keys, &files);
  EXPECT_TRUE(files.Bytes(kUserKeyFile).starts_with("=======USER KEY======" + line));
}

// The file keeps 50 bytes, which are 25 letters of Hangul: what the user then sees is what stays.
TEST(UserKeys, ALongOneIsCutAtOnce) {
  std::string hangul;
  for (int i = 0; i < 30; ++i) hangul += "가";
  std::vector<std::string> keys = Lines(kUserKeyElements);
  ScriptedUi ui;
  ui.OnDialog<CKeyCodeDlg>([&](CKeyCodeDlg* pad) {
    pad->KeyText = hangul;
    return true;
  });
  EditUserKey(3, &keys, &ui);
  EXPECT_EQ(keys[3], hangul.substr(0, 25 * std::string("가").size()));
}

}  // namespace
}  // namespace tvx
