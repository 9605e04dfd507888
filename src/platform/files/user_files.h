// What the user is asked before a command writes a file, and shown afterwards.
#pragma once

#include <string>
#include <string_view>

#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

// True if a file may be written: nothing is there, or an empty file, or one whose first bytes (up
// to 4096) are of the kind to be written, or the user agrees. The content decides, not the name.
bool MayReplace(const std::string& path, bool (*isOfKind)(std::string_view start), Files* files,
                UserInterface* ui);

// Shows in the status line whether a file was written.
void ShowWritten(const Status& written, const std::string& path, UserInterface* ui);

// Shows the message for a file that cannot be opened or, of the program's own files, written.
void ShowCannotOpen(UserInterface* ui);

}  // namespace tvx
