// The commands of the master menu.
#pragma once

#include <cstdint>
#include <string>

#include "master/master_build.h"
#include "master/master_grid.h"
#include "model/nc_program.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"
#include "session/changes.h"

namespace tvx {

class CTVXView;

// The state of one window that the commands use.
struct MasterContext {
  NcProgram* program;
  MasterGrid* grid;
  CMasterDlg* dialog;
  int32_t* RapidVisible;
  Files* files;
  UserInterface* ui;
  ChangeNotifier* changes;
};

MasterContext MasterContextOf(CTVXView* view);

// Builds the model from the program in the store with the values of the dialog (BuildMaster). A
// model that was built is shown at once, without rapids.
Status BuildAndShowMaster(const MasterContext& context);

// Asks for the input of a build and builds the model from the program in the store. The input is
// kept only if the user accepts it. The status line shows why a program gives no model.
void MakeMasterCommand(const MasterContext& context);

// Asks whether to delete the model, and drops it, which the status line shows. Its picture stays.
void DeleteMaster(MasterGrid* grid, UserInterface* ui);

// Asks for a file and writes the model to it. The status line shows if there is no model.
void SaveMasterCommand(const MasterContext& context);

// Asks for a file, drops the old model, reads the file and shows the model. After a failed read
// there is no model and the store is unchanged.
void LoadMasterCommand(const MasterContext& context);

}  // namespace tvx
