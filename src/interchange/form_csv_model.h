#pragma once

#include <string>
#include <vector>

#include "alarms/notice_gate.h"
#include "core/codepage.h"
#include "platform/file_dialogs.h"
#include "platform/messages.h"
#include "platform/settings_store.h"
#include "platform/timer.h"

namespace sched {

// A row of FieldList or CsvList: the field's name and its index, -1 for "Not Used".
struct CsvListEntry {
  std::string text;
  int data = -1;
};

// What the mapping dialog shows. An index is -1 while no row is selected.
struct FormCsvControls {
  std::vector<CsvListEntry> FieldList;
  int FieldListIndex = -1;
  std::vector<CsvListEntry> CsvList;
  int CsvListIndex = -1;
  int CsvListTop = 0;
  std::vector<std::string> FileField;  // the reference: the items of a file's first row
  int FileFieldIndex = -1;
  int FileFieldTop = 0;
  bool ChkL1isField = true;
};

struct FormCsvServices {
  Messages& messages;
  FileDialogs& dialogs;
  NoticeGate& notices;  // held while the file dialog is open
  SettingsStore& settings;
  Timer& Timer1;       // the auto-repeat of the move buttons
  CodePage page;       // of the reference file's texts
  std::string folder;  // where the reference file's dialog opens
};

// The mapping dialog (FormCSV): the columns of a CSV file, each a field or "Not Used", in the
// file's order, and whether the file's first row is a header.
class FormCsvModel {
 public:
  explicit FormCsvModel(FormCsvServices services);

  // Fills the lists from the stored mapping.
  void Form_Load();
  const FormCsvControls& Controls() const { return c_; }

  void FieldList_Click(int index);
  // A row chosen or a list scrolled: the other list follows.
  void CsvList_Click(int index);
  void FileField_Click(int index);
  void CsvList_Scroll(int top);
  void FileField_Scroll(int top);
  void ChkL1isField_Click(bool checked);

  void cbtAdd_Click();
  void cbtMod_Click();
  void cbtDelete_Click();
  void cbtAllAdd_Click();
  void cbtAllDel_Click();
  // A move button pressed moves the row at once, then again on each tick of Timer1 until it is
  // released: the first tick after 500 ms, the next ones every 50 ms.
  void CbtUp_MouseDown();
  void cbtDown_MouseDown();
  void MoveButton_MouseUp();
  void CbtRead_Click();
  void CbtReadClr_Click();

  // OK: true when the mapping was stored and the dialog closes.
  bool cbtEnd_Click();
  // Cancel or the window's close: true when the dialog closes; unsaved changes are asked about.
  bool QueryUnload();

 private:
  enum Direction { kNone = 0, kUp = 1, kDown = 2 };
  void Timer1_Timer();
  void MoveSelected(Direction direction);
  void StartMoving(Direction direction);
  void SelectCsvRow(int index);
  void SetColumns(const std::vector<std::string>& names);
  void PadFileField();
  void DropTrailingEmptyReferences();
  bool Ask(const char* text, MsgButtons buttons, MsgIcon icon, MsgAnswer yes);

  FormCsvServices s_;
  FormCsvControls c_;
  Direction moving_ = kNone;
  bool changed_ = false;
};

}  // namespace sched
