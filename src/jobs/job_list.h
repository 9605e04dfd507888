#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// A job list: names of files, without directory, and the option line of each. Both vectors always
// have the same length, at most kJobListSlots.
struct JobList {
  std::vector<std::string> names;
  std::vector<std::string> lines;

  size_t size() const { return names.size(); }
  bool IsFull() const;
  void Clear();
  // Inserts before `position`, or at the end for one from size() on. A full list takes no more and
  // the result is false.
  bool Insert(size_t position, std::string name, std::string line);
  void Remove(size_t position);
};

// The text of a saved list, UTF-8, lines ending in CR LF.
std::string PrintJobList(const JobList& list);

// Reads a list from the text of a saved list or of a .mcf file, word by word. With a drive letter,
// every "X:" of a line gets that letter. Text ahead of the first "File" is dropped, an entry
// without a line gets an empty one. A longer list stops at kJobListSlots; how many entries were
// left out goes to *leftOut, if given.
JobList ReadJobList(std::string_view text, std::optional<char> driveLetter,
                    size_t* leftOut = nullptr);

}  // namespace tvx
