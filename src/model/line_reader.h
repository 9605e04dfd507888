// Splits an NC file into lines at the speed of the parsers.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "platform/files/files.h"
#include "platform/progress.h"

namespace tvx {

// One line of an NC file.
struct NcLine {
  const char* text;  // up to its first line feed; there always is one
  bool isCut;        // the line feed ends a line that was cut, and the parser does not get it
  bool hasComment;   // false if neither "(" nor "#" stands in it
};

// Gives the lines of a file one by one. A last line without a line feed is dropped. A line has any
// length and costs no memory beyond the first bytes.
//
// Every byte of every program passes through here, so the bytes stay where they were read and are
// looked at in as large pieces as any processor of the platform can.
class LineReader {
 public:
  // The parser sees this much of a line; of a longer one its line feed is out of reach.
  static constexpr ptrdiff_t kParserLineBytes = 80;
  // What is kept of a line that is split between two reads: more than the parser ever looks at.
  static constexpr size_t kParserKeptBytes = 255;

  // The parser never looks beyond the first bytes of a line; a caller that does asks for more.
  // `progress` gets the bytes read; once it is stopped, no further ones are read.
  explicit LineReader(InputFile* file, size_t keptBytes = kParserKeptBytes,
                      Progress* progress = NoProgress())
      : file_(file),
        keptBytes_(keptBytes),
        buffer_(keptBytes + kReadBytes + kLookBytes),
        progress_(progress),
        totalBytes_(file->Stamp().size) {
    SetRange(0);
  }

  // False at the end of the file. The line is valid until the next call.
  bool Next(NcLine* line) {
    while (!NextInMemory(line)) {
      if (!Refill()) return false;
    }
    return true;
  }

  // The two halves of Next. False if what was read so far holds no further line.
  bool NextInMemory(NcLine* line) {
    const LineEnd end = FindLineEnd();
    if (end.lineFeed == end_) return false;
    *line = {next_, end.lineFeed - next_ > kParserLineBytes, end.hasComment};
    next_ = end.lineFeed + 1;
    if (line->isCut) [[unlikely]]
      Cut(line);
    return true;
  }
  // Reads on after what is left, and moves it. False at the end of the file.
  bool Refill() {
    const size_t kept = std::min(static_cast<size_t>(end_ - next_), keptBytes_);
    std::memmove(buffer_.data(), next_, kept);
    const bool goesOn = progress_->Step(readBytes_, totalBytes_);
    const size_t count = goesOn ? file_->Read(buffer_.data() + kept, kReadBytes) : 0;
    readBytes_ += count;
    SetRange(kept + count);
    return count > 0;
  }

  // The line feed of the line that Next returned last.
  const char* LineFeed() const { return next_ - 1; }

  // Where the next line starts, and the end of what was read so far. 32 bytes from any place before
  // it are memory.
  const char* Position() const { return next_; }
  const char* End() const { return end_; }

  // That line up to its line feed, also where the parser gets less of it. Of a line that was in two
  // reads the first `keptBytes` and the end may be all there is.
  std::string_view Whole(const NcLine& line) const {
    const char* const start = line.isCut ? wholeOfCut_ : line.text;
    return {start, static_cast<size_t>(LineFeed() - start)};
  }

  // Behind the last line: what follows its line feed, at most the first `keptBytes`.
  std::string_view Rest() const { return {next_, static_cast<size_t>(end_ - next_)}; }

 private:
  // Reads of this size cost little beside the parsing.
  static constexpr size_t kReadBytes = size_t{64} * 1024;
  static constexpr size_t kLookBytes = 32;

  struct LineEnd {
    const char* lineFeed;
    bool hasComment;  // "(" or "#" stands before the line feed
  };

  // The first line feed from the next byte on; there always is one.
  LineEnd FindLineEnd() const {
#ifdef __SSE2__
    // Nearly every line ends within the look and holds no comment.
    const auto places = [](const char* bytes) {
      const __m128i sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
      const auto are = [&](char byte) { return _mm_cmpeq_epi8(sixteen, _mm_set1_epi8(byte)); };
      const __m128i found = _mm_or_si128(are('\n'), _mm_or_si128(are('('), are('#')));
      return static_cast<unsigned>(_mm_movemask_epi8(found));
    };
    const unsigned found = places(next_) | places(next_ + 16) << 16;
    const char* const first = next_ + std::countr_zero(found);
    if (found != 0 && *first == '\n') [[likely]]
      return {first, false};
#endif
    const char* const lineFeed = Find('\n', end_);
    return {lineFeed, Find('(', lineFeed) != lineFeed || Find('#', lineFeed) != lineFeed};
  }

  // The first such byte before `end`, or `end`.
  const char* Find(char byte, const char* end) const {
    const void* const found = std::memchr(next_, byte, static_cast<size_t>(end - next_));
    return found != nullptr ? static_cast<const char*>(found) : end;
  }

  // A line feed stands after it all, so that every search ends.
  void SetRange(size_t filled) {
    buffer_[filled] = '\n';
    next_ = buffer_.data();
    end_ = buffer_.data() + filled;
  }

  void Cut(NcLine* line) {
    wholeOfCut_ = line->text;
    std::memcpy(cut_, line->text, kParserLineBytes);
    cut_[kParserLineBytes] = '\n';
    line->text = cut_;
  }

  InputFile* file_;
  size_t keptBytes_;
  std::vector<char> buffer_;
  Progress* progress_;
  uint64_t totalBytes_;
  uint64_t readBytes_ = 0;
  const char* next_ = nullptr;  // the first byte not given
  const char* end_ = nullptr;   // after the last byte read; points to a line feed
  const char* wholeOfCut_ = nullptr;
  char cut_[kParserLineBytes + 1];
};

}  // namespace tvx
