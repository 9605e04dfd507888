// The modal state that the parsers carry from line to line and from program to program.
#pragma once

#include <cstdint>

#include "model/vectors.h"

namespace tvx {

// Modal state of one line format. It lasts for the whole process: a load does not reset it, so a
// program starts with what the program before it left.
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

}  // namespace tvx
