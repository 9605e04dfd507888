// The table of commands, in the order of the help text.
#include "cli/command.h"

namespace tvx {

// Each is in the file of its name and starts with its options.
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

namespace {

constexpr ToolCommand kCommands[] = {
    {"time", "cut-time figures, as programmed and after the feed adjustment", RunTime},
    {"check", "what the times leave out, by source line", RunCheck},
    {"causes", "which rules slow a program, how much and where", RunCauses},
    {"info", "the lines of the file information dialog", RunInfo},
    {"blocks", "the stored moves, one a line", RunBlocks},
    {"moves", "the moves as a machine control runs them, one a line", RunMoves},
    {"run", "the multi-file run over a job list", RunJobs},
    {"machine show", "the values of a machine file", RunMachineShow},
    {"machine fit", "fit a machine file to measured times", RunMachineFit},
    {"master build", "build a master model from a program", RunMasterBuild},
    {"master dump", "the fields and cells of a master model", RunMasterDump},
    {"master lookup", "the angles of a master model near points", RunMasterLookup},
    {"master show", "the moves of the wire picture of a master model", RunMasterShow},
    {"draw", "the drawing, as calls of a device", RunDraw},
    {"picture", "write the picture: metafile, SVG or PNG", RunPicture},
    {"project", "where points appear in the picture", RunProject},
    {"option-line parse", "the job record that an option line gives", RunOptionLineParse},
    {"option-line build", "the option line of a file", RunOptionLineBuild},
    {"condition show", "the parameters of a condition file", RunConditionShow},
    {"condition write", "write a condition file", RunConditionWrite},
    {"getfeed", "the calculator of spindle speed and feed", RunGetFeed},
    {"config show", "the configuration, the lists and the user keys", RunConfigShow},
};

}  // namespace

std::span<const ToolCommand> ToolCommands() {
  return kCommands;
}

}  // namespace tvx
