// The start of the program: settings files into the state that all windows share.
#include "session/application.h"

#include <algorithm>
#include <cerrno>

#include "settings/lists.h"

namespace tvx {

CTVXApp::CTVXApp(Files* theFiles, UserInterface* theUi, Programs* thePrograms,
                 Spreadsheets* theSpreadsheets)
    : files(theFiles),
      ui(theUi),
      programs(thePrograms),
      spreadsheets(theSpreadsheets),
      sendOptions(theFiles, theUi) {}

int CTVXApp::InitApplication(int32_t language) {
  LabelLanguage = sendOptions.labelLanguage = language;
  const std::string& directory = configuration.EnvDir;
  if (!ReadConfiguration(&configuration, files)) NoteUnread(ConfigurationPath(configuration));
  if (!ReadExtensionList(directory, &ExtensionList, files)) {
    NoteUnread(ExtensionListPath(directory));
  }
  if (!ReadDirectoryList(directory, &DirectoryList, files)) {
    NoteUnread(DirectoryListPath(directory));
  }
  if (!ReadUserKeys(directory, &UserKeys, files)) NoteUnread(UserKeyPath(directory));
  return 1;
}

void CTVXApp::NoteUnread(const std::string& path) {
  const int error = files->LastError();
  const bool isNoted = std::any_of(unread.begin(), unread.end(),
                                   [&](const UnreadFile& file) { return file.path == path; });
  // ENOTDIR: a folder of its path is a file, so it cannot be there.
  if (error != ENOENT && error != ENOTDIR && !isNoted) unread.push_back({path, error});
}

}  // namespace tvx
