#include "model/loader.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

namespace tvx {

namespace {

// Reads of this size cost little beside the parsing; the bytes are parsed where they lie.
constexpr size_t kReadBytes = size_t{256} * 1024;
// What is kept of a line that stands in two reads: more than the parser ever looks at.
constexpr size_t kAssemblyBytes = 255;
// The parser sees this much of a line; of a longer one its line feed is out of reach.
constexpr size_t kParserLineBytes = 80;
// Feed in force until the first F word, mm/min.
constexpr int32_t kStartFeed = 100;

// Gives the lines of a file one by one, without their line feeds. A last line without a line feed
// is dropped. A line has any length and costs no memory beyond the first bytes.
class LineReader {
 public:
  explicit LineReader(InputFile* file)
      : file_(file), buffer_(kReadBytes + PaddedLine::kLinePadding) {}

  // False at the end of the file. The line is padded and valid until the next call.
  bool Next(std::string_view* line) {
    assembled_ = 0;
    for (;;) {
      const char* const start = buffer_.data() + position_;
      const size_t left = filled_ - position_;
      const void* const found = left > 0 ? std::memchr(start, '\n', left) : nullptr;
      if (found != nullptr) {
        const size_t length = static_cast<size_t>(static_cast<const char*>(found) - start);
        position_ += length + 1;
        if (assembled_ == 0) {
          *line = std::string_view(start, length);
        } else {
          Assemble(start, length);
          *line = std::string_view(assembly_, assembled_);
        }
        return true;
      }
      Assemble(start, left);
      position_ = 0;
      filled_ = file_->Read(buffer_.data(), kReadBytes);
      if (filled_ == 0) return false;
    }
  }

 private:
  void Assemble(const char* bytes, size_t count) {
    count = std::min(count, kAssemblyBytes - assembled_);
    if (count > 0) std::memcpy(assembly_ + assembled_, bytes, count);
    assembled_ += count;
  }

  InputFile* file_;
  std::vector<char> buffer_;
  size_t position_ = 0;
  size_t filled_ = 0;
  char assembly_[kAssemblyBytes + PaddedLine::kLinePadding] = {};
  size_t assembled_ = 0;
};

// A line that moves: one block, or two for an arc. Returns false when an arc's second record finds
// no room, which ends the load.
bool AppendMove(BlockStore* store, const Vec3& arcOffset) {
  MotionBlock& block = store->CurrentBlock;
  const float z = block.z;
  if (store->WriteBlock(store->blockCount) == 0) return true;
  ++store->blockCount;
  if (!IsArcType(block.type)) return true;
  block.x = arcOffset.x;
  block.y = arcOffset.y;
  block.z = z;
  block.type = BlockArcCentre;
  ++store->blockCount;
  return store->WriteBlock(store->blockCount - 1) == 1;
}

// A line without a move leaves a block of type 0, so the store keeps the program's line structure.
void AppendNone(BlockStore* store) {
  const uint32_t type = store->CurrentBlock.type;
  store->CurrentBlock.type = BlockNone;
  if (store->WriteBlock(store->blockCount) == 1) ++store->blockCount;
  store->CurrentBlock.type = type;
}

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

// The reference of the feed colours. Meets every record, so bad ones are repaired from here on.
int32_t HighestCutFeed(BlockStore* store) {
  int32_t highest = 0;
  for (uint32_t i = 0; i < store->blockCount; ++i) {
    const MotionBlock* const block = store->PeekRepaired(i);
    if (block != nullptr && IsCutType(block->type)) {
      highest = std::max(highest, block->feedProgrammed);
    }
  }
  return highest;
}

}  // namespace

int LoadNcFile(const std::string& path, NcProgram* program, ParserStates* states, JobRecord* job,
               Files* files, UserInterface* ui) {
  BlockStore& store = program->store;
  store.blockCount = 0;
  store.CurrentBlock.type = BlockNone;
  program->firstPoint = 1;
  program->incrementalMode = 0;

  const std::unique_ptr<InputFile> file = files->OpenOrCreateForReading(path);
  if (file == nullptr) {
    ui->ShowMessage({.text = "화일을 열수 없읍니다.\n"});
    return 0;
  }

  MotionBlock& block = store.CurrentBlock;
  block.headPercent = block.headFeed = block.tailPercent = block.tailFeed = 0;
  block.feedProgrammed = block.feed = kStartFeed;

  const ParserContext context{states, &block, &program->incrementalMode, &program->arcRadius, job};
  LineReader reader(file.get());
  std::string_view line;
  Vec3 arcOffset;
  while (reader.Next(&line)) {
    const PaddedLine parserLine{line.substr(0, kParserLineBytes), line.size() <= kParserLineBytes};
    if (ParseBlockLine(context, parserLine, &arcOffset) == 0) {
      AppendNone(&store);
    } else if (!AppendMove(&store, arcOffset)) {
      return 0;
    }
  }

  StartFirstRun(&store);
  program->FeedBase = HighestCutFeed(&store);
  return 1;
}

}  // namespace tvx
