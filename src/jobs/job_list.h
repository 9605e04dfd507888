// The job list, and the text form in which it is saved and read back.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// The file names, without directory, and the option line of each. Both vectors always have the same
// length, at most kJobListSlots.
struct JobList {
  std::vector<std::string> names;
  std::vector<std::string> lines;

  size_t size() const { return names.size(); }
  bool IsFull() const;
  void Clear();
  // Inserts before `position`; a position beyond size() means the end. Returns false, with the list
  // unchanged, if it is full.
  bool Insert(size_t position, std::string name, std::string line);
  void Remove(size_t position);
};

// True for the first bytes of a saved list or a .mcf file.
bool IsJobList(std::string_view start);

// The text of a saved list, UTF-8, lines ending in CR LF.
std::string PrintJobList(const JobList& list);

// Reads a list from the text of a saved list or of a .mcf file, word by word. With a drive letter,
// every "X:" of a line gets that letter. Text before the first "File" is dropped; an entry without
// a line gets an empty one. Reading stops at kJobListSlots entries; *leftOut, if given, receives
// the number of entries left out.
JobList ReadJobList(std::string_view text, std::optional<char> driveLetter,
                    size_t* leftOut = nullptr);

}  // namespace tvx
