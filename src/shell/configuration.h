#pragma once

#include <span>
#include <string>

#include "platform/drives.h"
#include "platform/files.h"
#include "platform/user_interface.h"

namespace tvx {

// The directories in which everything else lies, and the editor. Program-wide; kept in tvx.cfg in
// the Windows directory (docs/formats/configuration.md).
struct Configuration {
  std::string EnvDir;   // parameter file, lists, user keys, and afa\tvx.afa
  std::string WorkDir;  // NC files; copied into the job record when a view is built
  std::string AFADir;   // condition files
  std::string Editor;   // text editor that the job dialog starts
  std::string WindowsDir = kWindowsDirectory;
};

// One value of the configuration: its key in the file, its label in the dialog, its value when
// there is no file yet.
struct ConfigurationField {
  const char* key;
  const char* label;
  std::string Configuration::*value;
  const char* initial;
};

// The four values in the order of the file and of the dialog.
std::span<const ConfigurationField> ConfigurationFields();

// Reads the configuration. A key that the file does not hold leaves its value empty. If there is no
// file, the initial values stand and the file is created with them; nothing is said if that fails.
void ReadConfiguration(Configuration* configuration, Files* files);

// Creates or replaces the file. If that fails the user gets a message, an older file stays as it
// was and the result is false.
bool SaveConfiguration(const Configuration& configuration, Files* files, UserInterface* ui);

// The settings dialog: works on its own copy. Its accepting button saves; no value is checked.
class CDirSetupDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "환경설정";
  static constexpr char kAccept[] = "저장";
  static constexpr char kCancel[] = "취소";

  Configuration values;
};

// The command "환경설정": runs the dialog and, when accepted, saves its values and takes them over,
// also when they could not be saved. What was read before is not read anew.
void EditConfiguration(Configuration* configuration, Files* files, UserInterface* ui);

}  // namespace tvx
