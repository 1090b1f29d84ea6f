#pragma once

#include <array>
#include <functional>

#include "commands/command_id.h"
#include "views/view_commands.h"

namespace sched {

// The routine of each command, and the rules that enable it. A command without a routine is
// not part of the program yet and stays disabled wherever it is offered.
class CommandSet {
 public:
  using Routine = std::function<void()>;

  void Bind(CommandId id, Routine routine);
  bool Has(CommandId id) const;
  // Runs the command's routine; nothing for a command without one.
  void Run(CommandId id) const;

  // Whether the command is enabled at its place: the menus by the views' menu state, a popup by
  // the items it was opened for.
  bool Enabled(CommandId id, CommandPlace place, const MenuState& menus,
               const PopupItems& popup = {}) const;

 private:
  std::array<Routine, kCommandCount> routines_;
};

// The enablement rule alone, as if every command had its routine.
bool EnabledByRule(CommandId id, CommandPlace place, const MenuState& menus,
                   const PopupItems& popup);

// The Delete menu itself, which stays enabled while any of its commands could act.
constexpr bool DelCTRLEnabled(const MenuState& menus) {
  return menus.DelCTRL;
}

}  // namespace sched
