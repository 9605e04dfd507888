// The table of Korean labels and their English replacements.
#include "jobs/labels.h"

#include <string_view>

#include "base/text.h"

namespace tvx {

namespace {

struct Label {
  std::string_view korean;
  std::string_view english;
};

// Replaced in this order, so a label that contains an earlier one is found in the text that the
// earlier replacement left.
constexpr Label kLabels[] = {
    {"화일명", "FileName"},
    {"재전송", "Restart"},
    {"번호", "Num"},
    {"블록", "Block"},
    {"Z영역", "ZArea"},
    {"좌표", "Cood"},
    {"공차", "Toler"},
    {"공구직경", "ToolDia"},
    {"안전거리", "SafeDist"},
    {"코너최소각도", "CorChkMinAng"},
    {"코너최대감속비", "CorMaxDecRat"},
    {"경사최소각도", "SideChkMinAng"},
    {"경사최대감속비", "SideMaxDecRat"},
    {"볼록코너검색", "ConcornerCheck"},
    {"Z상하향검색", "UpDownChk"},
    {"가공소재", "MaterialName"},
    {"최대피드", "MaxFeed"},
    {"접근피드", "PlungeFeed"},
    {"코너가중치", "CornerWeight"},
    {"경사가중치", "SideWeight"},
    {"부드러운 피드 변화", "SmoothFeed"},
    {"XY변화 축소", "XyChgReduceCheck"},
    {"조건화일", "Afa file"},
    {"Afa조건:", "Afa:"},
};

}  // namespace

std::string ReplaceLabels(std::string text, int32_t language) {
  if (language != kEnglishLabels) return text;
  for (const Label& label : kLabels) ReplaceAll(label.korean, label.english, &text);
  return text;
}

}  // namespace tvx
