// The lines of a program for a reader that jumps between them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/files/files.h"
#include "platform/progress.h"

namespace tvx {

// Where a line begins.
struct TextPlace {
  uint64_t offset = 0;  // bytes
  uint64_t line = 1;    // from 1
};

// Reads a file line by line, from any place. The parts read last stay in memory, so loops and calls
// of subprograms read the file rarely. Memory does not grow with the file.
class ProgramText {
 public:
  // What is read of one line; the rest is not.
  static constexpr size_t kLongestLine = size_t{1} << 20;

  // `file` and `progress` have to outlive the object. Once `progress` is stopped, no further line
  // is read.
  explicit ProgramText(InputFile* file, Progress* progress = NoProgress());

  // The next line, with a last one that does not end in a line feed, and without a byte order mark
  // at the head of the file. In memory a line feed follows the text. False at the end. The
  // line is valid until the next call.
  bool Next(std::string_view* line) {
    if (next_ == end_ && !Load()) [[unlikely]]
      return false;
    const char* const lineFeed = static_cast<const char*>(
        __builtin_memchr(next_, '\n', static_cast<size_t>(end_ - next_ + 1)));
    *line = {next_, static_cast<size_t>(lineFeed - next_)};
    here_ = ahead_;
    ahead_ = {here_.offset + line->size() + 1, here_.line + 1};
    next_ = lineFeed < end_ ? lineFeed + 1 : end_;
    if (isSpecial_) [[unlikely]]
      FinishSpecial(line);
    return true;
  }

  // The place of the line that Next returned last, and of the next one.
  TextPlace Here() const { return here_; }
  TextPlace Ahead() const { return ahead_; }

  // Next goes on from a place that Here or Ahead returned.
  void Seek(const TextPlace& place);

  // The number of lines of the file. Reads all of it the first time.
  uint64_t CountLines();

  // True if the line that Next returned last is longer than what is read of a line.
  bool IsCut() const { return isCut_; }

  // Another reader of the same text, at its beginning.
  ProgramText Another() const { return ProgramText(file_, progress_); }

  // True if the file ended before the place where it ended when it was opened.
  bool IsShort() const { return isShort_; }

  // Tells the progress how far the file was read. False once the user has stopped the work. For
  // runs that stay within what is in memory.
  bool StepProgress() { return StepProgress(farthest_); }

 private:
  // A part of the file that begins with a line. In memory a line feed follows its bytes.
  struct Window {
    std::vector<char> bytes;
    uint64_t begin = 0;
    size_t whole = 0;    // bytes of whole lines
    bool isCut = false;  // holds the beginning of one line, whose rest is not read
    uint64_t lastUse = 0;
  };
  static constexpr size_t kWindowBytes = size_t{64} << 10;

  // Makes the window of the line at Ahead the present one. False at the end of the file.
  bool Load();
  void Fill(Window* window, uint64_t offset);
  size_t ReadAll(uint64_t offset, char* buffer, size_t size);
  void FinishSpecial(std::string_view* line);
  uint64_t AfterLineFeed(uint64_t offset);
  bool StepProgress(uint64_t offset);

  InputFile* file_;
  Progress* progress_;
  uint64_t fileBytes_;  // when it was opened
  bool isShort_ = false;
  uint64_t farthest_ = 0;  // that was read
  std::array<Window, 8> windows_;
  uint64_t uses_ = 0;
  TextPlace here_, ahead_;
  const char* next_ = nullptr;  // the line at Ahead, in the present window
  const char* end_ = nullptr;   // of the whole lines of the present window
  bool isSpecial_ = false;  // the window begins with a byte order mark, or with a line that is cut
  bool isCut_ = false;
  uint64_t lines_ = 0;
  bool isCounted_ = false;
};

}  // namespace tvx
