// The drives, directories and files that the job dialog browses.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files/files.h"

namespace tvx {

// True if a file name matches a mask of "*" and "?". The case of ASCII letters does not count.
// "*.*" matches every name, also one without a dot.
bool FitsMask(std::string_view name, std::string_view mask);

// A text with its ASCII letters in upper or in lower case.
std::string UpperCase(std::string text);
std::string LowerCase(std::string text);

// One directory at a time, shown as a tree of the drives, the directory's path and its
// sub-directories. The current directory of the program follows it.
class DirectoryBrowser {
 public:
  static constexpr size_t kMostDrives = 32;
  static constexpr size_t kMostParts = 10;
  static constexpr size_t kMostSubDirectories = 50;

  // One item of the tree. Drive i has the number i, path part i the number kFirstPart + i,
  // sub-directory i the number kFirstSubDirectory + i.
  static constexpr int kFirstPart = 100;
  static constexpr int kFirstSubDirectory = 1000;
  struct Item {
    int number;
    int parent;  // number of the item above, -1 for a drive
    std::string text;
  };

  explicit DirectoryBrowser(Files* fileSystem) : files_(fileSystem) {}

  // Makes a directory the current one and reads its content. If it cannot be entered, the current
  // directory stays and is read again. `mask` selects the files.
  void Enter(const std::string& directory, std::string_view mask);
  // Reads the files that match the mask.
  void FillFiles(std::string_view mask);
  // Shows the parts of the path in capitals until the next Enter.
  void ShowPartsInCapitals();

  // The directory of an item of the tree; empty for a number without an item.
  std::string TargetOf(int number) const;
  // The whole tree, each item after its parent. The last path part is selected, or the drive in its
  // root.
  std::vector<Item> Items() const;
  int SelectedItem() const;

  // The current directory in capitals, as lists and records name it. In its own letters if the host
  // has a second name in its path that differs only in case: capitals could name the other one.
  std::string DirectoryInCapitals() const;

  std::string directory;           // the current one, as the system reports it
  std::vector<std::string> files;  // names that match the mask, lower case, sorted

 private:
  void FillSubDirectories();
  int DriveItem() const;

  Files* files_;
  std::vector<char> driveLetters_;
  std::vector<std::string> parts_;           // first components below the drive, for display only
  std::vector<std::string> subDirectories_;  // sorted
};

}  // namespace tvx
