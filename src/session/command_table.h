// The menus, keys and tool buttons that lead to the commands, from which the front end builds its
// windows. What a command does is a row of session/view_operations.cpp or of the front end's own
// table; a command that has no row is shown disabled.
#pragma once

#include <span>

#include "session/command_id.h"

namespace tvx {

// One row of a menu: a title opens a new menu of the bar, an entry belongs to the last title, and
// an entry with a submenu to the submenu of that name in it.
struct MenuRow {
  const char* menu;     // title of the menu
  const char* submenu;  // title of the submenu, or ""
  const char* text;     // with "&" before the access key and "\t" before a key as printed
  CommandId id;
};

// The menu while no document is open, and the one with an open document.
std::span<const MenuRow> EmptyMenu();
std::span<const MenuRow> WorkingMenu();

struct Accelerator {
  const char* key;  // "Ctrl+T", "F1"
  CommandId id;
};

// The keys of the view's window, and those of the main frame.
std::span<const Accelerator> ViewAccelerators();
std::span<const Accelerator> FrameAccelerators();

struct ToolButton {
  CommandId id;      // kNone: a separator
  const char* text;  // shown as its tool tip
};

std::span<const ToolButton> ToolBar();

// The menu of the arrow beside the tool button of the printer; the rows name no menu.
std::span<const MenuRow> PrinterMenu();

}  // namespace tvx
