// A condition file (*.afa) holds one machining condition: the parameters of the feed adjustment and
// a spindle speed. docs/formats/condition.md describes it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "conditions/parameter_lines.h"
#include "model/job_record.h"
#include "platform/files/files.h"

namespace tvx {

// The file with the defaults of a program start: afa\tvx.afa below the environment directory.
std::string DefaultConditionPath(const std::string& environmentDir);

// True for the first bytes of a file that WriteConditionFile has written.
bool IsConditionFile(std::string_view start);

// Reads a file over the record and *spindle (rev/min). Only fields that the file holds change; a
// value that cannot be read leaves its field as it was. The switch AfaByMaster is written but never
// read. Nothing changes if the file cannot be read.
Status ReadConditionFile(const std::string& path, JobRecord* record, int32_t* spindle,
                         Files* files);

// Creates or replaces a file. An older file stays as it was if that fails.
Status WriteConditionFile(const std::string& path, const JobRecord& record, int32_t spindle,
                          Files* files);

}  // namespace tvx
