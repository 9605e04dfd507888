// The functions of the commands; command_table.cpp lists them.
#pragma once

#include <string>

#include "cli/command.h"
#include "model/loader.h"

namespace tvx {

// What the rows of the command table run. Each stands in the file of its name and starts with its
// options.
int RunBlocks(const Call& call);
int RunCauses(const Call& call);
int RunCheck(const Call& call);
int RunConditionShow(const Call& call);
int RunConditionWrite(const Call& call);
int RunConfigShow(const Call& call);
int RunDraw(const Call& call);
int RunGetFeed(const Call& call);
int RunInfo(const Call& call);
int RunJobs(const Call& call);
int RunMachineFit(const Call& call);
int RunMachineShow(const Call& call);
int RunMasterBuild(const Call& call);
int RunMasterDump(const Call& call);
int RunMasterLookup(const Call& call);
int RunMasterShow(const Call& call);
int RunMoves(const Call& call);
int RunOptionLineBuild(const Call& call);
int RunOptionLineParse(const Call& call);
int RunPicture(const Call& call);
int RunProject(const Call& call);
int RunTime(const Call& call);

// A program in the form of the command blocks: a line with its name, its counts and what its load
// returned, then its records, one a line.
void PrintStore(const std::string& name, const NcProgram& program, const Status& load);

}  // namespace tvx
