#pragma once

#include <cstdint>
#include <string>

#include "model/job_record.h"
#include "platform/files.h"
#include "platform/user_interface.h"

namespace tvx {

// A condition file (*.afa) holds one machining condition: the parameters of the feed adjustment and
// a spindle speed. docs/formats/condition.md describes it.

// The file with the defaults of a program start: afa\tvx.afa below the environment directory.
std::string DefaultConditionPath(const std::string& environmentDir);

// Reads a file over the record and *spindle (rev/min). Only what the file reaches changes; a value
// that cannot be read leaves its field as it was. The switch AfaByMaster is written into these
// files and never taken from them. Returns false, with nothing changed and no message, if the file
// cannot be opened.
bool ReadConditionFile(const std::string& path, JobRecord* record, int32_t* spindle, Files* files);

// Creates or replaces a file. If that fails the user gets a message, an older file stays as it was
// and the result is false.
bool WriteConditionFile(const std::string& path, const JobRecord& record, int32_t spindle,
                        Files* files, UserInterface* ui);

}  // namespace tvx
