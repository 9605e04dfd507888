// The configuration: the directories of all other files, and the editor.
#pragma once

#include <span>
#include <string>

#include "platform/files/drives.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

// One for the whole program, stored in tvx.cfg in the Windows directory
// (docs/formats/configuration.md).
struct Configuration {
  std::string EnvDir;   // parameter file, lists, user keys, and afa\tvx.afa
  std::string WorkDir;  // NC files; copied into the job record when a view is built
  std::string AFADir;   // condition files
  std::string Editor;   // text editor that the job dialog starts
  std::string WindowsDir = kWindowsDirectory;
};

// One value of the configuration: its key in the file, its label in the dialog, and its value
// without a file.
struct ConfigurationField {
  const char* key;
  const char* label;
  std::string Configuration::*value;
  const char* initial;
};

// The four values in the order of the file and of the dialog.
std::span<const ConfigurationField> ConfigurationFields();

std::string ConfigurationPath(const Configuration& configuration);

// Reads the configuration. A key that is missing in the file leaves its value empty. If the file
// cannot be read, the values are the initial ones. A file that is missing is created with them,
// which may fail; no other file is touched.
Status ReadConfiguration(Configuration* configuration, Files* files);

// Creates or replaces the file. An older file stays as it was if that fails.
Status SaveConfiguration(const Configuration& configuration, Files* files);

// The settings dialog, on a copy of the configuration.
class CDirSetupDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "환경설정";
  static constexpr char kAccept[] = "저장";
  static constexpr char kCancel[] = "취소";

  explicit CDirSetupDlg(UserInterface* ui) : ui_(ui) {}

  // "저장": a value that the file cannot hold shows a message, and the dialog stays open. Nothing
  // else is checked.
  Closing Accept();

  Configuration values;

 private:
  UserInterface* ui_;
};

// The command "환경설정": runs the dialog. If it is accepted, its values become the configuration
// and are saved; a failed save shows a message. Files that were read before are not read again.
void EditConfiguration(Configuration* configuration, Files* files, UserInterface* ui);

}  // namespace tvx
