#include "shell/command_table.h"

namespace tvx {

namespace {

const Command kCommands[] = {
    {57600, Action::kNewDocument},
    {57601, Action::kOpenDocument},
    {57606, Action::kPrintSetup},
    {57607, Action::kPrint},
    {57609, Action::kPrintPreview},
    {57616, Action::kRecentFiles},
    {57665, Action::kExit},
    {59392, Action::kToolbar},
    {59393, Action::kStatusBar},
    {57648, Action::kNewWindow},
    {57649, Action::kArrangeIcons},
    {57650, Action::kCascade},
    {57651, Action::kTileHorizontally},
    {57652, Action::kTileVertically},
    {57664, Action::kAbout},
    {32771, Action::kLoad, 0, "Nc data 화일 불러오기."},
    {32791, Action::kWritePicture},
    {32772, Action::kSingleCutTime},
    {32773, Action::kNothing},
    {32774, Action::kResultList},
    {32785, Action::kRunJobList},
    {32792, Action::kMasterBuild, 0, "AFA를 위한 마스터 모델 생성"},
    {32794, Action::kMasterDelete, 0, "AFA를 위한 마스터 모델 삭제"},
    {32795, Action::kMasterSave, 0, "AFA를 위한 마스터 모델 저장"},
    {32802, Action::kMasterLoad, 0, "AFA를 위한 마스터 모델 불러오기"},
    {32775, Action::kViewMode, 1},
    {32776, Action::kViewMode, 2},
    {32777, Action::kViewMode, 3},
    {32778, Action::kViewMode, 4},
    {32779, Action::kViewMode, 5},
    {32786, Action::kViewMode, 6},
    {32780, Action::kViewMode, 7},
    {32781, Action::kFit},
    {32782, Action::kRedraw},
    {32783, Action::kToggleRapids},
    {32789, Action::kEditConfiguration},
    {32796, Action::kEditDirectoryList},
    {32801, Action::kEditUserKey, 1},
    {32803, Action::kEditUserKey, 2},
    {32804, Action::kEditUserKey, 3},
    {32805, Action::kEditUserKey, 4},
    {32806, Action::kEditUserKey, 5},
    {32807, Action::kEditUserKey, 6},
    {32814, Action::kEditUserKey, 7},
    {32808, Action::kEditUserKey, 8},
    {32809, Action::kEditUserKey, 9},
    {32810, Action::kEditUserKey, 10},
    {32811, Action::kEditUserKey, 11},
    {32812, Action::kEditUserKey, 12},
    {32813, Action::kWriteUserKeys},
};

constexpr char kFile[] = "&File";
constexpr char kEmptyView[] = "&View";
constexpr char kHelp[] = "&Help";

const MenuRow kEmptyMenu[] = {
    {kFile, "", "&New\tCtrl+N", 57600},
    {kFile, "", "&Open...\tCtrl+O", 57601},
    {kFile, "", "P&rint Setup...", 57606},
    {kFile, "", "Recent File", 57616},
    {kFile, "", "E&xit", 57665},
    {kEmptyView, "", "&Toolbar", 59392},
    {kEmptyView, "", "&Status Bar", 59393},
    {kHelp, "", "&About TVX...", 57664},
};

constexpr char kWorkFile[] = "화일(&F)";
constexpr char kCutTime[] = "Cut Time";
constexpr char kMaster[] = "마스타";
constexpr char kGraphics[] = "그래픽(&G)";
constexpr char kDrawingMode[] = "그리기 방식";
constexpr char kSettings[] = "설정";
constexpr char kUserKey[] = "사용자 KEY";
constexpr char kOther[] = "기타";
constexpr char kView[] = "&View";
constexpr char kWindow[] = "&Window";

const MenuRow kWorkingMenu[] = {
    {kWorkFile, "", "불러오기(&T)\t(Ctrl+T)", 32771},
    {kWorkFile, "", "그림화일 생성", 32791},
    {kWorkFile, "", "E&xit", 57665},
    {kCutTime, "", "Single File Cut Time", 32773},
    {kCutTime, "", "Single Afa Cut Time", 32772},
    {kCutTime, "", "다중 Afa Cut Time", 32785},
    {kCutTime, "", "TVX 출력", 32774},
    {kMaster, "", "생성", 32792},
    {kMaster, "", "삭제", 32794},
    {kMaster, "", "저장", 32795},
    {kMaster, "", "불러오기", 32802},
    {kGraphics, kDrawingMode, "문자만 보기", 32787},
    {kGraphics, kDrawingMode, "그래픽만 보기", 32788},
    {kGraphics, "", "위에서 보기(F1)", 32775},
    {kGraphics, "", "앞에서 보기(F2)", 32776},
    {kGraphics, "", "우측에서보기(F3)", 32777},
    {kGraphics, "", "입체로 보기(F4)", 32778},
    {kGraphics, "", "입체로 보기2(F5)", 32779},
    {kGraphics, "", "입체로 보기3(F6)", 32786},
    {kGraphics, "", "입체로 보기4(F7)", 32780},
    {kGraphics, "", "자동 확대축소(F8)", 32781},
    {kGraphics, "", "다시그리기(F9)", 32782},
    {kGraphics, "", "급속이송(ON/OFF)(F10)", 32783},
    {kGraphics, "", "공구보이기(ON(F11)/OFF(F12))", 32784},
    {kSettings, "", "환경설정", 32789},
    {kSettings, "", "Com port 사용", 32793},
    {kSettings, "", "디렉토리 리스트", 32796},
    {kSettings, kUserKey, "UK_1", 32801},
    {kSettings, kUserKey, "UK_2", 32803},
    {kSettings, kUserKey, "UK_3", 32804},
    {kSettings, kUserKey, "UK_4", 32805},
    {kSettings, kUserKey, "UK_5", 32806},
    {kSettings, kUserKey, "UK_6", 32807},
    {kSettings, kUserKey, "UK_7", 32814},
    {kSettings, kUserKey, "UK_8", 32808},
    {kSettings, kUserKey, "UK_9", 32809},
    {kSettings, kUserKey, "UK_10", 32810},
    {kSettings, kUserKey, "UK_11", 32811},
    {kSettings, kUserKey, "UK_12", 32812},
    {kSettings, kUserKey, "UK Save", 32813},
    {kOther, "", "급속이송 높이 고정", 32797},
    {kOther, "", "고속절삭->급속이송", 32798},
    {kOther, "", "급속이송->절삭이송", 32799},
    {kOther, "", "호출기 설정", 32800},
    {kView, "", "&Toolbar", 59392},
    {kView, "", "&Status Bar", 59393},
    {kWindow, "", "&New Window", 57648},
    {kWindow, "", "&Cascade", 57650},
    {kWindow, "", "&Tile horz", 57651},
    {kWindow, "", "&Tile vert", 57652},
    {kWindow, "", "&Arrange Icons", 57649},
    {kHelp, "", "&About AFA", 57664},
};

const Accelerator kViewAccelerators[] = {
    {"Ctrl+T", 32772}, {"F1", 32775}, {"F2", 32776}, {"F3", 32777}, {"F4", 32778},  {"F5", 32779},
    {"F6", 32786},     {"F7", 32780}, {"F8", 32781}, {"F9", 32782}, {"F10", 32783}, {"F11", 32784},
};

const Accelerator kFrameAccelerators[] = {
    {"Ctrl+N", 57600}, {"Ctrl+O", 57601},        {"Ctrl+S", 57603}, {"Ctrl+P", 57607},
    {"Ctrl+Z", 57643}, {"Alt+Backspace", 57643}, {"Ctrl+X", 57635}, {"Shift+Delete", 57635},
    {"Ctrl+C", 57634}, {"Ctrl+Insert", 57634},   {"Ctrl+V", 57637}, {"Shift+Insert", 57637},
    {"F6", 57680},     {"Shift+F6", 57681},
};

const ToolButton kToolBar[] = {
    {57600, "New"},  {32771, "Load"},  {57603, "Save"}, {0, ""},          {57635, "Cut"},
    {57634, "Copy"}, {57637, "Paste"}, {0, ""},         {57607, "Print"}, {57664, "About"},
};

const MenuRow kPrinterMenu[] = {
    {"", "", "&Print...\tCtrl+P", 57607},
    {"", "", "Print Pre&view", 57609},
    {"", "", "P&rint Setup...", 57606},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

Command FindCommand(int id) {
  for (const Command& command : kCommands) {
    if (command.id == id) return command;
  }
  return {id, Action::kNone};
}

std::span<const MenuRow> EmptyMenu() {
  return kEmptyMenu;
}
std::span<const MenuRow> WorkingMenu() {
  return kWorkingMenu;
}
std::span<const Accelerator> ViewAccelerators() {
  return kViewAccelerators;
}
std::span<const Accelerator> FrameAccelerators() {
  return kFrameAccelerators;
}
std::span<const ToolButton> ToolBar() {
  return kToolBar;
}
std::span<const MenuRow> PrinterMenu() {
  return kPrinterMenu;
}

}  // namespace tvx
