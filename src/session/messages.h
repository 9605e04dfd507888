// What the commands of a window show for a result that is a failure.
#pragma once

#include <string>

#include "base/status.h"
#include "model/nc_program.h"
#include "platform/user_interface.h"

namespace tvx {

class CTVXApp;

// Each shows the message of a failure and nothing for what is done. There is no message for a
// refused build and a missing model to write. A path goes to the status line, where it
// remains after the message. `program` is what the load left.
void ShowLoadFailure(const Status& load, const NcProgram& program, const std::string& path,
                     UserInterface* ui);
void ShowBuildFailure(const Status& build, UserInterface* ui);
void ShowMasterUnread(const Status& read, const std::string& path, UserInterface* ui);
void ShowMasterUnwritten(const Status& written, const std::string& path, UserInterface* ui);

// The files of settings that the application has noted as unread; clears the notes.
void ShowUnread(CTVXApp* app);

// A result that the full table could not record.
void ShowTableFull(UserInterface* ui);

}  // namespace tvx
