#include "commands/command_table.h"

namespace sched {
namespace {

using Kind = MenuEntry::Kind;
using enum CommandId;

MenuEntry Entry(std::string name, std::string caption, CommandId command,
                StandardKey key = StandardKey::None) {
  MenuEntry entry;
  entry.name = std::move(name);
  entry.caption = std::move(caption);
  entry.command = command;
  entry.key = key;
  return entry;
}

// A line that is no command: a separator or the end of a submenu.
MenuEntry Marker(Kind kind) {
  MenuEntry entry;
  entry.kind = kind;
  return entry;
}

MenuEntry Separator() {
  return Marker(Kind::Separator);
}

MenuEntry Submenu(std::string name, std::string caption) {
  MenuEntry entry;
  entry.kind = Kind::Submenu;
  entry.name = std::move(name);
  entry.caption = std::move(caption);
  return entry;
}

MenuEntry EndSubmenu() {
  return Marker(Kind::EndSubmenu);
}

MenuEntry Check(std::string name, std::string caption, CommandId command, bool checked) {
  MenuEntry entry = Entry(std::move(name), std::move(caption), command);
  entry.checkable = true;
  entry.checked = checked;
  return entry;
}

// The "Setting Holiday" submenu of the Edit menu, which the popups repeat. Its day entry reads
// otherwise than the Holiday menu's own.
void AddHolidayEntries(std::vector<MenuEntry>& entries, const std::string& submenu,
                       const std::string& week, const std::string& day) {
  entries.push_back(Submenu(submenu, "Setting &Holiday"));
  entries.push_back(Entry(week, "By &Week...", WeekHolidays));
  entries.push_back(Entry(day, "By a &Day...", DayHolidays));
  entries.push_back(EndSubmenu());
}

// The "Code Page" submenu of the Options menu: the code page of the organiser's files, one of
// two.
void AddCodePageEntries(std::vector<MenuEntry>& entries) {
  entries.push_back(Submenu("CodePageMenu", "Code &Page"));
  for (MenuEntry entry :
       {Check("CodePageWestern", "&Western (Windows-1252)", CodePageWestern, true),
        Check("CodePageJapanese", "&Japanese (Shift-JIS, 932)", CodePageJapanese, false)}) {
    entry.radio = true;
    entry.statusTip =
        "The code page of the texts in the organiser's files; applies to the next file opened "
        "or saved";
    entries.push_back(std::move(entry));
  }
  entries.push_back(EndSubmenu());
}

std::vector<MenuEntry> OptionEntries() {
  MenuEntry updateAlarm =
      Check("UpdateAlarm", "&Automatic edit of alarm time", AutoEditAlarm, true);
  updateAlarm.hidden = true;
  std::vector<MenuEntry> entries = {
      Check("BeepAlarm", "&Ring an alarm on PC", RingAlarm, true), updateAlarm,
      Check("MenuCheckMsg", "Show the &transfer message", TransferMessage, false), Separator()};
  AddCodePageEntries(entries);
  entries.push_back(Separator());
  entries.push_back(Entry("Disconnect_Setup", "&Disconnection Setup...", DisconnectionSetup));
  entries.push_back(Entry("LinkSettings", "Data Link &Settings...", LinkSettings));
  return entries;
}

std::vector<MenuEntry> EditEntries() {
  std::vector<MenuEntry> entries = {Entry("UndoSchdat", "&Undo", Undo, StandardKey::Undo),
                                    Entry("RedoSchdat", "&Redo", Redo, StandardKey::Redo),
                                    Separator(),
                                    Entry("CopySchdat", "&Copy", Copy),
                                    Entry("PasteSchdat", "&Paste", Paste),
                                    Separator(),
                                    Entry("NewSchdat", "&Add...", Add),
                                    Entry("UpdSchDat", "&Modify...", Modify),
                                    Entry("DelSchDat", "&Delete", Delete),
                                    Separator()};
  AddHolidayEntries(entries, "Hctl", "Wdsp", "Ydsp");
  entries.push_back(Separator());
  entries.push_back(Entry("FindSchdat", "&Find...", Find, StandardKey::Find));
  return entries;
}

std::vector<MenuDefinition> MakeMenuBar() {
  return {
      {"FileMenu",
       "&File",
       {Entry("New_Menu", "&New", New, StandardKey::New),
        Entry("OpenF_Menu", "&Open...", OpenOnPc, StandardKey::Open),
        Entry("SaveOvw_Menu", "&Save", SaveToPc, StandardKey::Save),
        Entry("SaveName_Menu", "Save &As...", SaveAsOnPc), Separator(),
        Entry("q390OpenF_Menu", "Open from &Tarvex...", OpenOnTarvex),
        Entry("q390SaveOvw_Menu", "Save to Ta&rvex", SaveToTarvex),
        Entry("q390SaveName_Menu", "Save as on Tar&vex...", SaveAsOnTarvex), Separator(),
        Entry("InportCSV", "Import CS&V...", ImportCsv),
        Entry("ExportCSV", "&Export CSV...", ExportCsv),
        Entry("CsvSetting", "CSV &Settings...", CsvSettingsDialog), Separator(),
        Entry("MenuPrint", "&Print...", Print, StandardKey::Print),
        Entry("MenuPrintPreview", "Print Pre&view...", PrintPreview), Separator(),
        Entry("SchEnd_Menu", "E&xit", Exit)}},
      {"EditCTL", "&Edit", EditEntries()},
      {"DelCTRL",
       "&Delete",
       {Entry("DelMonth", "Delete this &Month", DeleteMonth),
        Entry("DelYear", "Delete this &Year", DeleteYear),
        Entry("DelBefore", "Delete &Older than selected date", DeleteOlder),
        Entry("DelAfter", "Delete &Newer than selected date", DeleteNewer)}},
      {"HdayCTL",
       "&Holiday",
       {Entry("Set_WeekH", "By &Week...", WeekHolidays),
        Entry("Set_YearH", "Selected &Day...", DayHolidays), Separator(),
        Entry("SelectHolidayInfo", "&Select Country...", SelectCountry)}},
      {"PcLink",
       "Data &Link",
       {Entry("PcImport", "&Import...", LinkImport), Entry("PcExport", "&Export...", LinkExport),
        Check("PcExpOption", "Im&port exported data", LinkImportExported, true)}},
      {"MenuDefine", "&Options", OptionEntries()},
      {"HelpMenu",
       "&Help",
       {Entry("HelpTopic", "&Contents", HelpContents, StandardKey::HelpContents), Separator(),
        Entry("GlobalVersion", "&About Scheduler...", About)}},
  };
}

// A popup of the views; `prefix` names its entries ("Pop2Copy", ...). The popups of a list of
// items have the item entries; those of a day without a list do not.
MenuDefinition Popup(const std::string& name, const std::string& prefix, bool withItems) {
  MenuDefinition popup{name, "", {}};
  auto& entries = popup.entries;
  if (withItems) entries.push_back(Entry(prefix + "Copy", "&Copy", Copy));
  entries.push_back(Entry(prefix + "Paste", "&Paste", Paste));
  entries.push_back(Separator());
  entries.push_back(Entry(prefix + "New", "&Add...", Add));
  if (withItems) {
    entries.push_back(Entry(prefix + "Update", "&Modify...", Modify));
    entries.push_back(Entry(prefix + "Del", "&Delete", Delete));
  }
  AddHolidayEntries(entries, prefix == "Pop4" ? "Pop4HCtrl" : prefix + "Hctl", prefix + "WeekH",
                    prefix + "YearH");
  entries.push_back(Entry(prefix + "Today", "&Today", Today));
  return popup;
}

}  // namespace

const std::vector<MenuDefinition>& MenuBarTable() {
  static const std::vector<MenuDefinition> table = MakeMenuBar();
  return table;
}

const std::vector<MenuDefinition>& PopupTable() {
  static const std::vector<MenuDefinition> table = {
      Popup("PopMenuCTRL1", "Pop1", false),  // nothing pops it up
      Popup("PopMenuCTRL2", "Pop2", true),
      Popup("PopMenuCTRL3", "Pop3", false),
      Popup("Pop4CTRL", "Pop4", true),
  };
  return table;
}

const std::vector<ToolButtonDefinition>& ToolbarTable() {
  static const std::vector<ToolButtonDefinition> table = {
      {"NewF", "New schedule", New},
      {"OpenF", "Open a schedule on the PC", OpenOnPc},
      {"Save", "Save to the PC", SaveToPc},
      {},
      {"Q390Open", "Open a schedule on the Tarvex", OpenOnTarvex},
      {"Q390Save", "Save to the Tarvex", SaveToTarvex},
      {},
      {"SclAdd", "Add a schedule", Add},
      {"SclDel", "Delete the selected schedule", Delete},
      {"Undo", "Undo the last change", Undo},
      {"Redo", "Redo the change undone", Redo},
      {"Find", "Find in the whole schedule", Find},
      {},
      {"Subject", "Edit the word lists", WordLists},
      {"Print", "Print", Print},
  };
  return table;
}

}  // namespace sched
