// The entries of a job list and its text form.

#include "jobs/job_list.h"

#include "base/scan.h"
#include "model/job_record.h"

namespace tvx {

namespace {

constexpr char kFileWord[] = "File";

void SetDrive(char letter, std::string* word) {
  for (size_t at = word->find("X:"); at != std::string::npos; at = word->find("X:", at + 2)) {
    (*word)[at] = letter;
  }
}

}  // namespace

bool JobList::IsFull() const {
  return names.size() >= kJobListSlots;
}

void JobList::Clear() {
  names.clear();
  lines.clear();
}

bool JobList::Insert(size_t position, std::string name, std::string line) {
  if (IsFull()) return false;
  const auto at = static_cast<std::ptrdiff_t>(std::min(position, names.size()));
  names.insert(names.begin() + at, std::move(name));
  lines.insert(lines.begin() + at, std::move(line));
  return true;
}

void JobList::Remove(size_t position) {
  if (position >= names.size()) return;
  names.erase(names.begin() + static_cast<std::ptrdiff_t>(position));
  lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(position));
}

bool IsJobList(std::string_view start) {
  std::string word;
  return WordScanner(start).ReadWord(&word) && EqualNoCase(word, kFileWord);
}

std::string PrintJobList(const JobList& list) {
  std::string text;
  for (size_t i = 0; i < list.size(); ++i) {
    text += std::string(kFileWord) + " " + list.names[i] + "  " + list.lines[i] + "\r\n";
  }
  return text;
}

JobList ReadJobList(std::string_view text, std::optional<char> driveLetter, size_t* leftOut) {
  JobList list;
  size_t found = 0;  // entries in the text, also those that a full list leaves out
  WordScanner words(text);
  std::string word;
  while (words.ReadWord(&word)) {
    if (EqualNoCase(word, kFileWord)) {
      if (!words.ReadWord(&word)) break;
      list.Insert(list.size(), word, "");
      ++found;
    } else if (found > 0 && found == list.size()) {
      // In the word alone: searching the whole line again for each word would be quadratic.
      if (driveLetter.has_value()) SetDrive(*driveLetter, &word);
      list.lines.back() += word + " ";
    }
  }
  if (leftOut != nullptr) *leftOut = found - list.size();
  return list;
}

}  // namespace tvx
