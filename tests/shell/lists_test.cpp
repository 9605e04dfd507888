// The extension list and the directory list, their files and the dialog.
#include "shell/lists.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

using Lines = std::vector<std::string>;

constexpr char kEnvironment[] = "c:\\marlo";
constexpr char kExtensionFile[] = "c:\\marlo\\fileext.txt";
constexpr char kDirectoryFile[] = "c:\\marlo\\dirlist.txt";

// The words "w1" to "wN", a line each.
std::string Words(size_t count) {
  std::string text;
  for (size_t i = 1; i <= count; ++i) text += "w" + std::to_string(i) + "\r\n";
  return text;
}

TEST(Lists, WordsOfTheFiles) {
  const std::string fiftyOne(51, 'x');
  struct {
    std::string text;
    Lines entries;
  } const cases[] = {
      {"", {}},
      {"*.nc *.tap", {"*.nc", "*.tap"}},
      {"*.nc\r\n*.tap\r\n", {"*.nc", "*.tap"}},
      {"\n\t *.nc\v*.tap ", {"*.nc", "*.tap"}},
      {"*.가공 *.뷁", {"*.가공", "*.뷁"}},
      {fiftyOne + "y *.tap", {fiftyOne, "*.tap"}},
  };
  for (const auto& c : cases) {
    MemoryFiles files;
    files.Put(kExtensionFile, EncodeCp949(c.text));
    files.Put(kDirectoryFile, EncodeCp949(c.text));
    Lines extensions;
    ReadExtensionList(kEnvironment, &extensions, &files);
    EXPECT_EQ(ListEntries(extensions), c.entries) << c.text;
    EXPECT_EQ(extensions.size(), kExtensions);
    Lines directories;
    ReadDirectoryList(kEnvironment, &directories, &files);
    EXPECT_EQ(ListEntries(directories), c.entries) << c.text;
    EXPECT_EQ(directories.size(), kDirectories);
  }
}

TEST(Lists, StopAtTheirLastElement) {
  MemoryFiles files;
  files.Put(kExtensionFile, Words(101));
  files.Put(kDirectoryFile, Words(501));
  Lines list;
  ReadExtensionList(kEnvironment, &list, &files);
  EXPECT_EQ(ListEntries(list).size(), 100U);
  EXPECT_EQ(list.back(), "w100");
  list.clear();
  ReadDirectoryList(kEnvironment, &list, &files);
  EXPECT_EQ(ListEntries(list).size(), 500U);
  EXPECT_EQ(list.back(), "w500");
}

TEST(Lists, WithoutFiles) {
  MemoryFiles files;
  Lines list;
  ReadExtensionList(kEnvironment, &list, &files);
  EXPECT_EQ(ListEntries(list), (Lines{"*.*", "*.nc", "*.hnc", "*.ppp", "*.ppp", "*.tap", "*.tif"}));
  list.clear();
  ReadDirectoryList(kEnvironment, &list, &files);
  EXPECT_EQ(ListEntries(list), Lines{});
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
    EXPECT_FALSE(ui.fileQuestions.back().save);
    EXPECT_EQ(ui.fileQuestions.back().fileName, "*.");
    ui.OnFileCancel();
    dialog.Add();
    EXPECT_EQ(dialog.lines, c.added);
  }
}

TEST_F(DirectoryListDialog, SavesWhatItShows) {
  SetEntries({"c:\\a", "c:\\b", "c:\\c"});
  Edit([&](CDirListDlg* dialog) {
    EXPECT_EQ(dialog->lines, (Lines{"c:\\a", "c:\\b", "c:\\c"}));
    EXPECT_EQ(dialog->selection, -1);
    dialog->Delete();  // nothing is selected
    dialog->Change();
    dialog->selection = 1;
    dialog->Delete();
    dialog->Delete();  // the selection went with its line
    EXPECT_EQ(dialog->lines, (Lines{"c:\\a", "c:\\c"}));
    ui.OnDialog<CTextInputDlg>([](CTextInputDlg* input) {
      EXPECT_EQ(input->text, "c:\\a");
      input->text = "d:\\금형 자료";
      return true;
    });
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

TEST_F(DirectoryListDialog, DeletingAllLeavesAnEmptyFileAndList) {
  SetEntries({"c:\\a"});
  Edit([](CDirListDlg* dialog) {
    dialog->selection = 0;
    dialog->Delete();
    return true;
  });
  EXPECT_EQ(ListEntries(list), Lines{});
  EXPECT_EQ(files.Bytes(kDirectoryFile), "");
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

TEST_F(DirectoryListDialog, TakesNoMoreThanTheListHolds) {
  SetEntries(Lines(kDirectories, "d"));
  Edit([&](CDirListDlg* dialog) {
    ui.OnFile("c:\\a\\b");
    dialog->Add();
    return true;
  });
  EXPECT_EQ(ListEntries(list), Lines(kDirectories, "d"));
}

TEST_F(DirectoryListDialog, CancelAndFailureLeaveListAndFile) {
  SetEntries({"c:\\a"});
  files.Put(kDirectoryFile, "old");
  const auto clearAndAnswer = [](bool answer) {
    return [answer](CDirListDlg* dialog) {
      dialog->lines.clear();
      return answer;
    };
  };
  Edit(clearAndAnswer(false));
  EXPECT_TRUE(ui.messages.empty());
  files.RefuseCommit(1);
  Edit(clearAndAnswer(true));
  ASSERT_EQ(ui.messages.size(), 1U);
  EXPECT_EQ(ui.messages[0].text, "화일을 열수 없읍니다.\n");
  EXPECT_EQ(ui.messages[0].caption, "Error message");
  EXPECT_EQ(ui.messages[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(ListEntries(list), Lines{"c:\\a"});
  EXPECT_EQ(files.Bytes(kDirectoryFile), "old");
}

}  // namespace
}  // namespace tvx
