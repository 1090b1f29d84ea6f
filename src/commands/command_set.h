#pragma once

#include <array>
#include <functional>

#include "commands/command_id.h"
#include "store/undo_history.h"
#include "views/view_commands.h"

namespace sched {

// The routine of each command, and the rules that enable it. A command without a routine is
// not part of the program yet and stays disabled wherever it is offered.
class CommandSet {
 public:
  using Routine = std::function<void()>;

  void Bind(CommandId id, Routine routine);
  bool Has(CommandId id) const;
  // Runs the command's routine; nothing for a command without one. With a history, what a
  // command that changes the document did becomes one step of it, and `stepsChanged` runs.
  void Run(CommandId id);
  void RecordSteps(UndoHistory* history, std::function<void()> stepsChanged) {
    history_ = history;
    stepsChanged_ = std::move(stepsChanged);
  }

  // Whether the command is enabled at its place: the menus by the views' menu state, a popup by
  // the items it was opened for.
  bool Enabled(CommandId id, CommandPlace place, const MenuState& menus,
               const PopupItems& popup = {}) const;

 private:
  std::array<Routine, kCommandCount> routines_;
  UndoHistory* history_ = nullptr;
  std::function<void()> stepsChanged_;
};

// The name of the step a command makes of its changes, as Undo and Redo show it; "" for a
// command whose changes are no step (reading, writing or replacing the whole document).
std::string StepName(CommandId id);

// The enablement rule alone, as if every command had its routine.
bool EnabledByRule(CommandId id, CommandPlace place, const MenuState& menus,
                   const PopupItems& popup);

// The Delete menu itself, which stays enabled while any of its commands could act.
constexpr bool DelCTRLEnabled(const MenuState& menus) {
  return menus.DelCTRL;
}

}  // namespace sched
