#pragma once

#include <string>
#include <vector>

#include "commands/command_id.h"

namespace sched {

// The keys of the platform's standard shortcuts that an entry takes.
enum class StandardKey { None, New, Open, Save, Print, HelpContents, Find, Undo, Redo };

// One line of a menu: a command, a separator, or the start or end of a submenu.
struct MenuEntry {
  enum class Kind { Command, Separator, Submenu, EndSubmenu };
  Kind kind = Kind::Command;
  std::string name;     // the entry's (or submenu's) name: "New_Menu", "Hctl", "Pop2Copy"
  std::string caption;  // with "&" before the access key
  CommandId command = CommandId::New;
  StandardKey key = StandardKey::None;
  bool checkable = false;
  bool checked = false;  // the check mark at start
  bool hidden = false;
  bool radio = false;     // one of the checkable entries of its submenu, of which one is checked
  std::string statusTip;  // what the entry does, beyond its caption
};

struct MenuDefinition {
  std::string name;  // "FileMenu", "EditCTL", ...
  std::string caption;
  std::vector<MenuEntry> entries;
};

struct ToolButtonDefinition {
  std::string key;  // "NewF", ...; empty for a separator
  std::string tip;
  CommandId command = CommandId::New;
};

// The menu bar, left to right.
const std::vector<MenuDefinition>& MenuBarTable();
// The popup menus of the views: PopMenuCTRL1 to PopMenuCTRL3 and Pop4CTRL.
const std::vector<MenuDefinition>& PopupTable();
// Toolbar1, left to right.
const std::vector<ToolButtonDefinition>& ToolbarTable();

}  // namespace sched
