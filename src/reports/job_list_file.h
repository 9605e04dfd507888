// The job list file (*.mcf): the files of the results with their option lines, to be read again by
// the job dialog on this or another machine. All directories in it are written with the drive X;
// the reader replaces X by the drive of the list file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "stats/result_table.h"

namespace tvx {

// A directory or path with "X" as its drive: the character two places before the first backslash is
// replaced or, if there is no such character, the first one.
std::string DriveForm(std::string directory);

// The master model file that an option line names: the word after the one that contains the first
// "MMA". Returns false and leaves *path alone if there is none.
bool LineMasterFile(std::string_view line, std::string* path);

// A file that could not be copied.
struct FailedCopy {
  std::string source;
  std::string destination;
  int error = 0;  // why, as Files::LastError
};

// Creates or replaces the list file at a full drive path. Each entry gets the directory of the list
// file, wherever its own file is. Returns false if that fails; an existing file is then unchanged.
bool WriteJobListFile(const std::string& path, const ResultTable& results, Files* files);

// Does the same, and copies the NC file and the master model of each entry beside the list. An
// existing master model is kept, an existing NC file is replaced; after a failed copy it is
// unchanged. Failed copies are appended to *failed, if it is not null, and do not change the list.
// If the list file cannot be created, nothing is copied.
bool WriteJobListFileCopy(const std::string& path, const ResultTable& results, Files* files,
                          std::vector<FailedCopy>* failed);

}  // namespace tvx
