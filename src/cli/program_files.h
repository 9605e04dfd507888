#pragma once

#include <string>
#include <vector>

#include "cli/host.h"
#include "feed/feed_pass.h"
#include "model/loader.h"
#include "shell/tvx_view.h"

namespace tvx {

// A program named on the command line.
struct ProgramFile {
  std::string argument;  // as the user named it
  std::string path;      // drive path
};

// The files behind the arguments. Throws Failure for the first that cannot be read: a batch with a
// bad name stops before anything is printed, and no missing file is ever created.
std::vector<ProgramFile> FindProgramFiles(const Host& host,
                                          const std::vector<std::string>& arguments);

// Loads a program into the view's store. Returns what the load returned.
LoadResult LoadProgram(const ProgramFile& file, CTVXView* view);

// The same where a program that was read in part is of no use. Throws Failure.
void LoadWholeProgram(const ProgramFile& file, CTVXView* view);

// Runs the feed adjustment over the program of the view; the trace is told what it does.
void AdjustProgram(const ProgramFile& file, CTVXView* view, const FeedTrace& trace = {});

// Works out the figures of the program into the view's current result and returns them.
const CutTimeEntry& CountProgram(const ProgramFile& file, CTVXView* view);

}  // namespace tvx
