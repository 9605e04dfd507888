// Builds the working state of a new window from the defaults and the files of the start.

#include "session/tvx_view.h"

#include "conditions/condition_file.h"
#include "settings/lists.h"
#include "settings/parameter_file.h"

namespace tvx {

CTVXView::CTVXView(CTVXApp* theApp)
    : app(theApp),
      optionDialog(theApp->files, theApp->ui),
      transferDialog(&theApp->UserKeys, theApp->files, theApp->ui),
      cutTimeList(&results, theApp->files, theApp->ui, theApp->spreadsheets) {
  cutTimeList.language = [this] { return app->LabelLanguage; };
  cutTimeList.finishChecks = [this] { check.Finish(app->files, app->ui->LongWork()); };
  SetDefaults();
  ReadFiles();
}

// All other defaults are those of JobRecord.
void CTVXView::SetDefaults() {
  job.WorkDir = app->configuration.WorkDir;
  job.ConditionDir = app->configuration.AFADir;
}

void CTVXView::ReadFiles() {
  const std::string& environmentDir = app->configuration.EnvDir;
  app->NoteUnread(ReadParameterFile(environmentDir, &job, app->files));
  app->NoteUnread(ReadExtensionList(environmentDir, &app->ExtensionList, app->files));
  app->NoteUnread(ReadConditionFile(DefaultConditionPath(environmentDir), &job,
                                    &app->rememberedSpindle, app->files));
}

}  // namespace tvx
