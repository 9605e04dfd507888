// Mask matching, and the directory tree of the job dialog.

#include "jobs/directory_browser.h"

#include <algorithm>

#include "base/text.h"

namespace tvx {

namespace {

constexpr size_t kDriveEnd = 2;  // index of the backslash after "c:"

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// The first character is the drive; from index 3 on, each backslash ends a component.
std::vector<std::string> PartsOf(std::string_view directory) {
  std::vector<std::string> parts;
  if (directory.size() <= 3) return parts;
  std::string_view rest = directory.substr(3);
  while (!rest.empty() && parts.size() < DirectoryBrowser::kMostParts) {
    const size_t end = std::min(rest.find('\\'), rest.size());
    if (end > 0) parts.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return parts;
}

}  // namespace

bool FitsMask(std::string_view name, std::string_view mask) {
  if (mask == "*.*") return true;
  // The last "*" so far and the end of what it covers: on a mismatch it covers one character more.
  size_t n = 0, m = 0;
  size_t starMask = std::string_view::npos, starName = 0;
  while (n < name.size()) {
    if (m < mask.size() && mask[m] == '*') {
      starMask = m++;
      starName = n;
    } else if (m < mask.size() && mask[m] == '?') {
      n = CharacterEnd(name, n);
      ++m;
    } else if (m < mask.size() && Lower(mask[m]) == Lower(name[n])) {
      ++n, ++m;
    } else if (starMask != std::string_view::npos) {
      m = starMask + 1;
      n = ++starName;
    } else {
      return false;
    }
  }
  while (m < mask.size() && mask[m] == '*') ++m;
  return m == mask.size();
}

std::string UpperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), Upper);
  return text;
}

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), Lower);
  return text;
}

void DirectoryBrowser::Enter(const std::string& target, std::string_view mask) {
  static_cast<void>(files_->SetCurrentDirectory(target));  // else it stays where it is
  directory = files_->CurrentDirectory();
  parts_ = PartsOf(directory);
  driveLetters_ = files_->DriveLetters();
  if (driveLetters_.size() > kMostDrives) driveLetters_.resize(kMostDrives);
  FillSubDirectories();
  FillFiles(mask);
}

void DirectoryBrowser::FillSubDirectories() {
  subDirectories_.clear();
  const Result<std::vector<DirectoryEntry>> entries = files_->List(directory);
  for (const DirectoryEntry& entry : entries.value) {
    if (!entry.isDirectory || entry.name.starts_with(".")) continue;
    subDirectories_.push_back(entry.name);
  }
  std::sort(subDirectories_.begin(), subDirectories_.end());
  if (subDirectories_.size() > kMostSubDirectories) subDirectories_.resize(kMostSubDirectories);
}

void DirectoryBrowser::FillFiles(std::string_view mask) {
  files.clear();
  const Result<std::vector<DirectoryEntry>> entries = files_->List(directory);
  for (const DirectoryEntry& entry : entries.value) {
    if (!entry.isDirectory && FitsMask(entry.name, mask)) files.push_back(LowerCase(entry.name));
  }
  std::sort(files.begin(), files.end());
}

void DirectoryBrowser::ShowPartsInCapitals() {
  for (std::string& part : parts_) part = UpperCase(part);
}

std::string DirectoryBrowser::DirectoryInCapitals() const {
  for (size_t start = kDriveEnd + 1; start < directory.size();) {
    const size_t end = std::min(directory.find('\\', start), directory.size());
    const std::string name = UpperCase(directory.substr(start, end - start));
    const Result<std::vector<DirectoryEntry>> entries = files_->List(directory.substr(0, start));
    const auto namesakes = std::ranges::count_if(
        entries.value, [&](const DirectoryEntry& entry) { return UpperCase(entry.name) == name; });
    if (namesakes > 1) return directory;
    start = end + 1;
  }
  return UpperCase(directory);
}

std::string DirectoryBrowser::TargetOf(int number) const {
  if (number < 0) return {};
  if (number < kFirstPart) {
    const auto index = static_cast<size_t>(number);
    return index < driveLetters_.size() ? std::string(1, driveLetters_[index]) + ":\\" : "";
  }
  const bool isPart = number < kFirstSubDirectory;
  const auto index = static_cast<size_t>(number - (isPart ? kFirstPart : kFirstSubDirectory));
  if (index >= (isPart ? parts_ : subDirectories_).size()) return {};
  if (!isPart) {
    return directory + (directory.ends_with('\\') ? "" : "\\") + subDirectories_[index] + "\\";
  }
  size_t end = kDriveEnd;
  for (size_t i = 0; i <= index; ++i) end = directory.find('\\', end + 1);
  return directory.substr(0, end) + "\\";
}

int DirectoryBrowser::DriveItem() const {
  const auto current = std::find_if(driveLetters_.begin(), driveLetters_.end(), [&](char letter) {
    return !directory.empty() && Lower(letter) == Lower(directory[0]);
  });
  return current == driveLetters_.end() ? 0 : static_cast<int>(current - driveLetters_.begin());
}

int DirectoryBrowser::SelectedItem() const {
  return parts_.empty() ? DriveItem() : kFirstPart + static_cast<int>(parts_.size()) - 1;
}

std::vector<DirectoryBrowser::Item> DirectoryBrowser::Items() const {
  std::vector<Item> items;
  for (size_t i = 0; i < driveLetters_.size(); ++i) {
    items.push_back({static_cast<int>(i), -1, std::string("[") + driveLetters_[i] + ":]"});
  }
  int above = DriveItem();
  for (size_t i = 0; i < parts_.size(); ++i) {
    const int number = kFirstPart + static_cast<int>(i);
    items.push_back({number, above, parts_[i]});
    above = number;
  }
  for (size_t i = 0; i < subDirectories_.size(); ++i) {
    items.push_back({kFirstSubDirectory + static_cast<int>(i), above, subDirectories_[i]});
  }
  return items;
}

}  // namespace tvx
