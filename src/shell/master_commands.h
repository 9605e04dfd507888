// The commands of the master menu.
#pragma once

#include <cstdint>
#include <string>

#include "feed/master_build.h"
#include "feed/master_grid.h"
#include "model/nc_program.h"
#include "platform/files.h"
#include "platform/user_interface.h"

namespace tvx {

class CTVXView;

// What the commands work on in one window.
struct MasterContext {
  NcProgram* program;
  MasterGrid* grid;
  CMasterDlg* dialog;
  int32_t* RapidVisible;
  Files* files;
  UserInterface* ui;
};

MasterContext MasterContextOf(CTVXView* view);

// Builds the model from the program in the store with the values of the dialog (BuildMaster). A
// model that was built is shown at once, without rapids; that memory ran out is said. The reason of
// a refusal is left to the caller.
BuildResult BuildAndShowMaster(const MasterContext& context);

// Reads or writes the model (ReadMasterFile, WriteMasterFile). Returns true on success. A failure
// is said in a message, but not that there is no model to write.
bool ReadMaster(const std::string& path, const MasterContext& context);
bool WriteMaster(const std::string& path, const MasterContext& context);

// Asks for the input of a build and builds the model from the program in the store (BuildMaster).
// The input is kept only if the user accepts it.
void MakeMasterCommand(const MasterContext& context);

// Asks whether to delete the model, and drops it.
void DeleteMaster(MasterGrid* grid, UserInterface* ui);

// Asks for a file and writes the model to it. Without a model the status line says so.
void SaveMasterCommand(const MasterContext& context);

// Asks for a file, drops the old model, reads the file, and shows the model in the store. A file
// that cannot be read leaves no model, and the store as it was.
void LoadMasterCommand(const MasterContext& context);

}  // namespace tvx
