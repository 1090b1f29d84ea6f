#include "commands/command_table.h"

#include <gtest/gtest.h>

#include <set>

#include "commands/command_set.h"

namespace sched {
namespace {

std::set<CommandId> OfferedCommands() {
  std::set<CommandId> offered;
  for (const auto* table : {&MenuBarTable(), &PopupTable()}) {
    for (const MenuDefinition& menu : *table) {
      for (const MenuEntry& e : menu.entries) {
        if (e.kind == MenuEntry::Kind::Command) offered.insert(e.command);
      }
    }
  }
  for (const ToolButtonDefinition& b : ToolbarTable()) {
    if (!b.key.empty()) offered.insert(b.command);
  }
  return offered;
}

TEST(CommandTable, EveryCommandIsOfferedAndEveryNameIsUnique) {
  EXPECT_EQ(OfferedCommands().size(), static_cast<std::size_t>(kCommandCount));
  std::set<std::string> names;
  for (const auto* table : {&MenuBarTable(), &PopupTable()}) {
    for (const MenuDefinition& menu : *table) {
      EXPECT_TRUE(names.insert(menu.name).second) << menu.name;
      int depth = 0;
      for (const MenuEntry& e : menu.entries) {
        if (e.kind == MenuEntry::Kind::Command || e.kind == MenuEntry::Kind::Submenu) {
          EXPECT_TRUE(names.insert(e.name).second) << e.name;
          EXPECT_FALSE(e.caption.empty()) << e.name;
        }
        depth += e.kind == MenuEntry::Kind::Submenu      ? 1
                 : e.kind == MenuEntry::Kind::EndSubmenu ? -1
                                                         : 0;
        EXPECT_GE(depth, 0) << menu.name;
      }
      EXPECT_EQ(depth, 0) << menu.name;
    }
  }
}

// The caption of a named entry in any menu or popup; empty when there is none.
std::string CaptionOf(const std::string& name) {
  for (const auto* table : {&MenuBarTable(), &PopupTable()}) {
    for (const MenuDefinition& menu : *table) {
      for (const MenuEntry& e : menu.entries) {
        if (e.name == name) return e.caption;
      }
    }
  }
  return {};
}

TEST(CommandTable, TheHolidayEntriesReadAsTheirMenuHasThem) {
  // The Holiday menu names the day by the selection; the "Setting Holiday" submenus do not.
  EXPECT_EQ(CaptionOf("Set_WeekH"), "By &Week...");
  EXPECT_EQ(CaptionOf("Set_YearH"), "Selected &Day...");
  for (const char* prefix : {"", "Pop1", "Pop2", "Pop3", "Pop4"}) {
    const std::string p = prefix;
    const bool edit = p.empty();
    EXPECT_EQ(CaptionOf(edit          ? "Hctl"
                        : p == "Pop4" ? "Pop4HCtrl"
                                      : p + "Hctl"),
              "Setting &Holiday")
        << prefix;
    EXPECT_EQ(CaptionOf(edit ? "Wdsp" : p + "WeekH"), "By &Week...") << prefix;
    EXPECT_EQ(CaptionOf(edit ? "Ydsp" : p + "YearH"), "By a &Day...") << prefix;
  }
}

struct RuleCase {
  CommandId id;
  CommandPlace place;
  bool enabledWhenStateOn;  // every flag of the menu state and of the popup items on
  bool enabledWhenStateOff;
};

TEST(CommandSet, EnablementFollowsTheViewsStateByPlace) {
  MenuState on;
  on.DelCTRL = on.DelMonth = on.DelYear = on.DelBefore = on.DelAfter = true;
  on.CopySchdat = on.PasteSchdat = on.UpdSchDat = on.DelSchDat = true;
  on.YearHolidays = on.ToolbarDelete = true;
  MenuState off;
  off.YearHolidays = false;
  const PopupItems itemsOn{true, true, true, true, true};
  const PopupItems itemsOff{};
  using enum CommandId;
  const RuleCase cases[] = {
      {Copy, CommandPlace::Menu, true, false},
      {Copy, CommandPlace::Popup, true, false},
      {Paste, CommandPlace::Menu, true, false},
      {Modify, CommandPlace::Popup, true, false},
      {Delete, CommandPlace::Menu, true, false},
      {Delete, CommandPlace::Toolbar, true, false},
      {Delete, CommandPlace::Popup, true, false},
      {DeleteMonth, CommandPlace::Menu, true, false},
      {DeleteYear, CommandPlace::Menu, true, false},
      {DeleteOlder, CommandPlace::Menu, true, false},
      {DeleteNewer, CommandPlace::Menu, true, false},
      {DayHolidays, CommandPlace::Menu, true, false},
      {DayHolidays, CommandPlace::Popup, true, false},
      {WeekHolidays, CommandPlace::Popup, true, true},
      {New, CommandPlace::Toolbar, true, true},
      {Today, CommandPlace::Popup, true, true},
  };
  for (const RuleCase& c : cases) {
    const int id = static_cast<int>(c.id);
    EXPECT_EQ(EnabledByRule(c.id, c.place, on, itemsOn), c.enabledWhenStateOn) << id;
    EXPECT_EQ(EnabledByRule(c.id, c.place, off, itemsOff), c.enabledWhenStateOff) << id;
  }
  // A popup follows the items it was opened for, not the Edit menu's state; the toolbar's delete
  // its own flag.
  EXPECT_FALSE(EnabledByRule(Copy, CommandPlace::Popup, on, itemsOff));
  MenuState onlyToolbar = off;
  onlyToolbar.ToolbarDelete = true;
  EXPECT_TRUE(EnabledByRule(Delete, CommandPlace::Toolbar, onlyToolbar, itemsOff));
  EXPECT_FALSE(EnabledByRule(Delete, CommandPlace::Menu, onlyToolbar, itemsOff));
}

TEST(CommandSet, ACommandWithoutItsRoutineStaysOffAndDoesNothing) {
  CommandSet set;
  MenuState state;
  EXPECT_FALSE(set.Has(CommandId::Print));
  EXPECT_FALSE(set.Enabled(CommandId::Print, CommandPlace::Menu, state));
  set.Run(CommandId::Print);
  int runs = 0;
  set.Bind(CommandId::Print, [&runs] { ++runs; });
  EXPECT_TRUE(set.Enabled(CommandId::Print, CommandPlace::Toolbar, state));
  set.Run(CommandId::Print);
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace sched
