// Reads and writes the extension list and the directory list, and edits the latter.

#include "settings/lists.h"

#include <algorithm>

#include "base/path_text.h"
#include "base/scan.h"
#include "base/text.h"
#include "platform/files/user_files.h"
#include "settings/short_text.h"

namespace tvx {

namespace {

// The job dialog has always offered "*.ppp" twice.
const char* const kStandardMasks[] = {"*.*", "*.nc", "*.hnc", "*.ppp", "*.ppp", "*.tap", "*.tif"};

// Fills the elements from 0 on; words beyond the last element are not read.
Status ReadWordList(const std::string& path, std::vector<std::string>* list, Files* files) {
  const Result<std::string> bytes = ReadSettings(files, path);
  if (!bytes.ok()) return bytes.status;
  WordScanner words(bytes.value);
  for (std::string& element : *list) {
    if (!ReadShortWord(&words, &element)) break;
  }
  return {};
}

std::vector<std::string> NotEmpty(const std::vector<std::string>& lines) {
  std::vector<std::string> result;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(result),
               [](const std::string& line) { return !line.empty(); });
  return result;
}

Status SaveDirectoryList(const std::string& environmentDir, const std::vector<std::string>& lines,
                         Files* files) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return WriteWholeFile(files, DirectoryListPath(environmentDir), EncodeCp949(text));
}

}  // namespace

std::string ExtensionListPath(const std::string& environmentDir) {
  return environmentDir + "\\fileext.txt";
}

std::string DirectoryListPath(const std::string& environmentDir) {
  return environmentDir + "\\dirlist.txt";
}

Status ReadExtensionList(const std::string& environmentDir, std::vector<std::string>* list,
                         Files* files) {
  list->resize(kExtensions);
  Status read = ReadWordList(ExtensionListPath(environmentDir), list, files);
  if (!read.ok()) std::copy(std::begin(kStandardMasks), std::end(kStandardMasks), list->begin());
  return read;
}

Status ReadDirectoryList(const std::string& environmentDir, std::vector<std::string>* list,
                         Files* files) {
  list->resize(kDirectories);
  return ReadWordList(DirectoryListPath(environmentDir), list, files);
}

std::vector<std::string> ListEntries(const std::vector<std::string>& list) {
  const auto end =
      std::find_if(list.begin(), list.end(), [](const std::string& s) { return s.empty(); });
  return {list.begin(), end};
}

void CDirListDlg::Add() {
  FileQuestion question;
  question.fileName = "*.";
  std::string path;
  if (!ui_->ChooseFile(question, &path)) return;
  const std::string directory = DirectoryOfPath(path, kBackslash);
  if (!directory.empty() && lines.size() < kDirectories) lines.push_back(directory);
}

void CDirListDlg::Delete() {
  if (!HasSelection()) return;
  lines.erase(lines.begin() + selection);
  selection = -1;
}

void CDirListDlg::Change() {
  if (!HasSelection()) return;
  CTextInputDlg input;
  input.text = lines[static_cast<size_t>(selection)];
  if (ui_->RunModal(&input)) lines[static_cast<size_t>(selection)] = input.text;
}

bool CDirListDlg::HasSelection() const {
  return selection >= 0 && static_cast<size_t>(selection) < lines.size();
}

void EditDirectoryList(const std::string& environmentDir, std::vector<std::string>* list,
                       Files* files, UserInterface* ui) {
  CDirListDlg dialog(ui);
  dialog.lines = NotEmpty(*list);
  if (!ui->RunModal(&dialog)) return;
  const Status written = SaveDirectoryList(environmentDir, dialog.lines, files);
  ShowWritten(written, DirectoryListPath(environmentDir), ui);
  if (!written.ok()) {
    ShowCannotOpen(ui);
    return;
  }
  // An empty line is no entry: it would end the list before the others.
  *list = NotEmpty(dialog.lines);
  list->resize(kDirectories);
}

}  // namespace tvx
