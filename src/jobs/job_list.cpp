// The entries of a job list and its text form.

#include "jobs/job_list.h"

#include <algorithm>

#include "base/scan.h"
#include "base/text.h"
#include "jobs/option_line.h"
#include "model/job_record.h"
#include "platform/files/drives.h"

namespace tvx {

namespace {

constexpr char kFileWord[] = "File";
constexpr size_t kShownBytes = 80;  // of a refused word

void SetDrive(char letter, std::string* word) {
  for (size_t at = word->find("X:"); at != std::string::npos; at = word->find("X:", at + 2)) {
    (*word)[at] = letter;
  }
}

// A name that stays in the folder it is joined to.
bool IsPlainName(std::string_view name) {
  constexpr size_t kLongestName = 255;  // bytes, of the host's file systems
  constexpr std::string_view kSeparators = "\\/:";
  return !name.empty() && name.size() <= kLongestName && name != "." && name != ".." &&
         std::none_of(name.begin(), name.end(), [&](char c) {
           return static_cast<unsigned char>(c) < ' ' || c == '\x7F' ||
                  kSeparators.find(c) != std::string_view::npos;
         });
}

// The path of an option line that leads above its root, empty if none does. Each path is found as
// the run, the adjustment and the copy of the list find it.
std::string PathAbove(std::string_view line) {
  std::string directory, used, copied;
  LineDirectory(line, &directory);
  AdjustmentMaster(line, &used);
  LineMasterFile(line, &copied);
  for (const std::string& path : {directory, used, copied}) {
    if (LeadsAbove(path)) return path;
  }
  return "";
}

// The first characters of a text, up to that many bytes.
std::string Start(const std::string& text, size_t bytes) {
  size_t end = 0;
  while (end < text.size() && end < bytes) end = CharacterEnd(text, end);
  return text.substr(0, end);
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

ListReading ReadJobList(std::string_view text, std::optional<char> driveLetter) {
  ListReading reading;
  JobList& list = reading.list;
  std::vector<size_t> ends;  // of the entries' names in the text
  WordScanner words(text);
  std::string word;
  const auto refuse = [&](ListProblem problem, size_t end, const std::string& culprit) {
    const auto lines = std::count(text.begin(), text.begin() + static_cast<ptrdiff_t>(end), '\n');
    return ListReading{.problem = problem,
                       .line = static_cast<size_t>(lines) + 1,
                       .word = Start(culprit, kShownBytes)};
  };
  while (words.ReadWord(&word)) {
    if (EqualNoCase(word, kFileWord)) {
      std::string name;
      const size_t end = words.ReadWord(&name) ? words.Taken().size() : text.size();
      if (!IsPlainName(name)) return refuse(ListProblem::kName, end, name);
      ends.push_back(end);
      list.Insert(list.size(), std::move(name), "");
    } else if (!ends.empty() && ends.size() == list.size()) {
      // In the word alone: searching the whole line again for each word would be quadratic.
      if (driveLetter.has_value()) SetDrive(*driveLetter, &word);
      list.lines.back() += word + " ";
    }
  }
  for (size_t i = 0; i < list.size(); ++i) {
    const std::string path = PathAbove(list.lines[i]);
    if (!path.empty()) return refuse(ListProblem::kPath, ends[i], path);
  }
  reading.leftOut = ends.size() - list.size();
  return reading;
}

}  // namespace tvx
