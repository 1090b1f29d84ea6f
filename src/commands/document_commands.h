#pragma once

#include <string>

#include "alarms/notice_gate.h"
#include "commands/command_set.h"
#include "commands/document_session.h"
#include "commands/document_view.h"
#include "interchange/csv_exchange.h"
#include "platform/device_files.h"
#include "platform/file_dialogs.h"
#include "platform/messages.h"
#include "shell/app_state.h"

namespace sched {

struct DocumentServices {
  DocumentSession& session;
  DocumentView& window;
  NoticeGate& notices;  // held while a dialog is open
  Messages& messages;
  FileDialogs& dialogs;
  DeviceFiles& device;
  AppState& state;
  std::string cacheDir;  // the cached copy of the device's PIM folder
  CsvExchange& csv;
};

// The file commands of the main window: new, open and save on the PC and on the device, the
// dropped file, and the question for unsaved changes.
class DocumentCommands {
 public:
  explicit DocumentCommands(DocumentServices services) : s_(services) {}

  void New();
  void OpenOnPc();
  void SaveToPc();
  void SaveAsOnPc();
  void OpenOnTarvex();
  // True when the schedule reached the device; a failed or cancelled save keeps `Dirty`.
  bool SaveToTarvex();
  bool SaveAsOnTarvex();
  // A new document from a CSV file the user chooses.
  void InportCSV_Click();
  // The document written to a CSV file the user chooses; the document keeps its name.
  void ExportCSV_Click();
  // Opens the file given at start-up, from the command line or as the last file; a file that
  // fails its check is dropped and the program stays untitled.
  void OpenAtStart(const std::string& path, int onPc);
  // Opens a dropped or named file; 1 when it was opened, 0 else.
  int OpenFileByName(const std::string& path);

  // True to go on, false to stay: unsaved changes are saved, dropped or kept.
  bool AskSaveChanges();
  // True when the file may be opened; else says why.
  bool CheckInputFnameSCL(const std::string& path);

 private:
  ScheduleDocument& Doc() { return s_.session.Doc(); }
  bool Ask(const std::string& text, MsgButtons buttons, MsgIcon icon, MsgAnswer yes);
  // The open or save dialog of the PC or of the device, with alarm notices held back.
  std::optional<std::string> PcDialog(bool save, const std::string& filter,
                                      const std::string& proposal);
  std::optional<std::string> DeviceDialog(bool save, const std::string& proposal);
  bool SaveTo(const std::string& path);
  // The device's melodies, read again after the device's files were in use.
  void RefreshSoundList();
  std::string DeviceFolder();
  // Puts the file in the place of the open document; false when it cannot be taken.
  bool LoadDocument(const std::string& path, int onPc);

  DocumentServices s_;
};

// The file commands as the routines of their command ids.
void BindDocumentCommands(CommandSet& set, DocumentCommands& commands);

// True when the file begins with the schedule file's magic.
bool CheckFileMagic(const std::string& path);

}  // namespace sched
