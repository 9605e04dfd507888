// The rows of the job dialog's information list about one entry of the job list.
#pragma once

#include <string>
#include <vector>

#include "base/message.h"
#include "jobs/option_line.h"
#include "model/job_record.h"

namespace tvx {

// `name` is the entry's file; `file` and `options` come from its option line; `language` is that of
// the labels. The last rows are the key codes, one word each after two blanks.
std::vector<std::string> EntryRows(const std::string& name, const LineFile& file,
                                   const JobRecord& options, Language language);

}  // namespace tvx
