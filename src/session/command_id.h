// The commands of the program by name. The numbers identify them in docs/commands.md and never
// change; a command without a number of its own there takes the next free one from 33000 on.
#pragma once

namespace tvx {

enum class CommandId {
  kNone = 0,

  // Buttons of the command pad that are no commands of a menu.
  kPadJobList = 1000,
  kPadCancel = 1004,
  kPadRapids = 1005,
  kPadOptions = 1006,

  // The view.
  kLoad = 32771,
  kSingleCutTime = 32772,
  kPlainCutTime = 32773,
  kResultList = 32774,
  kViewTop = 32775,
  kViewFront = 32776,
  kViewRight = 32777,
  kViewIsometric = 32778,
  kViewIsometric2 = 32779,
  kViewIsometric4 = 32780,
  kFit = 32781,
  kRedraw = 32782,
  kToggleRapids = 32783,
  kShowTool = 32784,
  kRunJobList = 32785,
  kViewIsometric3 = 32786,
  kTextOnly = 32787,
  kGraphicsOnly = 32788,
  kWritePicture = 32791,
  kMasterBuild = 32792,
  kMasterDelete = 32794,
  kMasterSave = 32795,
  kMasterLoad = 32802,

  // Settings.
  kConfiguration = 32789,
  kComPort = 32793,
  kDirectoryList = 32796,
  kFixRapidHeight = 32797,
  kFastCutToRapid = 32798,
  kRapidToCut = 32799,
  kPager = 32800,
  kUserKey1 = 32801,
  kUserKey2 = 32803,
  kUserKey3 = 32804,
  kUserKey4 = 32805,
  kUserKey5 = 32806,
  kUserKey6 = 32807,
  kUserKey7 = 32814,
  kUserKey8 = 32808,
  kUserKey9 = 32809,
  kUserKey10 = 32810,
  kUserKey11 = 32811,
  kUserKey12 = 32812,
  kWriteUserKeys = 32813,

  // The frame.
  kNewDocument = 57600,
  kOpenDocument = 57601,
  kSave = 57603,
  kPrintSetup = 57606,
  kPrint = 57607,
  kPrintPreview = 57609,
  kRecentFiles = 57616,
  kCopy = 57634,
  kCut = 57635,
  kPaste = 57637,
  kUndo = 57643,
  kNewWindow = 57648,
  kArrangeIcons = 57649,
  kCascade = 57650,
  kTileHorizontally = 57651,
  kTileVertically = 57652,
  kAbout = 57664,
  kExit = 57665,
  kNextPane = 57680,
  kPreviousPane = 57681,
  kToolBar = 59392,
  kStatusBar = 59393,
};

}  // namespace tvx
