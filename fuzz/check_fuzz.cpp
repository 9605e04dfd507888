// Fuzzes the program check beside the loader, in both line formats, which the first byte of the
// input selects as for the loader. What the check says about a line has to agree with what the
// loader made of it.

#include <algorithm>
#include <string_view>

#include "fuzz_world.h"
#include "insight/program_check.h"
#include "insight/source_lines.h"

namespace {

using namespace tvx;

constexpr size_t kStoredPerId = 50;

bool LeavesMove(const NcProgram& program, uint64_t line) {
  const auto block = program.source.lines.FirstBlockOf(line);
  return block && IsMoveType(program.store.Peek(*block)->type);
}

bool HasMove(const BlockStore& store) {
  for (uint32_t i = 0; i < store.blockCount; ++i) {
    if (IsMoveType(store.Peek(i)->type)) return true;
  }
  return false;
}

// Such a line makes no move, in either format.
bool TakesMoveAway(RemarkId id) {
  using enum RemarkId;
  return id == kCommentHidesLine || id == kCutOffByC || id == kWordWithoutNumber ||
         id == kBlockReplaced || id == kBeforeMotion || id == kLastLine;
}

void CheckLists(const ProgramCheck& check, const NcProgram& program) {
  for (const RemarkKind& kind : RemarkKinds()) {
    const RemarkList& list = check.Of(kind.id);
    Require(list.stored.size() == std::min<uint64_t>(list.count, kStoredPerId));
    uint64_t last = 0;
    for (const Remark& remark : list.stored) {
      Require(remark.line > last && remark.line <= std::max<uint64_t>(check.lines, 1));
      last = remark.line;
      const bool isArcsSecondRecord =
          kind.id == RemarkId::kBlockReplaced && remark.detail[0] == 'I';
      if (TakesMoveAway(kind.id) && !isArcsSecondRecord) Require(!LeavesMove(program, remark.line));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  JobRecord job;
  job.InputFileType = data[0] == 'C' ? 2 : 1;
  job.IntNcdataFlg = data[0] == 'I' ? 1 : 0;
  FuzzFiles files(AsText(data + 1, size - 1));

  ParserStates states;
  NcProgram program;
  LoadStart next = TakeLoadStart(program, states);
  // Twice: the second load and the second check start from the state after the first.
  for (int load = 0; load < 2; ++load) {
    ProgramChecker checker("c:\\fuzz.nc", next, job, &files, {.storedPerId = kStoredPerId});
    Require(LoadNcFile("c:\\fuzz.nc", &program, &states, &job, &files).ok());
    while (checker.CheckMore(3)) {
    }
    const ProgramCheck& check = checker.Result();
    next = checker.NextStart();
    const Result<uint64_t> lines = SourceLines(&program.source, &files).Count();
    Require(lines.ok() && check.lines == lines.value);
    Require((check.Of(RemarkId::kNoMoves).count == 0) == HasMove(program.store));
    Require(next.states.word.modalType == states.word.modalType &&
            next.states.conversational.modalType == states.conversational.modalType);
    CheckLists(check, program);
  }
  return 0;
}
