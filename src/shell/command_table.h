// Every command of the program, and the menus, keys and tool buttons that lead to it. The front end
// builds its windows from these tables; a command whose action is kNone is shown disabled.
#pragma once

#include <span>

namespace tvx {

enum class Action {
  kNone,     // no handler: shown disabled
  kNothing,  // can be chosen, and nothing happens

  // Of the frame.
  kNewDocument,
  kOpenDocument,
  kPrint,
  kPrintPreview,
  kPrintSetup,
  kRecentFiles,
  kExit,
  kToolbar,
  kStatusBar,
  kNewWindow,
  kCascade,
  kTileHorizontally,
  kTileVertically,
  kArrangeIcons,

  // Of the view.
  kLoad,
  kWritePicture,
  kSingleCutTime,
  kRunJobList,
  kResultList,
  kMasterBuild,
  kMasterDelete,
  kMasterSave,
  kMasterLoad,
  kViewMode,  // argument: 1 to 7
  kFit,
  kRedraw,
  kToggleRapids,

  // Of the application.
  kAbout,
  kEditConfiguration,
  kEditDirectoryList,
  kEditUserKey,  // argument: 1 to 12
  kWriteUserKeys,
};

struct Command {
  int id;
  Action action;
  int argument = 0;
  const char* prompt = "";  // in the status bar while its entry is marked
};

// All commands.
std::span<const Command> Commands();

// The command of an id; one without an action for an id that has none.
Command FindCommand(int id);

// One row of a menu: a title opens a new menu of the bar, an entry belongs to the last title, and
// an entry with a submenu to the submenu of that name in it.
struct MenuRow {
  const char* menu;     // title of the menu
  const char* submenu;  // title of the submenu, or ""
  const char* text;     // with "&" before the access key and "\t" before a key as printed
  int id;
};

// The menu while no document is open, and the one with an open document.
std::span<const MenuRow> EmptyMenu();
std::span<const MenuRow> WorkingMenu();

struct Accelerator {
  const char* key;  // "Ctrl+T", "F1"
  int id;
};

// The keys of the view's window, and those of the main frame.
std::span<const Accelerator> ViewAccelerators();
std::span<const Accelerator> FrameAccelerators();

struct ToolButton {
  int id;            // 0: a separator
  const char* text;  // what the button is for
};

std::span<const ToolButton> ToolBar();

// What the arrow beside the tool button of the printer offers; the rows name no menu.
std::span<const MenuRow> PrinterMenu();

}  // namespace tvx
