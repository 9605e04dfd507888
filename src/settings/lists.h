// Two program-wide lists of short strings, each read from a text file of words in the environment
// directory (docs/formats/lists.md): the file masks that the job dialog offers, and directories
// that the user keeps. Entries fill the elements from 0 on; the first empty element ends a list.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

inline constexpr size_t kExtensions = 100;
inline constexpr size_t kDirectories = 500;

std::string ExtensionListPath(const std::string& environmentDir);
std::string DirectoryListPath(const std::string& environmentDir);

// Reads fileext.txt over the list, which gets kExtensions elements. No element is cleared first, so
// the tail of a longer list stays. If the file cannot be read, the list starts with the seven
// standard masks.
Status ReadExtensionList(const std::string& environmentDir, std::vector<std::string>* list,
                         Files* files);

// Reads dirlist.txt over the list, which gets kDirectories elements. They stay as they were if the
// file cannot be read.
Status ReadDirectoryList(const std::string& environmentDir, std::vector<std::string>* list,
                         Files* files);

// The entries of a list, up to its first empty element.
std::vector<std::string> ListEntries(const std::vector<std::string>& list);

// Asks for one line of text.
class CTextInputDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "문자 또는 숫자를 입력하시요";

  std::string text;
};

// The directory list dialog: a list box on a copy of the list. "저장" accepts, "취소" cancels.
class CDirListDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "디렉토리 리스트";

  explicit CDirListDlg(UserInterface* ui) : ui_(ui) {}

  // "추가": adds the directory of a file that the user chooses. A list of kDirectories lines is
  // full.
  void Add();
  // "삭제": removes the selected line.
  void Delete();
  // "수정": the user edits the selected line.
  void Change();
  // "갱신" does nothing.
  void Refresh() {}

  std::vector<std::string> lines;  // the list box
  int selection = -1;              // index of the selected line, -1 for none

 private:
  bool HasSelection() const;

  UserInterface* ui_;
};

// The command "디렉토리 리스트": runs the dialog. If it is accepted, its lines are saved in
// dirlist.txt and become the list. If the save fails, a message is shown, and the list and an older
// file stay as they were.
void EditDirectoryList(const std::string& environmentDir, std::vector<std::string>* list,
                       Files* files, UserInterface* ui);

}  // namespace tvx
