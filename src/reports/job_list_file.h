// The job list file (*.mcf): the files of the results with their option lines, to be read again by
// the job dialog on this or another machine. All directories in it are written with the drive X;
// the reader replaces X by the drive of the list file.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "evaluate/program_result.h"
#include "platform/files/files.h"

namespace tvx {

// A directory or path with "X" as its drive: the character two places before the first backslash is
// replaced or, if there is no such character, the first one.
std::string DriveForm(std::string directory);

// A file that could not be copied.
struct FailedCopy {
  std::string source;
  std::string destination;
  Status status;
};

// Creates or replaces the list file at a full drive path. Each entry gets the directory of the list
// file, wherever its own file is. An existing file is unchanged if that fails.
Status WriteJobListFile(const std::string& path, std::span<const ProgramResult> results,
                        Files* files);

// Two files that would be copied under one name: the copied list would run one of them twice.
struct SameName {
  std::string first, second;
};

// The first two entries, or an entry and the list itself, whose files have one name, regardless of
// case, and two directories. Nothing if all files have places of their own beside the list.
std::optional<SameName> FindSameName(const std::string& path,
                                     std::span<const ProgramResult> results);

// The programs beside a list that a copy of the entries' files would replace by other bytes.
std::vector<std::string> ProgramsToReplace(const std::string& path,
                                           std::span<const ProgramResult> results, Files* files);

// Does the same, and copies the NC file and the master model of each entry beside the list. An
// existing master model is kept, an existing NC file is replaced; after a failed copy it is
// unchanged. A master model is copied only under a name that ends in kMasterEnding. Failed copies
// are appended to *failed, if it is not null, and do not change the list. If the list file cannot
// be created, or FindSameName finds two files (kSameName), nothing is written.
Status WriteJobListFileCopy(const std::string& path, std::span<const ProgramResult> results,
                            Files* files, std::vector<FailedCopy>* failed);

}  // namespace tvx
