#pragma once

#include <string>

#include "model/job_record.h"
#include "platform/files.h"
#include "platform/user_interface.h"

namespace tvx {

// The parameter file, tvx.par in the environment directory: the settings of the environment dialog.
// docs/formats/parameter.md describes it.

// Reads RapidFeed, IntNcdataFlg, InputFileType and NcdataExt over the record; the other lines of
// the file come back through the default condition file only. Returns false, with the record as it
// was and no message, if the file cannot be opened.
bool ReadParameterFile(const std::string& environmentDir, JobRecord* record, Files* files);

// Creates or replaces the file. If that fails the user gets a message, an older file stays as it
// was and the result is false.
bool WriteParameterFile(const std::string& environmentDir, const JobRecord& record, Files* files,
                        UserInterface* ui);

}  // namespace tvx
