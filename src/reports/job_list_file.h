// The job list file (*.mcf): the files of the results with their option lines, which the job dialog
// reads again, on this machine or another. All directories in it stand on the drive X, which the
// reader replaces by the drive of the list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/user_interface.h"
#include "stats/result_table.h"

namespace tvx {

// A directory or path with "X" as its drive: the character two places before the first backslash is
// replaced or, where there is none, the first one.
std::string DriveForm(std::string directory);

// The master model file that a line names: the word behind the one in which "MMA" stands first.
// Returns false, with *path alone, if there is none.
bool LineMasterFile(std::string_view line, std::string* path);

// A file that could not be copied.
struct FailedCopy {
  std::string source;
  std::string destination;
};

// Creates or replaces the list file at a full drive path. The directory of each entry is that of
// the list file, wherever the entry's file lies. Returns false, with an older file as it was, if
// that fails.
bool WriteJobListFile(const std::string& path, const ResultTable& results, Files* files);

// The same, and copies the NC file and the master model of each entry beside the list. A master
// model that is already there stays as it is, an NC file is replaced; a copy that fails leaves the
// older file whole. Copies that failed are added to *failed, if it is not null, and change nothing
// in the list. If the list cannot be created, nothing is copied.
bool WriteJobListFileCopy(const std::string& path, const ResultTable& results, Files* files,
                          std::vector<FailedCopy>* failed);

// The operations of the list of results: ask for the list file and write it without a further
// question. A cancel or a file that cannot be written ends them silently.
void WriteJobList(const ResultTable& results, Files* files, UserInterface* ui);
void WriteJobListCopy(const ResultTable& results, Files* files, UserInterface* ui);

}  // namespace tvx
