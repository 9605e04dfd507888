// The start of the program: settings files into the state that all windows share.
#include "session/application.h"

#include <algorithm>

#include "settings/lists.h"

namespace tvx {

CTVXApp::CTVXApp(Files* theFiles, UserInterface* theUi, Programs* thePrograms,
                 Spreadsheets* theSpreadsheets)
    : files(theFiles),
      ui(theUi),
      programs(thePrograms),
      spreadsheets(theSpreadsheets),
      sendOptions(theFiles, theUi) {}

int CTVXApp::InitApplication(Language language) {
  LabelLanguage = sendOptions.labelLanguage = language;
  const std::string& directory = configuration.EnvDir;
  NoteUnread(ReadConfiguration(&configuration, files));
  NoteUnread(ReadExtensionList(directory, &ExtensionList, files));
  NoteUnread(ReadDirectoryList(directory, &DirectoryList, files));
  NoteUnread(ReadUserKeys(directory, &UserKeys, files));
  return 1;
}

void CTVXApp::NoteUnread(const Status& read) {
  if (read.ok() || read.kind() == StatusKind::kMissing) return;
  const bool isNoted = std::any_of(unread.begin(), unread.end(), [&](const Status& other) {
    return other.path() == read.path();
  });
  if (!isNoted) unread.push_back(read);
}

}  // namespace tvx
