#pragma once

#include <cstdint>
#include <string_view>

#include "model/block_store.h"
#include "model/job_record.h"
#include "model/path.h"

namespace tvx {

// Modal state of one line format. It lasts for the whole process: a load does not reset it, so a
// second file starts with what the file before it left.
struct ParserState {
  uint32_t modalType = 0;  // block type latched for the following lines
  Vec3 savedPos;           // position words at the end of the last valid line
  Vec3 lastPos;            // absolute position before the line
  Vec3 modalArcOffset;     // I, J, K of the last valid line; only I and J are ever set
  // Conversational format only.
  bool centreLine = false;  // CC was read on this line
  float centreDx = 0, centreDy = 0;
};

// One for each format, so the two never share modal data.
struct ParserStates {
  ParserState word;
  ParserState conversational;
};

// What the parser works on beside the line: the register it fills and the settings in force.
struct ParserContext {
  ParserStates* states;
  MotionBlock* CurrentBlock;
  uint32_t* incrementalMode;  // 0: G90, 1: G91
  float* arcRadius;           // last radius read
  JobRecord* job;             // RapidFeed, IntNcdataFlg, InputFileType
};

// One line of an NC file, without its line feed. kLinePadding bytes behind it have to be readable,
// whatever they hold: numbers are taken in several bytes at once.
struct PaddedLine {
  static constexpr size_t kLinePadding = 16;

  std::string_view text;
  bool hasLineFeed;  // false when the line was cut before its line feed
};

// Parses one line. A word-address line that was cut acts but makes no move; a zero byte in a line
// cuts it there.
// Returns 1 if CurrentBlock holds a block to store; for types 6 and 8 *arcOffset then holds the
// centre's offset from the start point. Returns 0 if the line makes no move. A line with a comment
// in parentheses, or "#" in the word-address format, changes nothing at all.
// Picks the format by InputFileType and writes 1 into it if it is not 2.
int ParseBlockLine(const ParserContext& context, const PaddedLine& line, Vec3* arcOffset);
int ParseWordLine(const ParserContext& context, const PaddedLine& line, Vec3* arcOffset);
int ParseConversationalLine(const ParserContext& context, const PaddedLine& line, Vec3* arcOffset);

}  // namespace tvx
