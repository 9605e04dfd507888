#pragma once

#include <string>

#include "model/parser.h"

namespace tvx {

// The rules of both line formats once more, written for plainness: one character at a time, in the
// register itself, on a zero-terminated text. The parser has to agree with it on any line.
class ReferenceParser {
 public:
  // `line` ends in a line feed unless it was cut.
  int ParseBlockLine(const std::string& line, Vec3* arcOffset);

  ParserStates states;
  MotionBlock CurrentBlock;
  uint32_t incrementalMode = 0;
  float arcRadius = 0;
  JobRecord job;

 private:
  int ParseWordLine(const char* p, Vec3* arcOffset);
  int ParseConversationalLine(const char* p, Vec3* arcOffset);
  void Begin(ParserState* state, Vec3* arcOffset);
  int End(ParserState* state, const Vec3& arcOffset);
  void MotionWord(int32_t g);
  void FindCentre(const ParserState& state, Vec3* arcOffset);
};

}  // namespace tvx
