// Writes the job list file, and copies the files of its entries beside it.
#include "reports/job_list_file.h"

#include <map>
#include <set>

#include "base/path_text.h"
#include "base/scan.h"
#include "base/text.h"
#include "jobs/directory_browser.h"
#include "jobs/option_line.h"
#include "master/master_file.h"
#include "platform/files/drives.h"

namespace tvx {

namespace {

constexpr char kAnyDrive = 'X';

// Replaces the directory of a line by that of the list. Returns the old one. The root of a drive
// ends in a backslash, which a path below it keeps.
std::string ReplaceDirectory(const std::string& listDirectory, std::string* line) {
  std::string directory;
  LineDirectory(*line, &directory);
  const std::string replacement = DriveForm(listDirectory);
  if (!directory.ends_with('\\')) {
    ReplaceAll(directory, replacement, line);
    return directory;
  }
  for (size_t at = line->find(directory); at != std::string::npos; at = line->find(directory, at)) {
    const size_t end = at + directory.size();
    const bool isWhole = end == line->size() || (*line)[end] == ' ';
    line->replace(at, end - (isWhole ? 0 : 1) - at, replacement);
    at += replacement.size();
  }
  return directory;
}

std::string EntryText(const CutTimeEntry& entry, const std::string& line) {
  return EncodeCp949("File " + entry.fileName + " " + line + " \r\n");
}

// Copies the files of the entries into the directory of a list.
class Copier {
 public:
  Copier(std::string directory, Files* files, std::vector<FailedCopy>* failed)
      : directory_(std::move(directory)), files_(files), failed_(failed) {}

  // Copies the master model that a line names, unless a file of that name is already there, and
  // puts the path of the copy into the line.
  void CopyMaster(std::string* line) {
    std::string source;
    if (!LineMasterFile(*line, &source)) return;
    const std::string destination = directory_ + "\\" + NameOfPath(source, kBackslash);
    if (!IsMasterName(source)) {
      Fail(source, destination, kRefusedName);
    } else if (!files_->Exists(destination)) {
      Copy(source, destination);
    } else if (files_->LastError() != 0) {
      Fail(source, destination, files_->LastError());
    }
    ReplaceAll(source, DriveForm(destination), line);
  }

  // An entry without an option line has no directory to copy from.
  void CopyProgram(const std::string& sourceDirectory, const std::string& fileName) {
    if (sourceDirectory.empty()) return;
    Copy(sourceDirectory + "\\" + fileName, directory_ + "\\" + fileName);
  }

 private:
  void Copy(const std::string& source, const std::string& destination) {
    if (EqualNoCase(source, destination)) return;
    if (!files_->Copy(source, destination)) Fail(source, destination, files_->LastError());
  }

  void Fail(const std::string& source, const std::string& destination, int error) {
    if (failed_ != nullptr) failed_->push_back({source, destination, error});
  }

  std::string directory_;
  Files* files_;
  std::vector<FailedCopy>* failed_;
};

// The files that a copy of the list takes: of an entry its program, and its master model.
std::vector<std::string> SourcesOf(const CutTimeEntry& entry) {
  std::vector<std::string> sources;
  std::string directory, master;
  LineDirectory(entry.optionLine, &directory);
  if (!directory.empty()) sources.push_back(directory + "\\" + entry.fileName);
  if (LineMasterFile(entry.optionLine, &master) && IsMasterName(master)) sources.push_back(master);
  return sources;
}

// As it is compared: one letter case, one spelling.
std::string PlainForm(const std::string& path) {
  return LowerCase(HasDrive(path) ? NormalDrivePath(path) : path);
}

// Files that cannot be read to their ends count as different.
bool HaveSameBytes(const std::string& a, const std::string& b, Files* files) {
  std::string bytesOfA, bytesOfB;
  return files->Size(a) == files->Size(b) && ReadWholeFile(files, a, &bytesOfA) &&
         ReadWholeFile(files, b, &bytesOfB) && bytesOfA == bytesOfB;
}

}  // namespace

std::optional<SameName> FindSameName(const std::string& path,
                                     std::span<const ProgramResult> results) {
  const std::string listName = NameOfPath(path, kBackslash);
  // By the name in lower case. The list takes its own name, wherever a file of that name is.
  std::map<std::string, std::string> sources = {{LowerCase(listName), path}};
  for (const ProgramResult& result : results) {
    const CutTimeEntry& entry = result.entry;
    for (const std::string& source : SourcesOf(entry)) {
      const std::string name = LowerCase(NameOfPath(source, kBackslash));
      const auto [other, isNew] = sources.try_emplace(name, source);
      if (isNew) continue;
      if (name == LowerCase(listName) || PlainForm(other->second) != PlainForm(source)) {
        return SameName{other->second, source};
      }
    }
  }
  return std::nullopt;
}

std::vector<std::string> ProgramsToReplace(const std::string& path,
                                           std::span<const ProgramResult> results, Files* files) {
  std::vector<std::string> replaced;
  std::set<std::string> seen;
  for (const ProgramResult& result : results) {
    const CutTimeEntry& entry = result.entry;
    std::string directory;
    LineDirectory(entry.optionLine, &directory);
    const std::string source = directory + "\\" + entry.fileName;
    const std::string destination = DirectoryOfPath(path, kBackslash) + "\\" + entry.fileName;
    if (directory.empty() || !files->Exists(source) || !files->Exists(destination) ||
        !seen.insert(LowerCase(destination)).second) {
      continue;
    }
    if (!HaveSameBytes(source, destination, files)) replaced.push_back(destination);
  }
  return replaced;
}

std::string DriveForm(std::string directory) {
  constexpr size_t kDriveLength = 2;
  if (directory.empty()) return directory;
  const size_t slash = directory.find('\\');
  const bool hasDrive = slash != std::string::npos && slash >= kDriveLength;
  directory[hasDrive ? slash - kDriveLength : 0] = kAnyDrive;
  return directory;
}

bool WriteJobListFile(const std::string& path, std::span<const ProgramResult> results,
                      Files* files) {
  if (HasIncomplete(results)) return files->Fail(kPartSource);
  const auto file = files->Create(path);
  if (file == nullptr) return false;
  for (const ProgramResult& result : results) {
    const CutTimeEntry& entry = result.entry;
    std::string line = entry.optionLine;
    ReplaceDirectory(DirectoryOfPath(path, kBackslash), &line);
    file->Write(EntryText(entry, line));
  }
  return file->Commit();
}

bool WriteJobListFileCopy(const std::string& path, std::span<const ProgramResult> results,
                          Files* files, std::vector<FailedCopy>* failed) {
  if (HasIncomplete(results)) return files->Fail(kPartSource);
  if (FindSameName(path, results)) return false;
  const auto file = files->Create(path);
  if (file == nullptr) return false;
  Copier copier(DirectoryOfPath(path, kBackslash), files, failed);
  for (const ProgramResult& result : results) {
    const CutTimeEntry& entry = result.entry;
    std::string line = entry.optionLine;
    copier.CopyMaster(&line);
    const std::string directory = ReplaceDirectory(DirectoryOfPath(path, kBackslash), &line);
    file->Write(EntryText(entry, line));
    copier.CopyProgram(directory, entry.fileName);
  }
  return file->Commit();
}

}  // namespace tvx
