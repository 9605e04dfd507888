#include "model/reference_parser.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "base/numbers.h"
#include "model/arc_geometry.h"

namespace tvx {

namespace {

struct Number {
  double value;
  bool empty;
};

Number TakeNumber(const char** p, const char* characters) {
  std::string text;
  while (text.size() < 19 && **p != '\0' && std::strchr(characters, **p) != nullptr) {
    text += *(*p)++;
  }
  return {std::strtod(text.c_str(), nullptr), text.empty()};
}

constexpr char kPlain[] = "0123456789.-";
constexpr char kWithPlus[] = "0123456789.-+";

bool Contains(const char* line, char c) {
  return std::strchr(line, c) != nullptr;
}

}  // namespace

int ReferenceParser::ParseBlockLine(const std::string& line, Vec3* arcOffset) {
  if (job.InputFileType == 2) return ParseConversationalLine(line.c_str(), arcOffset);
  job.InputFileType = 1;
  return ParseWordLine(line.c_str(), arcOffset);
}

void ReferenceParser::Begin(ParserState* state, Vec3* arcOffset) {
  if (incrementalMode == 0) {
    CurrentBlock.x = state->savedPos.x;
    CurrentBlock.y = state->savedPos.y;
    CurrentBlock.z = state->savedPos.z;
    state->lastPos = state->savedPos;
  } else {
    CurrentBlock.x = CurrentBlock.y = CurrentBlock.z = 0;
  }
  *arcOffset = state->modalArcOffset;
  CurrentBlock.type = state->modalType;
  if (state->modalType == 3) CurrentBlock.type = 4;
  if (state->modalType == 1) CurrentBlock.type = 2;
}

int ReferenceParser::End(ParserState* state, const Vec3& arcOffset) {
  MotionBlock& b = CurrentBlock;
  Vec3& last = state->lastPos;
  state->savedPos = {b.x, b.y, b.z};
  state->modalArcOffset = arcOffset;
  bool moves;
  if (incrementalMode == 0) {
    moves = b.x != last.x || b.y != last.y || b.z != last.z;
  } else {
    moves = b.x != 0 || b.y != 0 || b.z != 0;
    b.x += last.x;
    b.y += last.y;
    b.z += last.z;
    if (moves) last = {b.x, b.y, b.z};
  }
  return moves || b.type == 6 || b.type == 8 ? 1 : 0;
}

void ReferenceParser::MotionWord(int32_t g) {
  uint32_t& type = CurrentBlock.type;
  if (g == 0 && type != 2) type = 1;
  if (g == 1 && type != 4) type = 3;
  if (g == 2) type = 8;
  if (g == 3) type = 6;
}

void ReferenceParser::FindCentre(const ParserState& state, Vec3* arcOffset) {
  Vec3 end{CurrentBlock.x, CurrentBlock.y, CurrentBlock.z};
  if (incrementalMode != 0) {
    end = {state.lastPos.x + end.x, state.lastPos.y + end.y, state.lastPos.z + end.z};
  }
  ArcCentreFromRadius(state.lastPos, end, arcRadius, CurrentBlock.type, arcOffset);
}

int ReferenceParser::ParseWordLine(const char* p, Vec3* arcOffset) {
  ParserState& state = states.word;
  MotionBlock& b = CurrentBlock;
  if (Contains(p, '#')) return 0;
  bool lineValid = true;
  if (Contains(p, '(')) return 0;
  Begin(&state, arcOffset);
  for (;;) {
    const char c = *p;
    if (c == '\0') return 0;  // past the end without a line feed
    if (c == '\n') return lineValid ? End(&state, *arcOffset) : 0;
    ++p;
    if (c == 'c') return 0;
    if (!Contains("FfGIiJjRXxYyZz", c)) continue;

    const Number number = TakeNumber(&p, kPlain);
    if (number.empty) lineValid = false;
    const int32_t whole = TruncateToInt(number.value);
    const float length = static_cast<float>(job.IntNcdataFlg != 0 ? number.value * 0.001  //
                                                                  : number.value);
    if (c == 'F' || c == 'f') {
      b.feedProgrammed = b.feed = whole;
      if (whole >= job.RapidFeed) {
        b.type = 1;
      } else if (b.type == 1 || b.type == 2 || b.type == 4) {
        b.type = 3;
      }
    }
    if (c == 'G') {
      MotionWord(whole);
      if (whole >= 0 && whole <= 3) arcOffset->x = arcOffset->y = 0;
      if (whole == 90) {
        incrementalMode = 0;
        b.x = state.lastPos.x;
        b.y = state.lastPos.y;
        b.z = state.lastPos.z;
      }
      if (whole == 91) {
        incrementalMode = 1;
        b.x = b.y = b.z = 0;
      }
      state.modalType = b.type;
    }
    if (c == 'I' || c == 'i') arcOffset->x = length;
    if (c == 'J' || c == 'j') arcOffset->y = length;
    if (c == 'R') {
      arcRadius = length;
      FindCentre(state, arcOffset);
    }
    if (c == 'X' || c == 'x') b.x = length;
    if (c == 'Y' || c == 'y') b.y = length;
    if (c == 'Z' || c == 'z') b.z = length;
  }
}

int ReferenceParser::ParseConversationalLine(const char* p, Vec3* arcOffset) {
  ParserState& state = states.conversational;
  MotionBlock& b = CurrentBlock;
  if (Contains(p, '(')) return 0;
  Begin(&state, arcOffset);
  const auto follows = [&](const char* text) { return std::strncmp(p, text, 2) == 0; };
  const auto passOver = [&] {
    if (*p != '\n' && *p != '\0') ++p;
  };
  while (*p != '\n' && *p != '\0') {
    const char c = *p++;
    if (c == 'c') return 1;
    if (c == 'B' && (follows("EG") || follows("LK"))) return 0;
    if ((c == 'B' || c == 'T') && follows("OO")) return 0;
    if ((c == 'B' || c == 'T' || c == 'E') && follows("ND")) return 0;
    if (Contains("BTEC", c)) {
      if (*p == 'R') {
        ++p;
      } else if (*p == 'C') {
        ++p;
        state.centreLine = true;
      }
    }
    if (c == 'D' && *p == 'R') {
      ++p;
      if (*p == '-') b.type = 8;
      if (*p == '+') b.type = 6;
      passOver();
      if (arcRadius > 0) {
        state.modalType = b.type;
        FindCentre(state, arcOffset);
      } else {
        state.modalType = b.type = 3;
      }
      passOver();
      passOver();
    }
    if (c == 'L') {
      if (b.type == 3) {
        b.type = 4;
      } else if (b.type == 0 || b.type == 1) {
        b.type = b.type == 0 ? 1 : 2;
      } else if (b.type == 8 || b.type == 6) {
        b.type = b.feed <= 2000 ? 3 : 1;
      }
      state.modalType = b.type;
    }
    if (c == 'R') {
      if (const Number number = TakeNumber(&p, kWithPlus); !number.empty) {
        arcRadius = static_cast<float>(number.value);
      }
    }
    if (c == 'F' || c == 'f') {
      if (const Number number = TakeNumber(&p, kWithPlus); !number.empty) {
        b.feedProgrammed = b.feed = TruncateToInt(number.value);
        if (b.feed > 2000) {
          if (b.type != 2) b.type = 1;
        } else {
          if (b.type != 4) b.type = 3;
        }
        state.modalType = b.type;
      }
    }
    if (c == 'G') {
      const int32_t g = TruncateToInt(TakeNumber(&p, kPlain).value);
      MotionWord(g);
      if (g == 90) incrementalMode = 0;
      if (g == 91) {
        incrementalMode = 1;
        b.x = b.y = b.z = 0;
      }
      state.modalType = b.type;
    }
    if (Contains("XxYyZz", c)) {
      const double value = TakeNumber(&p, kWithPlus).value;
      const bool isX = c == 'X' || c == 'x';
      const bool isY = c == 'Y' || c == 'y';
      if (state.centreLine && isX) {
        state.centreDx = static_cast<float>(value - b.x);
      } else if (state.centreLine && isY) {
        state.centreDy = static_cast<float>(value - b.y);
      } else {
        (isX ? b.x : isY ? b.y : b.z) = static_cast<float>(value);
      }
    }
  }
  if (!state.centreLine) return End(&state, *arcOffset);
  state.centreLine = false;
  const double dx = state.centreDx;
  const double dy = state.centreDy;
  arcRadius = static_cast<float>(SafeSqrt(dx * dx + dy * dy));
  return 0;
}

}  // namespace tvx
