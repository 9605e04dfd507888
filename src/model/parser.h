#pragma once

#include <cstdint>

#include "model/block_store.h"
#include "model/job_record.h"
#include "model/vectors.h"

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
  Vec3* arcOffset;            // I, J of the last line: an arc's centre from its start point
  JobRecord* job;             // RapidFeed, IntNcdataFlg, InputFileType
};

// One line of an NC file.
struct NcLine {
  const char* text;  // up to its first line feed; there always is one
  bool isCut;        // the line feed ends a line that was cut, and the parser does not get it
  bool hasComment;   // false if neither "(" nor "#" stands in it
};

// Parses one line. A word-address line that was cut acts but makes no move; a zero byte in a line
// cuts it there.
// Returns 1 if CurrentBlock holds a block to store; for types 6 and 8 the arc offset then holds the
// centre's offset from the start point. Returns 0 if the line makes no move. A line with a comment
// in parentheses, or "#" in the word-address format, changes nothing at all.
// Picks the format by InputFileType and writes 1 into it if it is not 2.
int ParseBlockLine(const ParserContext& context, const NcLine& line);
int ParseWordLine(const ParserContext& context, const NcLine& line);
int ParseConversationalLine(const ParserContext& context, const NcLine& line);

// Whether ParseBlockLine takes lines for conversational ones; writes into InputFileType as it does.
bool IsConversational(JobRecord* job);

}  // namespace tvx
