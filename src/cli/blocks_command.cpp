// tvx-cli blocks: the stored moves, one a line.

#include <string>
#include <vector>

#include "base/format.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/host.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"

namespace tvx {
namespace {

constexpr size_t kPrintedAtOnce = 1 << 16;  // bytes

std::string BlockLine(uint32_t index, const MotionBlock& block) {
  return std::to_string(index) + '\t' + std::to_string(block.type) + '\t' + ShortestFloat(block.x) +
         '\t' + ShortestFloat(block.y) + '\t' + ShortestFloat(block.z) + '\t' +
         std::to_string(block.feedProgrammed) + '\t' + std::to_string(block.feed) + '\t' +
         std::to_string(block.headPercent) + '\t' + std::to_string(block.headFeed) + '\t' +
         std::to_string(block.tailPercent) + '\t' + std::to_string(block.tailFeed) + '\n';
}

void PrintBlocks(const BlockStore& store) {
  std::string text;
  for (uint32_t index = 0; index < store.blockCount; ++index) {
    const MotionBlock* block = store.Peek(index);
    if (block != nullptr) text += BlockLine(index, *block);
    if (text.size() >= kPrintedAtOnce) {
      Print(text);
      text.clear();
    }
  }
  Print(text);
}

// "1000", "1000 head 25% 100", "1000 head 25% 100 tail 30% 200".
std::string FeedText(const MotionBlock& block) {
  const auto zone = [](const char* name, int percent, int feed) {
    return percent == 0 && feed == 0 ? std::string() : Format(" %s %d%% %d", name, percent, feed);
  };
  return std::to_string(block.feed) + zone("head", block.headPercent, block.headFeed) +
         zone("tail", block.tailPercent, block.tailFeed);
}

// Tells on standard error why the moves of a program come out as slow as they do.
FeedTrace Explanation(const std::string& name) {
  return
      [name](FeedRule rule, uint32_t index, const MotionBlock& before, const MotionBlock& after) {
        PrintRemark(name + ": block " + std::to_string(index) + ": " + RuleName(rule) + ": " +
                    FeedText(before) + " -> " + FeedText(after));
      };
}

}  // namespace

void PrintStore(const std::string& name, const NcProgram& program, LoadResult result) {
  Print("# " + name + " blockCount " + std::to_string(program.store.blockCount) + " FeedBase " +
        std::to_string(program.FeedBase) + " result " +
        std::to_string(result == LoadResult::kLoaded ? 1 : 0) + "\n");
  PrintBlocks(program.store);
}

int RunBlocks(const Call& call) {
  Params params;
  bool explains = false;
  std::vector<std::string> arguments;
  CommandLine line(call,
                   "Prints the moves of each program as they stand in the store, one a line: "
                   "index, type, x, y, z, feedProgrammed, feed, headPercent, headFeed, "
                   "tailPercent, tailFeed.");
  params.AddTo(&line);
  line.AddFlag("--explain", &explains, "with --afa: tell each change and the rule that made it");
  line.AddArguments("FILE", &arguments, "NC programs, loaded one after the other");
  line.Parse();
  params.Check();

  Host host(call);
  const std::vector<ProgramFile> files = FindProgramFiles(host, arguments);
  CTVXView view(&host.app);
  params.Apply(&host, &view);
  for (const ProgramFile& file : files) {
    const LoadResult result = LoadProgramFile(file, &view);
    const std::string problem = LoadProblem(result, view);
    if (params.Adjusts()) {
      AdjustProgram(file, &view, explains ? Explanation(file.argument) : FeedTrace());
    }
    PrintStore(file.argument, view.program, result);
    if (result != LoadResult::kLoaded) {
      throw Failure{file.argument, problem};
    }
  }
  return 0;
}

}  // namespace tvx
