// What the commands of a window show for a result that is a failure.
#pragma once

#include <string>

#include "master/master_build.h"
#include "master/master_file.h"
#include "model/loader.h"
#include "platform/user_interface.h"

namespace tvx {

class CTVXApp;

// Each shows the message of a failure and nothing for any other result. No message is defined for a
// full store, a refused build and a missing model to write. A path goes to the status line, where
// it remains after the message. `program` is what the load left.
void ShowFailure(LoadResult result, const NcProgram& program, const std::string& path,
                 UserInterface* ui);
void ShowFailure(BuildResult result, UserInterface* ui);
void ShowFailure(MasterFileResult result, const std::string& path, UserInterface* ui);

// The files of settings that the application has noted as unread; clears the notes.
void ShowUnread(CTVXApp* app);

// A result that the full table could not record.
void ShowTableFull(UserInterface* ui);

}  // namespace tvx
