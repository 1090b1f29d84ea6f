#pragma once

#include <string>
#include <vector>

#include "core/codepage.h"
#include "platform/messages.h"

namespace sched {

struct WordListEditorServices {
  std::string installDir;
  CodePage page;  // of the word list files
  Messages& messages;
};

// What the word list editor shows.
struct WordListEditorControls {
  std::vector<std::string> ListTitles;  // the combo of the lists
  int ListIndex = 0;
  std::vector<std::string> Words;
  int WordIndex = -1;    // the word selected, -1 for none
  std::string WordText;  // the word under edit
  bool Dirty = false;
  bool AddEnabled = false;
  bool ChangeEnabled = false;
  bool RemoveEnabled = false;
  bool UpEnabled = false;
  bool DownEnabled = false;
  bool SaveEnabled = false;
};

// The word list editor (MkSbjct): opens one list of the installation at a time; adds, changes,
// removes and reorders its words; saves it whole.
class WordListEditorModel {
 public:
  explicit WordListEditorModel(WordListEditorServices services);

  // The list the command line asks for: "/F:Dayview" opens the Scheduler's titles, anything
  // else the standard list.
  void Form_Load(const std::vector<std::string>& args);
  // Another list; unsaved changes are offered for saving first. False when the user stayed.
  bool ListCombo_Click(int index);
  void WordList_Click(int index);
  void WordText_Change(const std::string& text);
  // The word under edit after the selected word, or at the end; refused when too long.
  void Add_Click();
  // The selected word takes the text under edit; refused when too long.
  void Change_Click();
  void Remove_Click();
  void Up_Click();
  void Down_Click();
  // Writes the list; false, after telling the user, when it cannot be written.
  bool Save_Click();
  // True when the editor may close: nothing unsaved, or the user saved or let it go.
  bool Form_QueryUnload();

  const WordListEditorControls& Controls() const { return c_; }

 private:
  void Load(int index);
  bool Fits(const std::string& word);
  // Unsaved changes: saved, dropped or kept open as the user answers.
  bool LetGo();
  void Select(int index);
  void Enable();
  void Swap(int a, int b);

  WordListEditorServices s_;
  WordListEditorControls c_;
};

}  // namespace sched
