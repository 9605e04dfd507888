// Where the programs, sequence numbers and loops of a file are.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "control/program_text.h"
#include "control/word_line.h"

namespace tvx {

// A program of a file. It ends where the next one begins.
struct IndexedProgram {
  double number = 0;     // of its O word; -1 if it has none
  TextPlace begin;       // with the lines before its O word that belong to it
  uint64_t heading = 0;  // offset of the line with the O word
};

// The heading of a program without an O word.
inline constexpr uint64_t kNoHeading = UINT64_MAX;

// True for a line of a head that cannot belong to the first program: it ends something or calls.
bool EndsHead(const WordLine& words);

// Built at the first jump of a run. Takes 16 bytes for each N word.
class ProgramIndex {
 public:
  // Reads the whole text, which is at its beginning.
  explicit ProgramIndex(ProgramText text);

  // The program that begins with the file.
  const IndexedProgram& Main() const { return programs_.front(); }
  // The first program of a number, or null.
  const IndexedProgram* Find(double number) const;

  // The line N `number` of the program that holds `offset`: the next below, else its first one.
  std::optional<TextPlace> FindNumber(double number, uint64_t offset) const;

  // The line END k below, or WHILE DO k above, in the program that holds `offset`.
  std::optional<TextPlace> FindLoopEnd(double number, uint64_t offset) const;
  std::optional<TextPlace> FindLoopBegin(double number, uint64_t offset) const;

  // For the line O n SUB at `offset`: the line O n ENDSUB that belongs to it.
  std::optional<TextPlace> FindSubEnd(uint64_t offset) const;

 private:
  struct Label {
    uint32_t number;
    uint32_t line;
    uint64_t offset;
  };
  using Labels = std::vector<Label>;
  // Lines from an O word with SUB to that with ENDSUB. They belong to no program.
  struct Sub {
    uint64_t begin;
    TextPlace end;
  };
  struct Range {
    uint64_t begin, end;  // offsets
  };
  class Builder;

  Range RangeOf(uint64_t offset) const;
  // The first label of a number in a range of offsets, or null.
  static const Label* FirstFrom(const Labels& labels, uint32_t number, uint64_t from, uint64_t end);

  std::vector<IndexedProgram> programs_;    // by offset
  std::map<double, size_t> byNumber_;       // the first program of each number
  Labels numbers_, loopBegins_, loopEnds_;  // by number, then offset
  std::vector<Sub> subs_;                   // by offset
};

}  // namespace tvx
