// tvx-cli blocks: the stored moves, one a line.

#include <functional>
#include <string>
#include <vector>

#include "base/format.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "insight/move_text.h"

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

// Explains on standard error why the moves of a program come out as slow as they do.
class Explanation {
 public:
  Explanation(const ProgramFile& file, CTVXView* view)
      : name_(file.argument), lines_(&view->program.source, view->app->files) {}

  void Print(FeedRule rule, uint32_t index, const MotionBlock& before, const MotionBlock& after) {
    const Language language = ToolLanguage();
    std::string text = Say({"{file}: 블록 {block}: {rule}: {before} -> {after}",
                            "{file}: block {block}: {rule}: {before} -> {after}"},
                           {{"file", name_},
                            {"block", index},
                            {"rule", Say(TextOf(rule))},
                            {"before", FeedText(before, language)},
                            {"after", FeedText(after, language)}});
    const uint32_t line = lines_.LineOf(index);
    if (line != 0) text += ", " + LineText(line, TextOfLine(line), language);
    PrintRemark(std::move(text));
  }

 private:
  // The changes of a batch of the pass are those of neighbouring lines, in no order.
  static constexpr uint32_t kLinesRead = 1024;
  static constexpr uint32_t kLinesBefore = 256;

  std::string TextOfLine(uint32_t line) {
    if (line < firstRead_ || line - firstRead_ >= kLinesRead) {
      firstRead_ = line > kLinesBefore ? line - kLinesBefore : 1;
      texts_ = lines_.Read(firstRead_, kLinesRead).value;
    }
    const size_t at = line - firstRead_;
    return at < texts_.size() ? Printable(texts_[at]) : "";
  }

  std::string name_;
  SourceLines lines_;
  uint32_t firstRead_ = UINT32_MAX;
  std::vector<std::string> texts_;
};

}  // namespace

void PrintStore(const std::string& name, const NcProgram& program, const Status& load) {
  Print("# " + name + " blockCount " + std::to_string(program.store.blockCount) + " FeedBase " +
        std::to_string(program.FeedBase) + " result " + std::to_string(load.ok() ? 1 : 0) + "\n");
  PrintBlocks(program.store);
}

int RunBlocks(const Call& call) {
  Params params;
  bool explains = false;
  std::vector<std::string> arguments;
  CommandLine line(call,
                   {"프로그램마다 저장된 이동을 한 줄에 하나씩 출력합니다: index, type, x, y, z, "
                    "feedProgrammed, feed, headPercent, headFeed, tailPercent, tailFeed.",
                    "Prints the moves of each program as they stand in the store, one a line: "
                    "index, type, x, y, z, feedProgrammed, feed, headPercent, headFeed, "
                    "tailPercent, tailFeed."});
  params.AddTo(&line);
  line.AddFlag("--explain", &explains,
               {"--afa와 함께: 바뀐 피드마다 원인이 된 규칙과 줄을 출력",
                "with --afa: print each change, the rule that made it and the line"});
  line.AddArguments("FILE", &arguments,
                    {"차례로 불러올 NC 프로그램", "NC programs, loaded one after the other"});
  line.Parse();
  params.Check();

  Host host(call);
  const std::vector<ProgramFile> files = FindProgramFiles(host, arguments);
  ToolView view(&host);
  params.Apply(&host, &view);
  for (const ProgramFile& file : files) {
    const Status loaded = LoadProgramFile(file, &view);
    if (params.Adjusts()) {
      Explanation explanation(file, &view);
      AdjustProgram(file, &view,
                    explains ? std::bind_front(&Explanation::Print, &explanation) : FeedTrace());
    }
    PrintStore(file.argument, view.program, loaded);
    if (!loaded.ok()) {
      throw Failure{file.argument, LoadProblem(loaded, view.program), loaded};
    }
  }
  return 0;
}

}  // namespace tvx
