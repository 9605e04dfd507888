// Writes the job list file, and copies the files of its entries beside it.
#include "reports/job_list_file.h"

#include <map>
#include <set>

#include "base/path_text.h"
#include "base/scan.h"
#include "base/text.h"
#include "jobs/directory_browser.h"
#include "jobs/job_list.h"
#include "jobs/option_line.h"
#include "master/master_file.h"
#include "platform/files/drives.h"
#include "reports/report.h"

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
    const Status there = files_->LookAt(destination);
    if (!IsMasterName(source)) {
      Note(source, destination, {StatusKind::kRefusedName, source});
    } else if (there.kind() == StatusKind::kMissing) {
      Copy(source, destination);
    } else {
      Note(source, destination, there);
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
    Note(source, destination, files_->Copy(source, destination));
  }

  void Note(const std::string& source, const std::string& destination, const Status& copied) {
    if (!copied.ok() && failed_ != nullptr) failed_->push_back({source, destination, copied});
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
  if (files->Size(a) != files->Size(b)) return false;
  const Result<std::string> bytesOfA = ReadWholeFile(files, a);
  const Result<std::string> bytesOfB = ReadWholeFile(files, b);
  return bytesOfA.ok() && bytesOfB.ok() && bytesOfA.value == bytesOfB.value;
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

Status WriteJobListFile(const std::string& path, std::span<const ProgramResult> results,
                        Files* files) {
  if (HasIncomplete(results)) return {StatusKind::kPartSource, path};
  std::string list;
  for (const ProgramResult& result : results) {
    const CutTimeEntry& entry = result.entry;
    std::string line = entry.optionLine;
    ReplaceDirectory(DirectoryOfPath(path, kBackslash), &line);
    list += EntryText(entry, line);
  }
  return WriteWholeFile(files, path, list);
}

Status WriteJobListFileCopy(const std::string& path, std::span<const ProgramResult> results,
                            Files* files, std::vector<FailedCopy>* failed) {
  if (HasIncomplete(results)) return {StatusKind::kPartSource, path};
  if (FindSameName(path, results)) return {StatusKind::kSameName, path};
  const Result<std::unique_ptr<OutputFile>> file = files->Create(path);
  if (!file.ok()) return file.status;
  std::string list;
  Copier copier(DirectoryOfPath(path, kBackslash), files, failed);
  for (const ProgramResult& result : results) {
    const CutTimeEntry& entry = result.entry;
    std::string line = entry.optionLine;
    copier.CopyMaster(&line);
    const std::string directory = ReplaceDirectory(DirectoryOfPath(path, kBackslash), &line);
    list += EntryText(entry, line);
    copier.CopyProgram(directory, entry.fileName);
  }
  const Status written = file.value->Write(list);
  return written.ok() ? file.value->Commit() : written;
}

namespace {

constexpr Message kListButton{"AFA 출력", "Write job list"};
constexpr Message kCopyButton{"AFA 출력, Copy", "Write job list, copy"};
constexpr char kListTitle[] = "TVX  화일명을 입력 하시요!!";

}  // namespace

extern const Report kJobListReport, kJobListCopyReport;

constinit const Report kJobListReport = {
    .option = "--list",
    .help = {"OUT.mcf: 작업 리스트 화일 쓰기", "OUT.mcf: write the job list file"},
    .button = &kListButton,
    .ending = "mcf",
    .fileKind = "TVX file",
    .chooserTitle = kListTitle,
    .isOfKind = IsJobList,
    .write = [](std::span<const ProgramResult> results,
                const ReportTarget& to) { return WriteJobListFile(to.path, results, to.files); },
};

constinit const Report kJobListCopyReport = {
    .option = "--list-copy",
    .help = {"OUT.mcf: 작업 리스트 화일을 쓰고 리스트의 화일을 그 옆에 복사",
             "OUT.mcf: write the job list file and copy the files of the list beside it"},
    .button = &kCopyButton,
    .ending = "mcf",
    .fileKind = "TVX file",
    .chooserTitle = kListTitle,
    .isOfKind = IsJobList,
    .steps = ReportSteps::kCopyFiles,
};

}  // namespace tvx
