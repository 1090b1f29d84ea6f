#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "appointments/repeat_limits.h"
#include "appointments/repeat_rule.h"
#include "core/calendar.h"
#include "platform/date_formatter.h"
#include "platform/messages.h"

namespace sched {

// A number box of the repeat dialog with its spin buttons (ImNumber and its UpDown): the value
// and its range. The value is the last valid one: a typed value outside the range never
// becomes it.
struct RepeatNumber {
  int value = 0;
  int min = 0;
  int max = 0;
  friend bool operator==(const RepeatNumber&, const RepeatNumber&) = default;
};

// The count (ImNumber1) and the interval (ImNumber2).
enum class RepeatNumberField { ImNumber1, ImNumber2 };

// What the repeat dialog shows.
struct RepeatControls {
  int Option1 = 0;              // None, Day, Week, Month, Year
  bool Frame1Visible = false;   // the controls of a rule, hidden for None
  int Option2 = 0;              // by day, by day of week
  bool Option2Visible = false;  // with both combos: for months and years only
  int Combo1 = 0;               // the weekday: list index and item data 0 (Sunday) to 6
  int Combo2 = 0;               // the ordinal's list index; its item data is 1, 2, 3, 4 or 7
  bool CombosEnabled = false;   // by day of week only
  RepeatNumber ImNumber1{kMinRepeatCount, kMinRepeatCount, kMinRepeatCount};  // the count
  RepeatNumber ImNumber2{kMinRepeatInterval, kMinRepeatInterval, kMinRepeatInterval};
  std::string Label4;                 // the interval's unit
  std::string Label5;                 // the count's caption
  std::array<std::string, 2> Label6;  // the first and the last occurrence
  std::string Label2;                 // the sentence of the rule
};

// The dialog's own dates. The last date any occurrence may take (ImDateWK) is kEndLimit.
struct RepeatDates {
  CivilDate StartDate;               // the first occurrence
  CivilDate DateReserve;             // the last occurrence of the rule shown
  std::array<CivilDate, 6> ImDate2;  // the first occurrence by kind (RepeatOption - 1)
  std::array<CivilDate, 6> ImDate1;  // the last occurrence by kind (RepeatOption - 1)
};

// The repeat dialog (Repeat): the rule of a one-day appointment, kept inside what fits before
// kEndLimit. It fills the edit session's working values and writes nothing to the store.
class RepeatModel {
 public:
  RepeatModel(RepeatWork& work, Messages& messages, const DateFormatter& dates)
      : work_(work), messages_(messages), dates_(dates) {}

  // Opens on the edit dialog's start date: loads the form, reads an existing rule
  // (RepeatDialogFromRule when RepeatCode is not 0), and writes both date captions and the
  // sentence.
  void Open(const CivilDate& editStart);

  // None removes the rule; Day to Year choose a kind with its defaults, or fall back to None
  // when not even two occurrences fit before kEndLimit.
  void Option1_Click(int index);
  // By day or by day of week, for months and years.
  void Option2_Click(int index);
  // A weekday or an ordinal chosen: the start moves to that weekday of its month.
  void Combo1_Click(int listIndex);
  void Combo2_Click(int listIndex);
  // A value typed into a number box and entered. One outside the range gives "Invalid
  // input.", asks for the focus on the box with its text selected, and puts the box at its
  // maximum (a value above it) or minimum.
  void ImNumber_Change(RepeatNumberField field, int value);
  // Up and Down step the number by 1; true when the key was used.
  bool ImNumber_KeyDown(RepeatNumberField field, int key);
  // The spin buttons: `steps` up, or down when negative. A step past the range is dropped.
  void UpDown_Click(RepeatNumberField field, int steps);
  // OK: writes the rule to the working values; true when the dialog closes.
  bool OKButton_Click();
  void CancelButton_Click();

  // True once OK closed the dialog; the edit dialog then takes StartDate.
  bool Confirmed() const { return confirmed_; }
  const CivilDate& StartDate() const { return d_.StartDate; }
  // The dialog closes without OK: the count and the code go back to what they were.
  void Form_Unload();

  const RepeatControls& Controls() const { return c_; }
  const RepeatDates& Dates() const { return d_; }
  // Whether Option1(index) can be chosen: its kind still fits before kEndLimit.
  bool Option1Enabled(int index) const;
  // The number box that must take the focus now, its text selected; once.
  std::optional<RepeatNumberField> TakeFocus();
  // The kind shown, 0 to 6 as RepeatOption counts them.
  int CurrentOption() const { return currentOption_; }
  bool Loading() const { return loading_; }
  std::int16_t SavedCount() const { return savedCount_; }
  std::int16_t SavedCode() const { return savedCode_; }

 private:
  void RepeatDialogFromRule(int code);
  void RepeatOptionDefaults(int k);
  void LimitRepeatNumbers(int kind);
  void ImNumber_SetMax(int kind);
  void ApplyRepeatNumber();
  void ShowKind(int option);
  void ShowNone();
  WeekdayRule WeekdayRuleOfStart() const;
  void SetCombos(const WeekdayRule& rule);
  void Combo_Click();
  void ShowLastOccurrence(int kind, const CivilDate& last);
  void UpdateSentence();
  RepeatPlan Plan(int option) const;
  RepeatNumber& Number(RepeatNumberField field);
  bool CheckNumber(RepeatNumberField field, int value);

  RepeatWork& work_;
  Messages& messages_;
  const DateFormatter& dates_;
  RepeatControls c_;
  RepeatDates d_;
  int currentOption_ = kOptionNone;
  bool loading_ = false;
  bool confirmed_ = false;
  std::int16_t savedCount_ = 0;
  std::int16_t savedCode_ = kCodeNone;
  std::optional<RepeatNumberField> focus_;
};

}  // namespace sched
