// The menus, keys and tool buttons of the program, as the user meets them.
#include "session/command_table.h"

namespace tvx {

namespace {

using enum CommandId;

constexpr char kFile[] = "&File";
constexpr char kEmptyView[] = "&View";
constexpr char kHelp[] = "&Help";

const MenuRow kEmptyMenu[] = {
    {kFile, "", "&New\tCtrl+N", kNewDocument},
    {kFile, "", "&Open...\tCtrl+O", kOpenDocument},
    {kFile, "", "P&rint Setup...", kPrintSetup},
    {kFile, "", "Recent File", kRecentFiles},
    {kFile, "", "E&xit", kExit},
    {kEmptyView, "", "&Toolbar", kToolBar},
    {kEmptyView, "", "&Status Bar", kStatusBar},
    {kHelp, "", "&About TVX...", kAbout},
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
    {kWorkFile, "", "불러오기(&T)\t(Ctrl+T)", kLoad},
    {kWorkFile, "", "그림화일 생성", kWritePicture},
    {kWorkFile, "", "E&xit", kExit},
    {kCutTime, "", "Single File Cut Time", kPlainCutTime},
    {kCutTime, "", "Single Afa Cut Time", kSingleCutTime},
    {kCutTime, "", "다중 Afa Cut Time", kRunJobList},
    {kCutTime, "", "TVX 출력", kResultList},
    {kMaster, "", "생성", kMasterBuild},
    {kMaster, "", "삭제", kMasterDelete},
    {kMaster, "", "저장", kMasterSave},
    {kMaster, "", "불러오기", kMasterLoad},
    {kGraphics, kDrawingMode, "문자만 보기", kTextOnly},
    {kGraphics, kDrawingMode, "그래픽만 보기", kGraphicsOnly},
    {kGraphics, "", "위에서 보기(F1)", kViewTop},
    {kGraphics, "", "앞에서 보기(F2)", kViewFront},
    {kGraphics, "", "우측에서보기(F3)", kViewRight},
    {kGraphics, "", "입체로 보기(F4)", kViewIsometric},
    {kGraphics, "", "입체로 보기2(F5)", kViewIsometric2},
    {kGraphics, "", "입체로 보기3(F6)", kViewIsometric3},
    {kGraphics, "", "입체로 보기4(F7)", kViewIsometric4},
    {kGraphics, "", "자동 확대축소(F8)", kFit},
    {kGraphics, "", "다시그리기(F9)", kRedraw},
    {kGraphics, "", "급속이송(ON/OFF)(F10)", kToggleRapids},
    {kGraphics, "", "공구보이기(ON(F11)/OFF(F12))", kShowTool},
    {kSettings, "", "환경설정", kConfiguration},
    {kSettings, "", "Com port 사용", kComPort},
    {kSettings, "", "디렉토리 리스트", kDirectoryList},
    {kSettings, kUserKey, "UK_1", kUserKey1},
    {kSettings, kUserKey, "UK_2", kUserKey2},
    {kSettings, kUserKey, "UK_3", kUserKey3},
    {kSettings, kUserKey, "UK_4", kUserKey4},
    {kSettings, kUserKey, "UK_5", kUserKey5},
    {kSettings, kUserKey, "UK_6", kUserKey6},
    {kSettings, kUserKey, "UK_7", kUserKey7},
    {kSettings, kUserKey, "UK_8", kUserKey8},
    {kSettings, kUserKey, "UK_9", kUserKey9},
    {kSettings, kUserKey, "UK_10", kUserKey10},
    {kSettings, kUserKey, "UK_11", kUserKey11},
    {kSettings, kUserKey, "UK_12", kUserKey12},
    {kSettings, kUserKey, "UK Save", kWriteUserKeys},
    {kOther, "", "급속이송 높이 고정", kFixRapidHeight},
    {kOther, "", "고속절삭->급속이송", kFastCutToRapid},
    {kOther, "", "급속이송->절삭이송", kRapidToCut},
    {kOther, "", "호출기 설정", kPager},
    {kView, "", "&Toolbar", kToolBar},
    {kView, "", "&Status Bar", kStatusBar},
    {kWindow, "", "&New Window", kNewWindow},
    {kWindow, "", "&Cascade", kCascade},
    {kWindow, "", "&Tile horz", kTileHorizontally},
    {kWindow, "", "&Tile vert", kTileVertically},
    {kWindow, "", "&Arrange Icons", kArrangeIcons},
    {kHelp, "", "&About AFA", kAbout},
};

const Accelerator kViewAccelerators[] = {
    {"Ctrl+T", kSingleCutTime},
    {"F1", kViewTop},
    {"F2", kViewFront},
    {"F3", kViewRight},
    {"F4", kViewIsometric},
    {"F5", kViewIsometric2},
    {"F6", kViewIsometric3},
    {"F7", kViewIsometric4},
    {"F8", kFit},
    {"F9", kRedraw},
    {"F10", kToggleRapids},
    {"F11", kShowTool},
};

const Accelerator kFrameAccelerators[] = {
    {"Ctrl+N", kNewDocument}, {"Ctrl+O", kOpenDocument},   {"Ctrl+S", kSave},
    {"Ctrl+P", kPrint},       {"Ctrl+Z", kUndo},           {"Alt+Backspace", kUndo},
    {"Ctrl+X", kCut},         {"Shift+Delete", kCut},      {"Ctrl+C", kCopy},
    {"Ctrl+Insert", kCopy},   {"Ctrl+V", kPaste},          {"Shift+Insert", kPaste},
    {"F6", kNextPane},        {"Shift+F6", kPreviousPane},
};

const ToolButton kToolButtons[] = {
    {kNewDocument, "New"}, {kLoad, "Load"},   {kSave, "Save"}, {kNone, ""},       {kCut, "Cut"},
    {kCopy, "Copy"},       {kPaste, "Paste"}, {kNone, ""},     {kPrint, "Print"}, {kAbout, "About"},
};

const MenuRow kPrinterMenu[] = {
    {"", "", "&Print...\tCtrl+P", kPrint},
    {"", "", "Print Pre&view", kPrintPreview},
    {"", "", "P&rint Setup...", kPrintSetup},
};

}  // namespace

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
  return kToolButtons;
}
std::span<const MenuRow> PrinterMenu() {
  return kPrinterMenu;
}

}  // namespace tvx
