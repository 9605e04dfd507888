#pragma once

#include "cli/command.h"
#include "model/block_store.h"

namespace tvx {

// What the rows of the command table run. Each stands in the file of its name and starts with its
// options.
int RunBlocks(const Call& call);
int RunConditionShow(const Call& call);
int RunConditionWrite(const Call& call);
int RunConfigShow(const Call& call);
int RunGetFeed(const Call& call);
int RunInfo(const Call& call);
int RunOptionLineBuild(const Call& call);
int RunOptionLineParse(const Call& call);
int RunTime(const Call& call);

// The records of a store, one a line, in the form of the command blocks.
void PrintBlocks(const BlockStore& store);

}  // namespace tvx
