#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace tvx {

// True if a file name fits a mask of "*" and "?", whatever the case of its letters. "*.*" fits
// every name, also one without a dot.
bool FitsMask(std::string_view name, std::string_view mask);

// A text in upper and in lower case, as far as its ASCII letters go.
std::string UpperCase(std::string text);
std::string LowerCase(std::string text);

// The drives, directories and files that the job dialog browses. The current directory of the
// program follows it.
class DirectoryBrowser {
 public:
  static constexpr size_t kMostDrives = 32;
  static constexpr size_t kMostParts = 10;
  static constexpr size_t kMostSubDirectories = 50;

  // One item of the tree, told apart by its number: a drive by its index, path part i by
  // kFirstPart + i, sub-directory i by kFirstSubDirectory + i.
  static constexpr int kFirstPart = 100;
  static constexpr int kFirstSubDirectory = 1000;
  struct Item {
    int number;
    int parent;  // number of the item above, -1 for a drive
    std::string text;
  };

  explicit DirectoryBrowser(Files* fileSystem) : files_(fileSystem) {}

  // Makes a directory the current one and reads what lies there. A directory that cannot be entered
  // leaves the current one, which is then read. `mask` is that of the file list.
  void Enter(const std::string& directory, std::string_view mask);
  // Reads the files that fit the mask.
  void FillFiles(std::string_view mask);

  // The directory that an item of the tree stands for; empty for a number without an item.
  std::string TargetOf(int number) const;
  // The whole tree, items after the one above them. The last path part, or the drive at the root,
  // is the selected one.
  std::vector<Item> Items() const;
  int SelectedItem() const;

  std::string directory;  // the current one, as the system gives it
  std::vector<char> driveLetters;
  // The first components of the directory below the drive, as they are shown; the way to an item
  // is taken from the directory itself.
  std::vector<std::string> parts;
  std::vector<std::string> subDirectories;  // sorted
  std::vector<std::string> files;           // names that fit the mask, lower case, sorted

 private:
  void FillSubDirectories();
  int DriveItem() const;

  Files* files_;
};

}  // namespace tvx
