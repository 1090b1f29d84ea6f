#include "commands/command_set.h"

namespace sched {
namespace {

std::size_t Index(CommandId id) {
  return static_cast<std::size_t>(id);
}

}  // namespace

void CommandSet::Bind(CommandId id, Routine routine) {
  routines_[Index(id)] = std::move(routine);
}

bool CommandSet::Has(CommandId id) const {
  return static_cast<bool>(routines_[Index(id)]);
}

void CommandSet::Run(CommandId id) const {
  if (Has(id)) routines_[Index(id)]();
}

bool CommandSet::Enabled(CommandId id, CommandPlace place, const MenuState& menus,
                         const PopupItems& popup) const {
  return Has(id) && EnabledByRule(id, place, menus, popup);
}

bool EnabledByRule(CommandId id, CommandPlace place, const MenuState& m, const PopupItems& popup) {
  const bool onPopup = place == CommandPlace::Popup;
  switch (id) {
    case CommandId::Copy: return onPopup ? popup.Copy : m.CopySchdat;
    case CommandId::Paste: return onPopup ? popup.Paste : m.PasteSchdat;
    case CommandId::Modify: return onPopup ? popup.Update : m.UpdSchDat;
    case CommandId::Delete:
      if (onPopup) return popup.Del;
      return place == CommandPlace::Toolbar ? m.ToolbarDelete : m.DelSchDat;
    case CommandId::DeleteMonth: return m.DelMonth;
    case CommandId::DeleteYear: return m.DelYear;
    case CommandId::DeleteOlder: return m.DelBefore;
    case CommandId::DeleteNewer: return m.DelAfter;
    case CommandId::DayHolidays: return m.YearHolidays;
    default: return true;
  }
}

}  // namespace sched
