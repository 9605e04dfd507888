// The parameter file, tvx.par in the environment directory: the settings of the environment dialog.
// docs/formats/parameter.md describes it.
#pragma once

#include <string>

#include "conditions/parameter_lines.h"
#include "model/job_record.h"
#include "platform/files/files.h"

namespace tvx {

std::string ParameterPath(const std::string& environmentDir);

// Reads RapidFeed, IntNcdataFlg, InputFileType and NcdataExt over the record; the other lines are
// written only. Returns kCannotOpen, with the record as it was, if the file cannot be opened.
SettingsResult ReadParameterFile(const std::string& environmentDir, JobRecord* record,
                                 Files* files);

// Creates or replaces the file. Returns kCannotWrite, with an older file as it was, if that fails.
SettingsResult WriteParameterFile(const std::string& environmentDir, const JobRecord& record,
                                  Files* files);

}  // namespace tvx
