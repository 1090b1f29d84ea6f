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

void CommandSet::Run(CommandId id) {
  if (!Has(id)) return;
  routines_[Index(id)]();
  if (history_ == nullptr) return;
  const std::string name = StepName(id);
  if (name.empty()) {
    history_->Absorb();
  } else {
    history_->Seal(name);
  }
  if (stepsChanged_) stepsChanged_();
}

std::string StepName(CommandId id) {
  switch (id) {
    case CommandId::Paste: return "Paste";
    case CommandId::Add: return "Add";
    case CommandId::Modify: return "Modify";
    case CommandId::Delete: return "Delete";
    case CommandId::WeekHolidays: return "Weekly Holidays";
    case CommandId::DayHolidays: return "Holiday Mark";
    case CommandId::DeleteMonth: return "Delete this Month";
    case CommandId::DeleteYear: return "Delete this Year";
    case CommandId::DeleteOlder: return "Delete Older";
    case CommandId::DeleteNewer: return "Delete Newer";
    case CommandId::LinkImport: return "Data Link Import";
    default: return "";
  }
}

bool CommandSet::Enabled(CommandId id, CommandPlace place, const MenuState& menus,
                         const PopupItems& popup) const {
  if (id == CommandId::Undo) return Has(id) && history_ != nullptr && history_->CanUndo();
  if (id == CommandId::Redo) return Has(id) && history_ != nullptr && history_->CanRedo();
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
