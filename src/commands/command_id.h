#pragma once

namespace sched {

// Every command the window offers in its menus, popups and toolbar.
enum class CommandId {
  // File
  New,
  OpenOnPc,
  SaveToPc,
  SaveAsOnPc,
  OpenOnTarvex,
  SaveToTarvex,
  SaveAsOnTarvex,
  ImportCsv,
  ExportCsv,
  CsvSettingsDialog,
  Print,
  PrintPreview,
  Exit,
  // Edit and the popups
  Undo,
  Redo,
  Copy,
  Paste,
  Add,
  Modify,
  Delete,
  WeekHolidays,
  DayHolidays,
  Today,
  Find,
  // Delete
  DeleteMonth,
  DeleteYear,
  DeleteOlder,
  DeleteNewer,
  // Holiday
  SelectCountry,
  // Data link
  LinkImport,
  LinkExport,
  LinkImportExported,
  // Options
  RingAlarm,
  AutoEditAlarm,
  TransferMessage,
  CodePageWestern,
  CodePageJapanese,
  DisconnectionSetup,
  LinkSettings,
  // Help
  HelpContents,
  About,
  // Toolbar only
  WordLists,
};

inline constexpr int kCommandCount = static_cast<int>(CommandId::WordLists) + 1;

// Where a command is offered: its enablement may differ by place.
enum class CommandPlace { Menu, Popup, Toolbar };

}  // namespace sched
