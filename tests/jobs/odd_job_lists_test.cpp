// What the job dialog does with lists that nobody meant to write, and with folders and files that
// change under it: whatever happens, its two lists stay of one length and nothing is lost.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "jobs/transfer_dialog.h"
#include "platform/drives.h"
#include "support/memory_files.h"
#include "support/scripted_ui.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// A user who accepts whatever opens.
class AnyUser : public UserInterface {
 public:
  bool ShowMessage(const Message& message) override {
    messages.push_back(message.text);
    return true;
  }
  bool RunModal(Dialog* dialog) override {
    if (auto* const pad = dynamic_cast<CKeyCodeDlg*>(dialog)) {
      pad->field = "KeyCode File";
      pad->Accept();
    }
    return true;
  }
  bool ChooseFile(const FileQuestion& /*question*/, std::string* path) override {
    *path = "c:\\list.mcf";
    return true;
  }
  void Repaint() override {}
  void ShowStatus(const std::string& /*text*/) override {}
  Names messages;
};

// A folder that is there and cannot be read.
class LockedFolder : public MemoryFiles {
 public:
  bool List(const std::string& directory, std::vector<DirectoryEntry>* entries) override {
    return !directory.ends_with("locked") && MemoryFiles::List(directory, entries);
  }
};

class OddJobLists : public testing::Test {
 protected:
  OddJobLists() {
    memory.Put("c:\\marlo\\ncdata\\a.nc", "G01 X1\n");
    slot.WorkDir = "c:\\marlo\\ncdata";
    working.FirstEditable = 0;
  }

  std::unique_ptr<CTransferDlg> Opened(Files* files) {
    auto dialog = std::make_unique<CTransferDlg>(&userKeys, files, &user);
    dialog->Open({&slot, &working, "c:\\marlo", "ed", &extensions, files, &user, NoPrograms()});
    return dialog;
  }

  LockedFolder memory;
  AnyUser user;
  JobRecord slot, working;
  Names extensions = {"*.*"};
  Names userKeys = Names(100);
};

std::string Repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

struct ListCase {
  const char* what;
  std::string text;
  size_t entries;
};

std::vector<ListCase> ListCases() {
  const std::string longWord(10000, 'n');
  std::string garbage;
  for (int i = 0; i < 5000; ++i) garbage += static_cast<char>(i * 7919 >> 3);
  return {
      {"nothing", "", 0},
      {"no entry", "Dir c:\\marlo\\ncdata FS 7 RT OFF ", 0},
      {"a File at the end", "File a.nc Dir c:\\x RT OFF\nFile", 1},
      {"a File without a line", "File a.nc File b.nc", 2},
      {"File as a name and in a line", "File File Dir c:\\File FILE file x", 2},
      {"301 entries", Repeated("File a.nc Dir c:\\marlo\\ncdata FS 7 ", 301), 300},
      {"a long name", "File " + longWord + " Dir c:\\x", 1},
      {"long words",
       "File a.nc Dir c:\\" + longWord + " MMA X:" + longWord + " KeyCode " + longWord, 1},
      {"garbage", "File " + garbage, 1},
      {"zeros", std::string("File a\0b Dir c:\\\0 FS \0", 22), 1},
      {"other tokens' texts", "File FS Dir Dir FS M30 ON RT ON KeyCode Afa ON MAT KeyCode TD File",
       1},
      {"numbers that are none", "File a.nc Dir c:\\x FS -1e9 RT ON x 1 Afa ON TD nan SD inf MAF -1",
       1},
      {"outside the drives", "File ..\\..\\a.nc Dir q:\\..\\.. FS 1 Afa OFF", 1},
      {"no directory", "File a.nc", 1},
      {"only key codes", "File a.nc KeyCode KeyCode KeyCode", 1},
  };
}

TEST_F(OddJobLists, EveryButtonLeavesBothListsOfOneLength) {
  for (const ListCase& row : ListCases()) {
    SCOPED_TRACE(row.what);
    memory.Put("c:\\marlo\\FList1.txt", row.text);
    memory.Put("c:\\list.mcf", row.text);
    slot.NcdataExt = "*.nc";
    const auto dialog = Opened(&memory);
    user.messages.clear();
    dialog->ReadList();
    EXPECT_EQ(dialog->list.size(), row.entries);
    // A list that does not fit says so.
    EXPECT_EQ(user.messages.size(), row.entries == kJobListSlots ? 1U : 0U);
    const auto check = [&](const char* caption) {
      EXPECT_EQ(dialog->list.names.size(), dialog->list.lines.size()) << caption;
      EXPECT_LE(dialog->list.size(), kJobListSlots) << caption;
      EXPECT_LT(dialog->selectedEntry, static_cast<int>(dialog->list.size())) << caption;
      EXPECT_LT(dialog->selectedInformation, static_cast<int>(dialog->information.size()))
          << caption;
    };
    const auto press = [&](const CTransferDlg::Button& button) {
      for (const int selected : {-1, 0}) {
        if (dialog->list.size() > 0) dialog->SelectEntry(static_cast<int>(dialog->list.size()) - 1);
        const int lastRow = static_cast<int>(dialog->information.size()) - 1;
        dialog->selectedInformation = selected < 0 ? selected : lastRow;
        dialog->selectedFile = dialog->browser.files.empty() ? -1 : 0;
        (dialog.get()->*button.press)();
        check(button.caption);
      }
    };
    for (const auto& button : CTransferDlg::KeyCodeButtons()) press(button);
    for (const auto& button : CTransferDlg::ListButtons()) press(button);

    dialog->ReadList();
    dialog->Accept();
    dialog->Open({&slot, &working, "c:\\marlo", "ed", &extensions, &memory, &user, NoPrograms()});
    check("opened again");
  }
}

TEST_F(OddJobLists, ALongLineIsReadInOneGo) {
  const std::string text = "File a.nc " + Repeated("X:x ", 1'000'000);
  const JobList list = ReadJobList(text, 'd');
  ASSERT_EQ(list.size(), 1U);
  EXPECT_EQ(list.lines[0].size(), 4'000'000U);
  EXPECT_TRUE(list.lines[0].ends_with("d:x d:x "));
}

TEST_F(OddJobLists, FilesThatGoBetweenTwoClicks) {
  const auto dialog = Opened(&memory);
  dialog->selectedFile = 0;
  dialog->AppendSelected();
  ASSERT_EQ(dialog->list.names, Names{"a.nc"});
  memory.Remove("c:\\marlo\\ncdata\\a.nc");
  dialog->AppendSelected();
  EXPECT_EQ(user.messages, Names{"화일을 등록할 수 없습니다. "});
  dialog->Preview();
  EXPECT_EQ(dialog->list.names, Names{"a.nc"}) << "the entry stays; the run reports it";

  memory.Put("c:\\marlo\\ncdata\\b.nc", "G01 X1\n");
  dialog->SelectMask(0);
  dialog->selectedFile = static_cast<int>(dialog->browser.files.size()) - 1;
  memory.RefuseOpening("c:\\marlo\\ncdata\\b.nc");
  dialog->AppendSelected();
  EXPECT_EQ(user.messages.back(), "화일을 열수 없읍니다. ");
  EXPECT_EQ(dialog->list.size(), 1U);
}

TEST_F(OddJobLists, AFailedSaveLeavesTheOlderList) {
  const auto dialog = Opened(&memory);
  memory.Put("c:\\marlo\\FList1.txt", "File old.nc Dir c:\\x ");
  dialog->selectedFile = 0;
  dialog->AppendSelected();
  memory.RefuseWrite(1);
  dialog->SaveList();
  EXPECT_EQ(memory.Bytes("c:\\marlo\\FList1.txt"), "File old.nc Dir c:\\x ");
  EXPECT_EQ(dialog->list.size(), 1U);
}

TEST_F(OddJobLists, AFolderThatCannotBeReadIsEmpty) {
  memory.Put("c:\\marlo\\ncdata\\locked\\a.nc", "G01 X1\n");
  const auto dialog = Opened(&memory);
  dialog->Browse(DirectoryBrowser::kFirstSubDirectory);
  EXPECT_EQ(dialog->ListOptions.WorkDir, "c:\\marlo\\ncdata\\locked");
  EXPECT_TRUE(dialog->browser.files.empty());
  dialog->Browse(DirectoryBrowser::kFirstPart + 1);
  EXPECT_EQ(dialog->browser.files, Names{"a.nc"}) << "and is left again";
}

// On the host: folders that vanish, links that lead in circles, and paths deeper than the tree.
class OddFolders : public OddJobLists {
 protected:
  OddFolders() {
    fs::create_directories(ncdata);
    dialog = Opened(files.get());
  }

  TempDir home;
  Drives drives{home.Path()};
  std::unique_ptr<Files> files = MakeHostFiles(&drives);
  const fs::path ncdata = home / "drive_c/marlo/ncdata";
  std::unique_ptr<CTransferDlg> dialog;
};

TEST_F(OddFolders, AFolderVanishesWhileTheUserBrowses) {
  fs::create_directories(ncdata / "one/two");
  dialog->Browse(DirectoryBrowser::kFirstPart + 1);
  ASSERT_EQ(dialog->browser.subDirectories, Names{"one"});
  dialog->Browse(DirectoryBrowser::kFirstSubDirectory);
  ASSERT_EQ(dialog->browser.directory, "c:\\marlo\\ncdata\\one");
  fs::remove_all(ncdata / "one");
  for (const int item : {DirectoryBrowser::kFirstSubDirectory, DirectoryBrowser::kFirstPart + 2}) {
    dialog->Browse(item);
    EXPECT_EQ(dialog->browser.directory, "c:\\marlo\\ncdata\\one") << "it stays where it was";
    EXPECT_TRUE(dialog->browser.subDirectories.empty());
  }
  dialog->Browse(DirectoryBrowser::kFirstPart + 1);
  EXPECT_EQ(dialog->browser.directory, "c:\\marlo\\ncdata") << "and a way leads out";
}

TEST_F(OddFolders, LinksThatLeadInCircles) {
  fs::create_directory_symlink(".", ncdata / "again");
  fs::create_symlink("loop.nc", ncdata / "loop.nc");
  fs::create_symlink("nowhere/b.nc", ncdata / "dangling.nc");
  std::ofstream(ncdata / "a.nc") << "G01 X1\n";
  dialog->Browse(DirectoryBrowser::kFirstPart + 1);
  std::string expected = "c:\\marlo\\ncdata";
  for (int level = 0; level < 15; ++level) {
    ASSERT_EQ(dialog->browser.subDirectories, Names{"again"}) << level;
    dialog->Browse(DirectoryBrowser::kFirstSubDirectory);
    expected += "\\again";
    EXPECT_EQ(dialog->browser.directory, expected);
    EXPECT_EQ(dialog->browser.files, (Names{"a.nc", "dangling.nc", "loop.nc"}));
  }
  EXPECT_EQ(dialog->browser.parts.size(), DirectoryBrowser::kMostParts);
  for (int file = 0; file < 3; ++file) {
    dialog->selectedFile = file;
    dialog->AppendSelected();
  }
  EXPECT_EQ(dialog->list.names, Names{"a.nc"});
  EXPECT_EQ(user.messages.size(), 2U);
  EXPECT_TRUE(fs::is_symlink(ncdata / "loop.nc"));
  dialog->Browse(DirectoryBrowser::kFirstPart + 9);
  EXPECT_EQ(dialog->browser.directory, "c:\\marlo\\ncdata" + Repeated("\\again", 8));
}

TEST_F(OddFolders, MoreFoldersThanTheTreeShows) {
  for (int i = 0; i < 60; ++i) fs::create_directories(ncdata / ("f" + std::to_string(100 + i)));
  dialog->Browse(DirectoryBrowser::kFirstPart + 1);
  EXPECT_EQ(dialog->browser.subDirectories.size(), DirectoryBrowser::kMostSubDirectories);
  EXPECT_EQ(dialog->browser.TargetOf(DirectoryBrowser::kFirstSubDirectory + 50), "");
}

}  // namespace
}  // namespace tvx
