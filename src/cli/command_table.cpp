// The table of commands, in the order of the help text.
#include "cli/command.h"
#include "cli/commands.h"

namespace tvx {
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
