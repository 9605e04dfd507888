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

// What a list must not hold: a list from elsewhere would choose the files that a run writes.
enum class ListProblem {
  kNone,
  kName,  // no plain file name: empty, with a separator, a colon or a control character, "..", or
          // of more than 255 bytes
  kPath,  // of the directory or the master model: a ".." leads above its root
};

// What came of reading a list.
struct ListReading {
  JobList list = {};
  size_t leftOut = 0;  // entries beyond kJobListSlots
  // A problem leaves the list empty.
  ListProblem problem = ListProblem::kNone;
  size_t line = 0;   // of the text, from 1, where the entry with the problem starts
  std::string word;  // the name or the path; only the start of a long one
};

// Reads a list from the text of a saved list or of a .mcf file, word by word. With a drive letter,
// every "X:" of a line gets that letter. Text before the first "File" is dropped; an entry without
// a line gets an empty one.
ListReading ReadJobList(std::string_view text, std::optional<char> driveLetter);

}  // namespace tvx
