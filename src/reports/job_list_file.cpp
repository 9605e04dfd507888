// Writes the job list file, and copies the files of its entries beside it.
#include "reports/job_list_file.h"

#include "base/path_text.h"
#include "base/scan.h"
#include "base/text.h"
#include "jobs/option_line.h"

namespace tvx {

namespace {

constexpr char kMasterWord[] = "MMA";
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
    if (!files_->Exists(destination)) Copy(source, destination);
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
    if (!files_->Copy(source, destination) && failed_ != nullptr) {
      failed_->push_back({source, destination, files_->LastError()});
    }
  }

  std::string directory_;
  Files* files_;
  std::vector<FailedCopy>* failed_;
};

}  // namespace

std::string DriveForm(std::string directory) {
  constexpr size_t kDriveLength = 2;
  if (directory.empty()) return directory;
  const size_t slash = directory.find('\\');
  const bool hasDrive = slash != std::string::npos && slash >= kDriveLength;
  directory[hasDrive ? slash - kDriveLength : 0] = kAnyDrive;
  return directory;
}

bool LineMasterFile(std::string_view line, std::string* path) {
  const size_t at = line.find(kMasterWord);
  if (at == std::string_view::npos) return false;
  WordScanner words(line.substr(at));
  std::string ownWord;
  words.ReadWord(&ownWord);
  return words.ReadWord(path);
}

bool WriteJobListFile(const std::string& path, const ResultTable& results, Files* files) {
  if (results.HasPart()) return files->Fail(kPartSource);
  const auto file = files->Create(path);
  if (file == nullptr) return false;
  for (const CutTimeEntry& entry : results.Recorded()) {
    std::string line = entry.optionLine;
    ReplaceDirectory(DirectoryOfPath(path, kBackslash), &line);
    file->Write(EntryText(entry, line));
  }
  return file->Commit();
}

bool WriteJobListFileCopy(const std::string& path, const ResultTable& results, Files* files,
                          std::vector<FailedCopy>* failed) {
  if (results.HasPart()) return files->Fail(kPartSource);
  const auto file = files->Create(path);
  if (file == nullptr) return false;
  Copier copier(DirectoryOfPath(path, kBackslash), files, failed);
  for (const CutTimeEntry& entry : results.Recorded()) {
    std::string line = entry.optionLine;
    copier.CopyMaster(&line);
    const std::string directory = ReplaceDirectory(DirectoryOfPath(path, kBackslash), &line);
    file->Write(EntryText(entry, line));
    copier.CopyProgram(directory, entry.fileName);
  }
  return file->Commit();
}

}  // namespace tvx
