// The load: reads lines, parses them and appends their blocks to the store.
#include "model/loader.h"

#include <algorithm>
#include <span>

#include "model/conversational_parser.h"
#include "model/line_reader.h"
#include "model/walks.h"
#include "model/word_parser.h"
#include "platform/files/drives.h"

namespace tvx {

namespace {

// Values of InputFileType.
constexpr int32_t kWordAddressType = 1;
constexpr int32_t kConversationalType = 2;

// Feed in force until the first F word, mm/min.
constexpr int32_t kStartFeed = 100;

// Appends what the lines give after the last block of the store.
class BlockAppender {
 public:
  BlockAppender(BlockStore* store, LineMapBuilder* lines) : store_(*store), lines_(*lines) {}

  // A line that moves: one block, or two for an arc. Returns false when an arc's second record
  // finds no room, which ends the load.
  bool Move(LineParser* parser) {
    const MotionBlock block = parser->Block();
    if (!Append(block, block.type)) {
      if (IsArcType(block.type)) ++lost_;  // its second record
      return true;
    }
    if (!IsArcType(block.type)) return true;
    lines_.AddArc(count_ - 1);
    parser->ToArcCentre();
    if (Append(parser->Block(), BlockArcCentre)) return true;
    ++count_;
    return false;
  }

  // A line without a move leaves a block of type 0, so the store keeps the program's line
  // structure.
  void None(const LineParser& parser) { Append(parser.Block(), BlockNone); }

  // Hands the count to the store. Repairs bad records now, while it is known whether there are any,
  // and gives the reference of the feed colours: the highest programmed feed of the straight cuts
  // that are left. *feeds receives those of ProgramSource: a repair replaces them.
  int32_t Finish(std::vector<int32_t>* feeds, uint64_t* lost) {
    *lost = lost_;
    store_.blockCount = count_;
    for (uint32_t i = 0; i < count_; i += ProgramSource::kBlocksPerFeed) {
      const MotionBlock* const block = store_.Peek(i);
      if (block != nullptr) feeds->push_back(block->feedProgrammed);
    }
    for (uint32_t i = 0; hasBad_ && i < count_; ++i) store_.PeekRepaired(i);
    return highestFeed_;
  }

 private:
  // False, with the block lost, if there is no room for it. The zone fields are those of a fresh
  // block.
  bool Append(const MotionBlock& block, uint32_t type) {
    if (next_ == pageEnd_ && !OpenPage()) [[unlikely]] {
      ++lost_;
      return false;
    }
    next_->x = block.x;
    next_->y = block.y;
    next_->z = block.z;
    next_->feedProgrammed = block.feedProgrammed;
    next_->feed = block.feed;
    next_->headPercent = next_->headFeed = next_->tailPercent = next_->tailFeed = 0;
    next_->type = type;
    ++next_;
    ++count_;
    if (BlockStore::IsBad(block)) {
      hasBad_ = true;
    } else if (IsCutType(type)) {
      highestFeed_ = std::max(highestFeed_, block.feedProgrammed);
    }
    return true;
  }

  // The first page that cannot be had is the last one tried: a try can take long.
  bool OpenPage() {
    if (isFull_) return false;
    const std::span<MotionBlock> page = store_.WritablePage(count_ / BlockStore::blocksPerPage);
    next_ = page.data();
    pageEnd_ = page.data() + page.size();
    isFull_ = page.empty();
    return !isFull_;
  }

  BlockStore& store_;
  LineMapBuilder& lines_;
  uint32_t count_ = 0;
  MotionBlock* next_ = nullptr;  // where the next block goes
  MotionBlock* pageEnd_ = nullptr;
  int32_t highestFeed_ = 0;  // mm/min
  bool hasBad_ = false;
  bool isFull_ = false;
  uint64_t lost_ = 0;
};

// A program's first move always begins a run.
void StartFirstRun(BlockStore* store) {
  uint32_t first = 0;
  while (first < store->blockCount && IsMoveBlock(store, first) == 0) ++first;
  if (first == store->blockCount) return;
  const uint32_t type = store->CurrentBlock.type;
  if (type == BlockRapid || IsArcType(type)) {
    store->CurrentBlock.type = BlockRapidStart;
    store->WriteBlock(first);
  }
}

// Reads all lines from `line` on, the reader's last one. Gives the reference of the feed colours;
// returns false, without it, when an arc's second record finds no room.
//
// Flat, because everything that a line touches then stays within reach of the processor: calls and
// pointers to follow would cost more than the parsing.
template <typename Parser>
[[gnu::flatten]] bool ReadLines(NcProgram* program, ParserStates* states, const JobRecord& job,
                                LineReader* reader, NcLine line, LineMapBuilder* lines,
                                int32_t* feedBase) {
  Parser parser(program, states, job);
  BlockAppender appender(&program->store, lines);
  bool hasRoom = true;
  do {
    if (parser.Parse(line) == 0) {
      appender.None(parser);
    } else {
      hasRoom = appender.Move(&parser);
    }
  } while (hasRoom && reader->Next(&line));
  parser.Save();
  const int32_t highestFeed = appender.Finish(&program->source.feeds, &program->lostBlocks);
  if (hasRoom) *feedBase = highestFeed;
  return hasRoom;
}

}  // namespace

void BeginProgram(NcProgram* program) {
  EmptyProgram(program);
  MotionBlock& block = program->store.CurrentBlock;
  block.headPercent = block.headFeed = block.tailPercent = block.tailFeed = 0;
  block.feedProgrammed = block.feed = kStartFeed;
}

bool IsConversational(JobRecord* job) {
  if (job->InputFileType == kConversationalType) return true;
  job->InputFileType = kWordAddressType;
  return false;
}

int32_t OtherFormat(int32_t InputFileType) {
  return InputFileType == kConversationalType ? kWordAddressType : kConversationalType;
}

bool IsLoaded(const Status& load) {
  switch (load.kind()) {
    case StatusKind::kOk:
    case StatusKind::kReadFailed:
    case StatusKind::kChanged:
    case StatusKind::kBlocksLost:
      return true;
    default:
      return false;
  }
}

Status LoadNcFile(const std::string& path, NcProgram* program, ParserStates* states, JobRecord* job,
                  Files* files, Progress* progress) {
  BlockStore& store = program->store;
  EmptyProgram(program);

  const Result<std::unique_ptr<InputFile>> opened = files->OpenForReading(path);
  if (!opened.ok()) {
    program->isIncomplete = opened.status.IsReadFailure();
    return opened.status;
  }
  InputFile* const file = opened.value.get();
  BeginProgram(program);
  program->source.path = AbsoluteDrivePath(files->CurrentDirectory(), path);
  program->source.stamp = file->Stamp();

  LineReader reader(file, LineReader::kParserKeptBytes, progress);
  NcLine line;
  int32_t feedBase = 0;
  program->source.isConversational = IsConversational(job);
  if (reader.Next(&line)) {
    const auto readLines =
        program->source.isConversational ? ReadLines<ConversationalParser> : ReadLines<WordParser>;
    LineMapBuilder lines;
    const ParserStates statesBefore = *states;
    const bool hasRoom = readLines(program, states, *job, &reader, line, &lines, &feedBase);
    if (progress->IsStopped()) {
      *states = statesBefore;
      EmptyProgram(program);
      return {StatusKind::kStopped, path};
    }
    program->source.lines = lines.Finish(store.blockCount);
    // A program that is too large for the store is figured up to its last block; one that finds no
    // memory could be figured whole another time.
    program->isIncomplete = program->lostBlocks > 0 && store.blockCount < BlockStore::kMaxBlocks;
    if (!hasRoom) return {StatusKind::kStoreFull, path};
  }
  StartFirstRun(&store);
  program->FeedBase = feedBase;
  // Where a walk over the program ends. A comment at the head of the next program keeps this place.
  store.ReadBlock(store.blockCount - 1);
  if (Status read = file->status(); !read.ok()) {
    program->isIncomplete = true;
    return read;
  }
  return program->lostBlocks > 0 ? Status(StatusKind::kBlocksLost, path) : Status();
}

}  // namespace tvx
