#pragma once

#include <string>
#include <vector>

#include "core/codepage.h"
#include "platform/messages.h"
#include "platform/processes.h"

namespace sched {

struct SelectSubjectServices {
  std::string installDir;
  CodePage page;  // of the word list files
  Processes& processes;
  Messages& messages;
};

// What the word list dialog shows.
struct SelectSubjectControls {
  std::string FileName;  // the list's title
  std::vector<std::string> TemplateList;
  int ListIndex = -1;  // the word selected, -1 for none
  int TopIndex = 0;    // the word shown first
  bool PasteBtnEnabled = false;
  // The text under edit; the caret and selection count characters.
  std::string EditString;
  int SelStart = 0;
  int SelLength = 0;
};

// The word list dialog (SelectSubject): the caller writes the list's number and the field's
// text, shows the dialog, and after OK ("1" in RetText) takes EditString back.
class SelectSubjectModel {
 public:
  explicit SelectSubjectModel(SelectSubjectServices services) : s_(std::move(services)) {}

  // Written by the caller before the dialog shows.
  std::string ParmText;
  // "1" after OK, "0" after Cancel.
  std::string RetText = "0";

  // The caller's field text, the caret at its end.
  void SetEditString(const std::string& text);
  // Shows the list named by ParmText.
  void Form_Activate();
  void TemplateList_Click(int index);
  // A change of the text, its caret or its selection.
  void EditString_Change(const std::string& text, int selStart, int selLength);
  // The selected word into the text in place of its selection, after one blank when the
  // character before the caret is none; the dialog stays open for more words.
  void PasteBtn_Click();
  void TemplateList_DblClick() { PasteBtn_Click(); }
  // Enter pastes as the button does; true when the key was used.
  bool TemplateList_KeyPress(int key);
  void OkBtn_Click() { RetText = "1"; }
  void Cancel_Click() { RetText = "0"; }
  // Starts the word list editor and does not wait for it.
  void KickCtrator_Click();

  const SelectSubjectControls& Controls() const { return c_; }

 private:
  SelectSubjectServices s_;
  SelectSubjectControls c_;
};

// Starts the word list editor of the installation as a program of its own, with the Scheduler's
// key on its command line; tells the user when it cannot be started.
void StartWordListEditor(Processes& processes, Messages& messages, const std::string& installDir);

}  // namespace sched
