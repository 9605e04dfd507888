// Reads, writes and edits the user keys.

#include "settings/user_keys.h"

#include <string_view>

#include "base/text.h"
#include "jobs/key_code_pad.h"
#include "platform/files/user_files.h"
#include "settings/short_text.h"

namespace tvx {

namespace {

constexpr char kHeader[] = "=======USER KEY======";

// Removes the next line from the front of a text; *line is without its line feed. Returns false at
// the end of the text.
bool TakeLine(std::string_view* text, std::string_view* line) {
  if (text->empty()) return false;
  *line = text->substr(0, text->find('\n'));
  text->remove_prefix(line->size() < text->size() ? line->size() + 1 : line->size());
  return true;
}

std::string WithoutTrailingWhite(const std::string& text) {
  return text.substr(0, text.find_last_not_of(" \t\n\v\f\r") + 1);
}

}  // namespace

std::string UserKeyPath(const std::string& environmentDir) {
  return environmentDir + "\\UserKey.txt";
}

Status ReadUserKeys(const std::string& environmentDir, std::vector<std::string>* keys,
                    Files* files) {
  keys->assign(kUserKeyElements, {});
  const Result<std::string> bytes = ReadSettings(files, UserKeyPath(environmentDir));
  if (!bytes.ok()) return bytes.status;
  std::string_view text = bytes.value;
  std::string_view line;
  TakeLine(&text, &line);  // any line is taken as the header
  for (size_t n = 1; n <= kLastUserKey && TakeLine(&text, &line); ++n) {
    (*keys)[n] = WithoutTrailingWhite(DecodeShortText(line, kUserKeyBytes));
  }
  return {};
}

Status WriteUserKeys(const std::string& environmentDir, const std::vector<std::string>& keys,
                     Files* files) {
  std::string text = std::string(kHeader) + "\r\n";
  for (size_t n = 1; n <= kLastUserKey; ++n) text += keys[n] + "\r\n";
  return WriteWholeFile(files, UserKeyPath(environmentDir), EncodeCp949(text));
}

void SaveUserKeys(const std::string& environmentDir, const std::vector<std::string>& keys,
                  Files* files, UserInterface* ui) {
  ShowWritten(WriteUserKeys(environmentDir, keys, files), UserKeyPath(environmentDir), ui);
}

void EditUserKey(size_t n, std::vector<std::string>* keys, UserInterface* ui) {
  if (n < 1 || n > kLastUserKey || n >= keys->size()) return;
  CKeyCodeDlg pad(keys);
  pad.KeyText = (*keys)[n];
  // Cut now as the file would be, so that the user sees the key that will be saved.
  if (RunKeyCodePad(&pad, ui)) {
    (*keys)[n] = DecodeShortText(EncodeCp949(pad.KeyText), kUserKeyBytes);
  }
}

}  // namespace tvx
