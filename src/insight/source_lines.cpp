// Reads lines of a program through a sparse table of offsets.
#include "insight/source_lines.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "base/text.h"
#include "model/conversational_parser.h"
#include "model/line_reader.h"
#include "model/word_parser.h"

namespace tvx {

namespace {

constexpr uint64_t kLinesPerOffset = 4096;
constexpr size_t kPieceBytes = size_t{64} * 1024;

// Gives the pieces of a file from an offset on, one after the other.
class Pieces {
 public:
  Pieces(InputFile* file, uint64_t offset) : file_(file), offset_(offset), buffer_(kPieceBytes) {}

  // The next piece; empty at the end of the file.
  std::string_view Next() {
    const size_t count = file_->ReadAt(offset_, buffer_.data(), buffer_.size());
    offset_ += count;
    return {buffer_.data(), count};
  }

  // Offset of the byte after the last piece.
  uint64_t end() const { return offset_; }

 private:
  InputFile* file_;
  uint64_t offset_;
  std::vector<char> buffer_;
};

// The bytes of a line as text.
std::string Decoded(std::string_view bytes) {
  if (bytes.size() < SourceLines::kLongestText) {
    if (!bytes.empty() && bytes.back() == '\r') bytes.remove_suffix(1);
    return IsUtf8(bytes) ? std::string(bytes) : DecodeCp949(bytes);
  }
  // The end of the text may be in the middle of a character.
  constexpr size_t kLongestCharacter = 4;
  for (size_t left = 0; left < kLongestCharacter; ++left) {
    const std::string_view whole = bytes.substr(0, bytes.size() - left);
    if (IsUtf8(whole)) return std::string(whole);
  }
  return DecodeCp949(bytes);
}

// A file from an offset on.
class RestOfFile final : public InputFile {
 public:
  RestOfFile(InputFile* file, uint64_t offset) : file_(file), offset_(offset) {}

  size_t Read(char* buffer, size_t size) override {
    const size_t count = ReadAt(0, buffer, size);
    offset_ += count;
    return count;
  }
  size_t ReadAt(uint64_t offset, char* buffer, size_t size) override {
    return file_->ReadAt(offset_ + offset, buffer, size);
  }
  FileStamp Stamp() override { return file_->Stamp(); }

 private:
  InputFile* file_;
  uint64_t offset_;
};

// The feed in force after the lines from `first` to `last`, of those from `line` on that the reader
// has. No other modal state has an influence on it.
template <typename Parser>
int32_t FeedAfter(LineReader* reader, uint64_t line, uint64_t first, uint64_t last, int32_t feed) {
  const auto program = std::make_unique<NcProgram>();
  program->store.CurrentBlock.feedProgrammed = feed;
  ParserStates states;
  Parser parser(program.get(), &states, JobRecord());
  for (NcLine text; line <= last && reader->Next(&text); ++line) {
    if (line >= first) parser.Parse(text);
  }
  return parser.Block().feedProgrammed;
}

}  // namespace

Result<uint64_t> SourceLines::Count() {
  const Result<std::unique_ptr<InputFile>> opened = Open();
  if (!opened.ok()) return opened.status;
  return lines_;
}

Result<std::vector<std::string>> SourceLines::Read(uint64_t first, size_t count) {
  const Result<std::unique_ptr<InputFile>> opened = Open();
  if (!opened.ok()) return opened.status;
  std::vector<std::string> texts;
  if (first == 0 || first > lines_) return texts;
  InputFile* const file = opened.value.get();
  count = static_cast<size_t>(std::min<uint64_t>(count, lines_ - first + 1));

  const uint64_t chunk = (first - 1) / kLinesPerOffset;
  uint64_t line = chunk * kLinesPerOffset + 1;
  Pieces pieces(file, offsets_[chunk]);
  std::string bytes;  // of the line so far
  while (texts.size() < count) {
    std::string_view piece = pieces.Next();
    if (piece.empty()) {
      if (line == lines_ && file->status().ok()) texts.push_back(Decoded(bytes));
      break;
    }
    while (!piece.empty() && texts.size() < count) {
      const size_t length = std::min(piece.find('\n'), piece.size());
      if (line >= first) {
        bytes.append(piece.substr(0, std::min(length, kLongestText - bytes.size())));
      }
      if (length == piece.size()) break;
      if (line >= first) texts.push_back(Decoded(bytes));
      bytes.clear();
      ++line;
      piece.remove_prefix(length + 1);
    }
  }
  if (texts.size() < count) return EndsEarly(*file);
  return texts;
}

Result<std::optional<int32_t>> SourceLines::ReadFeed(uint32_t block) {
  const uint32_t known = block / ProgramSource::kBlocksPerFeed;
  const uint64_t last = LineOf(block);
  if (last == 0 || known >= source_.feeds.size()) return std::optional<int32_t>();
  const Result<std::unique_ptr<InputFile>> file = Open();
  if (!file.ok()) return file.status;

  const uint64_t first = uint64_t{LineOf(known * ProgramSource::kBlocksPerFeed)} + 1;
  const uint64_t chunk = (std::min(first, last) - 1) / kLinesPerOffset;
  RestOfFile rest(file.value.get(), offsets_[chunk]);
  LineReader reader(&rest);
  const auto feedAfter =
      source_.isConversational ? FeedAfter<ConversationalParser> : FeedAfter<WordParser>;
  return std::optional(
      feedAfter(&reader, chunk * kLinesPerOffset + 1, first, last, source_.feeds[known]));
}

Result<std::unique_ptr<InputFile>> SourceLines::Open() {
  if (source_.path.empty()) return Status(StatusKind::kNoProgram);
  Result<std::unique_ptr<InputFile>> file = files_->OpenForReading(source_.path);
  if (!file.ok()) return file;
  if (file.value->Stamp() != source_.stamp) return Status(StatusKind::kChanged, source_.path);
  if (!offsets_.empty()) return file;
  if (Status read = ReadOffsets(file.value.get()); !read.ok()) return read;
  return file;
}

Status SourceLines::ReadOffsets(InputFile* file) {
  std::vector<uint64_t> offsets{0};
  uint64_t lineFeeds = 0;
  char last = '\n';
  Pieces pieces(file, 0);
  for (std::string_view piece; !(piece = pieces.Next()).empty();) {
    const uint64_t offset = pieces.end() - piece.size();
    for (size_t at = 0; (at = piece.find('\n', at)) != std::string_view::npos;) {
      ++at;
      if (++lineFeeds % kLinesPerOffset == 0) offsets.push_back(offset + at);
    }
    last = piece.back();
  }
  if (pieces.end() != source_.stamp.size) return EndsEarly(*file);
  offsets_ = std::move(offsets);
  lines_ = lineFeeds + (last == '\n' ? 0 : 1);
  return {};
}

Status SourceLines::EndsEarly(const InputFile& file) const {
  return {StatusKind::kReadFailed, source_.path, file.status().reason()};
}

Message SourceProblem(const Status& failure) {
  switch (failure.kind()) {
    case StatusKind::kOk:
      return {"", ""};
    case StatusKind::kNoProgram:
      return {"화일에서 불러온 프로그램이 아닙니다", "the program comes from no file"};
    case StatusKind::kChanged:
      return {"불러온 뒤에 화일이 바뀌었습니다", "the file has changed since it was loaded"};
    default:
      return {"화일을 읽을 수 없습니다", "the file cannot be read"};
  }
}

}  // namespace tvx
