// The parameter file, tvx.par in the environment directory: the settings of the environment dialog.
// docs/formats/parameter.md describes it.
#pragma once

#include <span>
#include <string>

#include "conditions/parameter_lines.h"
#include "model/job_record.h"
#include "platform/files/files.h"

namespace tvx {

// The lines of the file, with the fields that they hold.
std::span<const ParameterLine> ParameterFileLines();

std::string ParameterPath(const std::string& environmentDir);

// Reads RapidFeed, IntNcdataFlg, InputFileType and NcdataExt over the record; the other lines are
// written only. The record stays as it was if the file cannot be read.
Status ReadParameterFile(const std::string& environmentDir, JobRecord* record, Files* files);

// Creates or replaces the file. An older file stays as it was if that fails.
Status WriteParameterFile(const std::string& environmentDir, const JobRecord& record, Files* files);

}  // namespace tvx
