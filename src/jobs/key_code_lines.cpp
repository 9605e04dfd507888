// The key-code part of an entry's line: the word "KeyCode" and the words behind it. The operations
// find a word in the line by its text, so the first occurrence counts, wherever it stands.

#include "base/format.h"
#include "base/text.h"
#include "jobs/transfer_dialog.h"

namespace tvx {

namespace {

constexpr char kKeyCode[] = "KeyCode";
constexpr size_t kReadBytes = 99;  // of the key-code file's first line

std::string WithoutLeadingBlanks(const std::string& text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

// The first line, of at most kReadBytes; a word that this would cut is taken whole.
std::string FirstLine(const std::string& bytes) {
  std::string line = bytes.substr(0, bytes.find_first_of("\r\n"));
  if (line.size() > kReadBytes) line = line.substr(0, line.find(' ', kReadBytes - 1));
  return line;
}

}  // namespace

void CTransferDlg::ReplaceLine(size_t index, std::string line) {
  list.lines[index] = std::move(line);
  ParseOptionLine(&ShownOptions, list.lines[index], &shownFile);
  selectedName = list.names[index];
  ShowInfo();
}

// Makes sure that the line has a key-code part, for one more word.
void CTransferDlg::AddToKeyCodes(std::string* line) {
  if (line->find(kKeyCode) == std::string::npos) {
    ListOptions.KeyCodeOn = ListOptions.KeyCodeCount = 1;
    *line += Format(" %s ", kKeyCode);
  } else {
    ++ListOptions.KeyCodeCount;
  }
}

void CTransferDlg::AddKeyCode() {
  if (RefuseFrozen() || !RunKeyCodePad(&keyPad_, ui_)) return;
  const auto index = static_cast<size_t>(selectedEntry);
  std::string line = list.lines[index];
  AddToKeyCodes(&line);
  ReplaceLine(index, line + " " + keyPad_.KeyText);
}

void CTransferDlg::InsertKeyCode() {
  if (RefuseFrozen() || !RunKeyCodePad(&keyPad_, ui_)) return;
  const auto index = static_cast<size_t>(selectedEntry);
  std::string line = list.lines[index];
  AddToKeyCodes(&line);
  if (selectedInformation < 0) {
    ReplaceLine(index, line + " " + keyPad_.KeyText);
    return;
  }
  const std::string row =
      WithoutLeadingBlanks(information.at(static_cast<size_t>(selectedInformation)));
  const size_t at = line.find(row);
  if (at == std::string::npos) return;
  ReplaceLine(index, line.substr(0, at) + keyPad_.KeyText + "  " + line.substr(at));
}

// Where the key-code word of the selected row, or of the last one, stands in the line. Nothing for
// a row whose text does not stand first in the key-code part.
std::optional<size_t> CTransferDlg::SelectedWord(const std::string& line, std::string* word) const {
  if (information.empty()) return std::nullopt;
  *word = WithoutLeadingBlanks(selectedInformation < 0
                                   ? information.back()
                                   : information.at(static_cast<size_t>(selectedInformation)));
  const size_t part = line.find(kKeyCode);
  const size_t at = line.find(*word);
  if (part == std::string::npos || at == std::string::npos || at < part) return std::nullopt;
  return at;
}

void CTransferDlg::DeleteKeyCode() {
  if (RefuseFrozen()) return;
  const auto index = static_cast<size_t>(selectedEntry);
  std::string line = list.lines[index], word;
  const std::optional<size_t> at = SelectedWord(line, &word);
  if (!at.has_value()) return;
  ReplaceLine(index, line.erase(*at, word.size()));
}

void CTransferDlg::ChangeKeyCode() {
  if (RefuseFrozen()) return;
  const auto index = static_cast<size_t>(selectedEntry);
  std::string line = list.lines[index], word;
  const std::optional<size_t> at = SelectedWord(line, &word);
  if (!at.has_value()) return;
  keyPad_.KeyText = word;
  if (RunKeyCodePad(&keyPad_, ui_)) line.replace(*at, word.size(), keyPad_.KeyText);
  ReplaceLine(index, std::move(line));
}

void CTransferDlg::SaveKeyCodes() {
  const std::optional<size_t> index = SelectedOrLast();
  if (!index.has_value()) return;
  const std::string& line = list.lines[*index];
  const size_t part = line.find(kKeyCode);
  if (part == std::string::npos) return;
  WriteWholeFile(files_, EnvironmentFile(kKeyCode) + ".txt", EncodeCp949(line.substr(part)));
}

void CTransferDlg::ReadKeyCodes() {
  const std::optional<size_t> index = SelectedOrLast();
  if (!index.has_value() || RefuseFrozen()) return;
  std::string bytes;
  if (!ReadWholeFile(files_, EnvironmentFile(kKeyCode) + ".txt", &bytes)) return;
  bytes = FirstLine(bytes);
  const std::string& line = list.lines[*index];
  ReplaceLine(*index, line.substr(0, line.find(kKeyCode)) + DecodeCp949(bytes));
}

}  // namespace tvx
