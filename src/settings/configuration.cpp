// Reads and writes tvx.cfg by the table kFields.

#include "settings/configuration.h"

#include "base/scan.h"
#include "base/text.h"
#include "platform/files/user_files.h"
#include "platform/number_field.h"
#include "settings/short_text.h"

namespace tvx {

namespace {

const ConfigurationField kFields[] = {
    {"환경Dir", "환경화일 DIR", &Configuration::EnvDir, "c:\\marlo"},
    {"WorkDir", "작업 DIR", &Configuration::WorkDir, "c:\\marlo\\ncdata"},
    {"AFADir", "AFA 조건 DIR", &Configuration::AFADir, "c:\\marlo\\afa"},
    {"Editor", "편집기(editor)", &Configuration::Editor, "wordpad.exe"},
};

// The file of a first start has two blanks after all keys but the first, and one after each value.
std::string FirstStartText(const Configuration& configuration) {
  std::string text;
  for (const ConfigurationField& field : kFields) {
    const bool first = &field == &kFields[0];
    text += field.key + std::string(first ? " " : "  ") + configuration.*field.value + " \r\n";
  }
  return text;
}

std::string SavedText(const Configuration& configuration) {
  std::string text;
  for (const ConfigurationField& field : kFields) {
    const std::string& value = configuration.*field.value;
    text +=
        field.key + std::string(" ") + (value.empty() ? std::string(kEmptyWord) : value) + "\r\n";
  }
  return text;
}

void TakePairs(std::string_view bytes, Configuration* configuration) {
  WordScanner words(bytes);
  std::string key;
  std::string value;
  while (ReadShortWord(&words, &key) && ReadShortWord(&words, &value)) {
    for (const ConfigurationField& field : kFields) {
      if (!EqualNoCase(field.key, key)) continue;
      configuration->*field.value = value == kEmptyWord ? "" : value;
    }
  }
}

}  // namespace

std::string ConfigurationPath(const Configuration& configuration) {
  return configuration.WindowsDir + "\\tvx.cfg";
}

std::span<const ConfigurationField> ConfigurationFields() {
  return kFields;
}

Status ReadConfiguration(Configuration* configuration, Files* files) {
  *configuration = {};
  const std::string path = ConfigurationPath(*configuration);
  const Result<std::string> bytes = ReadSettings(files, path);
  if (bytes.ok()) {
    TakePairs(bytes.value, configuration);
    return {};
  }
  for (const ConfigurationField& field : kFields) configuration->*field.value = field.initial;
  if (bytes.status.kind() == StatusKind::kMissing) {
    static_cast<void>(WriteWholeFile(files, path, EncodeCp949(FirstStartText(*configuration))));
  }
  return bytes.status;
}

Status SaveConfiguration(const Configuration& configuration, Files* files) {
  return WriteWholeFile(files, ConfigurationPath(configuration),
                        EncodeCp949(SavedText(configuration)));
}

Closing CDirSetupDlg::Accept() {
  for (const ConfigurationField& field : kFields) {
    if (!AcceptWord(values.*field.value, ui_)) return Closing::kStaysOpen;
  }
  return Closing::kAccepted;
}

void EditConfiguration(Configuration* configuration, Files* files, UserInterface* ui) {
  CDirSetupDlg dialog(ui);
  dialog.values = *configuration;
  if (!ui->RunModal(&dialog)) return;
  const Status written = SaveConfiguration(dialog.values, files);
  ShowWritten(written, ConfigurationPath(dialog.values), ui);
  if (!written.ok()) ShowCannotOpen(ui);
  *configuration = dialog.values;
}

}  // namespace tvx
