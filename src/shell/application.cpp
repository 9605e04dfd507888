#include "shell/application.h"

#include "shell/lists.h"

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
  ReadConfiguration(&configuration, files);
  ReadExtensionList(configuration.EnvDir, &ExtensionList, files);
  ReadDirectoryList(configuration.EnvDir, &DirectoryList, files);
  ReadUserKeys(configuration.EnvDir, &UserKeys, files);
  return 1;
}

}  // namespace tvx
