// The table of remarks.
#include "insight/remarks.h"

#include <iterator>

namespace tvx {

namespace {

using enum RemarkId;
using enum RemarkClass;

constexpr RemarkKind kKinds[] = {
    {kOtherFormat,
     kLost,
     "other-format",
     {"설정되지 않은 형식의 줄이 대부분입니다", "most lines are in the format that is not set"},
     {"다른 형식으로 읽었으므로 경로와 시간이 맞지 않습니다. InputFileType(1: 워드 어드레스, 2: "
      "대화형)을 바꾸고 다시 불러오십시오.",
      "Path and times are those of a program read in the wrong format. Set InputFileType (1: "
      "word-address, 2: conversational) and load it again."}},
    {kNoMoves,
     kLost,
     "no-moves",
     {"프로그램에 이동이 없습니다", "the program leaves no move"},
     {"모든 값이 0입니다. NC 프로그램이 맞는지, InputFileType이 맞는지 확인하십시오.",
      "All figures are 0. Check that the file is an NC program and that InputFileType fits it."}},
    {kCommentHidesLine,
     kLost,
     "comment-hides-line",
     {"\"(\"나 \"#\" 때문에 줄의 이동 지령이 무시됩니다",
      "\"(\" or \"#\" hides the motion words of the line"},
     {"피드와 G 워드를 포함하여 줄 전체가 무시됩니다. 주석은 별도의 줄에 쓰고, 변수 대신 숫자를 "
      "쓰십시오.",
      "The whole line is ignored, its feed and G words too. Put the remark on a line of its own; "
      "write numbers in place of variables."}},
    {kCutOffByC,
     kLost,
     "cut-off-by-c",
     {"소문자 \"c\"에서 줄이 끝나 이동하지 않습니다",
      "a lower-case \"c\" ends the line, which makes no move"},
     {"\"c\" 앞의 워드는 다음 줄에 영향을 주지만 그 줄은 이동하지 않습니다. 워드는 대문자로 쓰고 "
      "주석은 별도의 줄에 쓰십시오. 0바이트도 같습니다.",
      "Words before the \"c\" act on the lines that follow, but the line is no move. Write words "
      "in capitals and remarks on lines of their own. A zero byte does the same."}},
    {kWordWithoutNumber,
     kLost,
     "word-without-number",
     {"숫자 없는 문자 때문에 이동하지 않습니다", "a letter has no number; the move is lost"},
     {"F, G, I, J, R, X, Y, Z 바로 뒤에 빈칸이나 \"+\" 없이 숫자가 와야 합니다. 그 줄은 이동하지 "
      "않습니다. X 10.이나 X+10. 대신 X10.으로 쓰십시오.",
      "The number must follow F, G, I, J, R, X, Y and Z at once, without a blank and without "
      "\"+\". The line makes no move. Write X10. in place of X 10. or X+10."}},
    {kLineTooLong,
     kLost,
     "line-too-long",
     {"줄이 80자보다 깁니다", "the line has more than 80 characters"},
     {"워드 어드레스 형식에서 80자가 넘는 줄은 이동하지 않고, 대화형에서는 80자까지만 읽습니다. "
      "줄을 나누십시오.",
      "A word-address line of more than 80 characters makes no move; a conversational one is read "
      "to its 80th character. Divide the line."}},
    {kLastLine,
     kLost,
     "last-line",
     {"마지막 줄에 줄바꿈이 없어 읽지 않습니다", "the last line has no line feed and is not read"},
     {"그 줄의 이동이 경로와 시간에서 빠집니다. 화일 끝에 줄바꿈을 넣으십시오.",
      "Its move is missing from path and times. End the file with a line feed."}},
    {kBlockReplaced,
     kLost,
     "block-replaced",
     {"좌표가 범위를 벗어나 이동이 무시됩니다",
      "the position is out of range, the move is dropped"},
     {"X와 Z의 범위는 -32700에서 32700 mm입니다. 벗어난 이동은 경로와 시간에서 빠집니다. 소수점과 "
      "\"Integer Ncdata\" 설정을 확인하십시오.",
      "X and Z reach from -32700 to 32700 mm. The move beyond is missing from path and times. "
      "Check decimal points and \"Integer Ncdata\"."}},
    {kStoreFull,
     kLost,
     "store-full",
     {"저장할 수 있는 마지막 블록 뒤의 줄이 있습니다",
      "lines after the last block that can be stored"},
     {"프로그램은 최대 8,164,000블록까지 저장됩니다. 그 뒤의 줄은 경로와 시간에서 빠집니다. "
      "프로그램을 나누십시오.",
      "A program has at most 8,164,000 blocks. The lines after them are missing from path and "
      "times. Divide the program."}},
    {kBeforeMotion,
     kLost,
     "before-motion",
     {"첫 이동 지령보다 앞에 좌표가 있습니다", "coordinates before the first motion word"},
     {"이동으로 저장되지 않고 위치만 다음 줄에 쓰입니다. G0(대화형은 L)로 시작하십시오.",
      "They leave no move, but the position counts for the next line. Begin with G0 "
      "(conversational: L)."}},
    {kFeedZero,
     kLost,
     "feed-zero",
     {"피드가 0인 절삭입니다", "a cut with a feed of 0"},
     {"길이에는 들어가지만 시간에는 들어가지 않습니다. 0보다 큰 피드를 주십시오.",
      "Its length counts, its time does not. Give the line a feed above 0."}},
    {kSubprogram,
     kLost,
     "subprogram",
     {"보조 프로그램은 호출되지 않습니다", "subprograms are not called"},
     {"보조 프로그램의 이동은 경로와 시간에서 빠지고, 화일 안의 보조 프로그램은 그 자리에서 한 "
      "번만 계산됩니다. 이동을 풀어 쓰거나 시간을 따로 더하십시오.",
      "The moves of the subprogram are missing from path and times; a subprogram in the file "
      "counts once, where its lines are. Write the moves out, or add its time by hand."}},
    {kCycle,
     kLost,
     "cycle",
     {"사이클은 실행되지 않습니다", "cycles are not carried out"},
     {"줄의 좌표만 하나의 이동으로 계산됩니다. 사이클의 이동은 경로와 시간에서 빠집니다. 이동을 "
      "풀어 쓰거나 시간을 따로 더하십시오.",
      "Only the coordinates of the line count, as one move. The moves of the cycle are missing "
      "from path and times. Write the moves out, or add the time by hand."}},
    {kMacro,
     kLost,
     "macro",
     {"\"#\"이 있는 줄은 무시됩니다", "a line with \"#\" is ignored"},
     {"변수, 반복, 분기는 실행되지 않습니다. 이동을 숫자로 풀어 쓰십시오.",
      "Variables, loops and jumps are not carried out. Write the moves out with numbers."}},
    {kRotary,
     kLost,
     "rotary",
     {"회전축과 부가축은 무시됩니다", "rotary and other further axes are ignored"},
     {"X, Y, Z만 이동으로 계산되고 부가축의 이동과 시간은 빠집니다. 시간을 따로 더하십시오.",
      "Only X, Y and Z move; travel and time of the other axis are missing. Add the time by "
      "hand."}},
    {kInch,
     kChanged,
     "inch",
     {"인치를 밀리미터로 읽습니다", "inches are read as millimetres"},
     {"길이와 급속이송 시간이 25.4배 짧게 나옵니다. 피드를 조정하면 절삭시간도 그렇습니다. "
      "프로그램을 밀리미터로 출력하십시오.",
      "Lengths and rapid times are 25.4 times too short; with adjusted feeds, cut times too. "
      "Output the program in millimetres."}},
    {kPlane,
     kChanged,
     "plane",
     {"XY 평면이 아닌 원호를 XY 평면으로 읽습니다",
      "arcs outside the XY plane are read in the XY plane"},
     {"G18, G19의 원호는 경로와 길이가 다릅니다(뒤의 숫자는 원호의 수). 직선으로 출력하십시오.",
      "Path and length of arcs under G18 and G19 are wrong; the number of these arcs follows. "
      "Output them as straight cuts."}},
    {kShift,
     kChanged,
     "shift",
     {"좌표의 이동, 배율, 회전은 무시됩니다",
      "shifts, scaling and rotation of coordinates are ignored"},
     {"좌표를 쓰인 그대로 계산합니다. 그림이 실제와 다르고, 배율이 있으면 길이도 다릅니다.",
      "Coordinates count as written. The picture differs from the part; lengths differ with "
      "scaling."}},
    {kCompensation,
     kChanged,
     "compensation",
     {"공구경 보정은 무시됩니다", "tool radius compensation is ignored"},
     {"공구 중심이 아니라 윤곽의 경로로 계산하므로 길이와 시간이 조금 다릅니다. 공구 중심 경로로 "
      "출력하십시오.",
      "The path is the contour, not that of the tool's centre. Lengths and times differ a little. "
      "Output the path of the centre."}},
    {kRapidByFeed,
     kChanged,
     "rapid-by-feed",
     {"피드가 커서 급속이송으로 읽습니다", "the feed of the line makes it a rapid"},
     {"급속이송의 길이와 시간에 들어가고 피드가 조정되지 않습니다. 워드 어드레스 형식에서는 "
      "\"급속이송\"을 절삭 피드보다 크게 하고, 대화형에서는 2000 이하로 프로그램하십시오.",
      "The move counts at the rapid feed and among the rapids; it is not adjusted. Word-address: "
      "raise \"Rapid feed\" above the feeds of the cuts. Conversational: program at most 2000."}},
    {kArcEndsElsewhere,
     kChanged,
     "arc-ends-elsewhere",
     {"원호의 시작점과 끝점이 한 원 위에 있지 않습니다",
      "start and end of an arc are not on one circle"},
     {"I, J의 중심으로 원호를 그리지만 장비에서는 알람이 나거나 경로가 달라집니다. I, J와 끝점을 "
      "확인하십시오. I, J는 원호의 시작점에서 잰 값입니다.",
      "The picture shows an arc about the centre given by I and J; a machine stops with an alarm "
      "or bends the path. Check I, J and the end point. They count from the start of the arc."}},
    {kArcRadiusShort,
     kChanged,
     "arc-radius-short",
     {"원호의 반지름이 현의 절반보다 짧습니다",
      "the radius of an arc is shorter than half its chord"},
     {"현의 가운데를 중심으로 하는 반원으로 읽지만 장비에서는 알람이 납니다. 반지름과 끝점을 "
      "확인하십시오.",
      "The arc is read as half a circle about the middle of the chord; a machine stops with an "
      "alarm. Check the radius and the end point."}},
    {kArcsNotTimed,
     kNote,
     "arcs-not-timed",
     {"원호는 길이와 시간에 들어가지 않습니다", "arcs are in none of the lengths and times"},
     {"뒤의 값은 원호의 수와 길이의 합입니다. 길이를 피드로 나눈 시간을 더하십시오.",
      "Number and length of all arcs follow. Add their length divided by their feed."}},
    {kDwell,
     kNote,
     "dwell",
     {"드웰은 시간에 들어가지 않습니다", "dwells are in none of the times"},
     {"뒤의 값은 초입니다. 합을 시간에 더하십시오.",
      "The detail is the dwell in seconds. Add their sum."}},
    {kToolChange,
     kNote,
     "tool-change",
     {"공구 교환은 시간에 들어가지 않습니다", "tool changes are in none of the times"},
     {"뒤의 값은 공구 번호입니다. 교환 시간을 횟수만큼 더하십시오.",
      "The detail is the tool. Add the time of a change for each of them."}},
    {kStop,
     kNote,
     "stop",
     {"장비가 멈추고 작업자를 기다립니다", "the machine stops and waits for the operator"},
     {"기다리는 시간은 들어가지 않습니다.", "The wait is in none of the times."}},
};

// The rows are found by their ids.
constexpr bool IsInOrder() {
  for (size_t i = 0; i < std::size(kKinds); ++i) {
    if (static_cast<size_t>(kKinds[i].id) != i) return false;
  }
  return std::size(kKinds) == kRemarkIds;
}
static_assert(IsInOrder());

}  // namespace

std::span<const RemarkKind> RemarkKinds() {
  return kKinds;
}

const Message& TextOf(RemarkClass remarkClass) {
  static constexpr Message kTexts[] = {{"빠짐", "lost"}, {"다름", "changed"}, {"참고", "note"}};
  return kTexts[static_cast<size_t>(remarkClass)];
}

uint64_t ProgramCheck::Count(RemarkClass remarkClass) const {
  uint64_t count = 0;
  for (const RemarkKind& kind : kKinds) {
    if (kind.remarkClass == remarkClass) count += Of(kind.id).count;
  }
  return count;
}

}  // namespace tvx
