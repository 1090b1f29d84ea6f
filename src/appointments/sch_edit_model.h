#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "appointments/item_limits.h"
#include "appointments/occurrences.h"
#include "appointments/repeat_model.h"
#include "appointments/repeat_rule.h"
#include "core/codepage.h"
#include "platform/clock.h"
#include "platform/date_formatter.h"
#include "platform/messages.h"
#include "store/schedule_store.h"

namespace sched {

// One item of the time combos: its text and the minutes after 0:00 behind it.
struct TimeComboItem {
  std::string text;
  int minutes = 0;
};
// A time of the time combos, "h:mm AM" or "h:mm PM", for minutes after 0:00.
std::string TimeComboText(int minutes);
// "12:00 AM" to "11:30 PM" in half hours, and last "11:59 PM": 49 items.
const std::vector<TimeComboItem>& TimeComboItems();
// "h:mm" (24 hours) or "h:mm AM"/"h:mm PM" to minutes after 0:00; nothing for other text.
std::optional<int> ParseTimeText(const std::string& text);

// What the edit dialog asks of the window around it.
class SchEditHost {
 public:
  virtual ~SchEditHost() = default;
  // Shows the opened repeat dialog modally and returns when it has closed.
  virtual void ShowRepeatDialog(RepeatModel& repeat) = 0;
};

// The fields that take their text from a word list.
enum class WordField { Title, Place };

// The sound preview and the word lists, which the edit dialog reaches through their own
// subsystem.
class SchEditMedia {
 public:
  virtual ~SchEditMedia() = default;
  // Whether the machine can play a sound at all.
  virtual bool HasSoundOutput() = 0;
  // Plays the alarm sound of that name from the sound folder.
  virtual void PreviewAlarmSound(const std::string& name) = 0;
  // The word list dialog on the field's list over the field's `text`: the text built from it
  // after OK, nothing after Cancel.
  virtual std::optional<std::string> SelectWords(WordField field, const std::string& text,
                                                 CodePage page) = 0;
};

struct SchEditServices {
  ScheduleStore& store;
  Messages& messages;
  const Clock& clock;
  const DateFormatter& dates;
  SchEditHost& host;
  // The names of the sound folder's melodies, upper case and without ".snd", each once.
  std::vector<std::string> sounds;
  // Without it (a program with no windows) the preview and word list buttons stay disabled.
  SchEditMedia* media = nullptr;
};

// The controls of the edit dialog that can take the focus.
enum class EditFocus {
  Text1,
  Text3,
  Text2,
  ImDate1Start,
  ImDate1End,
  Combo1Start,
  Combo1End,
  ImNumber1,
  Sound
};

// What the edit dialog shows: every control's value and whether it is enabled.
struct SchEditControls {
  std::string Caption;
  std::string Text1;  // title
  std::string Text3;  // place
  std::string Text2;  // memo
  int Text1MaxLength = kTitleLimit;
  int Text3MaxLength = kTitleLimit;
  int Text2MaxLength = kMemoLimit;
  // The two dates; empty while a box holds no whole date.
  std::array<std::optional<CivilDate>, 2> ImDate1;
  bool EndDateEnabled = true;  // ImDate1(1) and its drop-down calendar
  // The exact start and end times (minutes after 0:00); empty for an all-day item.
  std::array<std::optional<int>, 2> DTPicker2;
  // The item of each time combo, -1 for none.
  std::array<int, 2> Combo1{-1, -1};
  bool TimesEnabled = true;
  bool Check3 = false;  // all day
  bool Check1 = false;  // alarm
  bool Check1Enabled = true;
  int ImNumber1 = 0;  // minutes before
  bool ImNumber1Enabled = false;
  std::vector<std::string> SoundList;
  std::string SoundName;  // the sound chosen, "" for none
  bool SoundEnabled = false;
  bool PreviewEnabled = false;     // the sound preview comes with the sound player
  bool SelSubjectEnabled = false;  // the word list buttons of the title and the place
  bool Check2 = false;             // private
  bool Command1Enabled = true;     // the repeat button
};

// The appointment edit dialog (SchEdit): a new item or a change of an item or of its whole
// series. OK removes the old records and writes the new ones; the caller then marks the
// document changed and refreshes the views.
class SchEditModel {
 public:
  explicit SchEditModel(SchEditServices services);

  // Opening for a new item on the shown date.
  void OpenNew();
  // Opening on the item of a SchDatList row; a series opens on its first occurrence.
  void OpenModify(int row);

  void Text1_Change(const std::string& text);
  void Text3_Change(const std::string& text);
  void Text2_Change(const std::string& text);
  void ImDate1_Change(int index, const std::optional<CivilDate>& date);
  void Combo1_Click(int index, int listIndex);
  // A time typed into a time combo; text that is no time changes nothing.
  void Combo1_Text(int index, const std::string& text);
  void Check3_Click(bool on);
  void Check1_Click(bool on);
  void Check2_Click(bool on);
  // A typed value, held within 0 to kMaxLead.
  void ImNumber1_Change(int value);
  // Up and Down change the minutes by a step within 0 to kMaxLead; true when the key was used.
  bool ImNumber1_KeyDown(int key);
  void Sound_Change(const std::string& name);
  // False when the name is too long: the focus goes back to the sound list.
  bool Sound_LostFocus();
  // The Listen button: plays the sound chosen.
  void cbtSNDprev_Click();
  // The word list buttons: 0 fills the title from its list, 1 the place from its own.
  void SelSubject_Click(int index);
  // The repeat button.
  void Command1_Click();
  // OK; true when the dialog closes.
  bool SchEditOK_Click();
  // Cancel; true when the dialog closes.
  bool SchEditCAN_Click();

  const SchEditControls& Controls() const { return c_; }
  // The control that must take the focus now, once.
  std::optional<EditFocus> TakeFocus();
  // True after OK wrote records; the document then changed.
  bool Written() const { return written_; }
  // The SchDatList row of the first record written, to select on the day tab; -1 for none.
  int NewRow() const { return newRow_; }
  // The exact time behind a time combo as its text shows it, "" when it has none.
  std::string TimeText(int index) const;

  // Fills the sound list from the sound folder and chooses `name`; an empty name chooses
  // "SCHALARM" when the folder has it.
  void SoundCombo_Disp(const std::string& name);
  // False, after telling the user, when `length` is over `max`.
  bool CheckComboLen(int length, int max);

  std::int16_t ChangedFlag = 0;
  std::int16_t IsNewItem = -1;
  RepeatWork Work;
  SchRecord Record;
  SchRecord SavedRecord;

 private:
  void StartSession();
  void FinishOpening();
  void SetLengthLimits();
  void EnableAlarmControls();
  // The times a new item starts with: the next half hour from now, for DefaultSpan.
  void SetDefaultTimes();
  void SetTimeCombos(int start, int end);
  // The times of a record; -1 is an all-day item.
  void ShowTimes(int start, int end);
  void SetAllDay(bool on);
  void SetTime(int index, int minutes);
  // The repeat button and the kinds that fit, after a change of the dates.
  void ShowDateButtons();
  // The shown date, which the views and the other commands read.
  void Warn(const std::string& text);
  // The checks of OK in their order; false after the first that fails.
  bool CheckFields();
  AppointmentInput Input() const;

  SchEditServices s_;
  SchEditControls c_;
  CivilDate shownDate_;  // the shown date at opening, for Cancel
  int spanMinutes_ = 30;
  bool spanSet_ = false;
  std::optional<EditFocus> focus_;
  bool written_ = false;
  int newRow_ = -1;
  bool soundOutput_ = false;
};

}  // namespace sched
