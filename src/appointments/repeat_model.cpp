#include "appointments/repeat_model.h"

#include <algorithm>
#include <utility>

#include "appointments/repeat_caption.h"
#include "appointments/texts.h"
#include "appointments/week_ordinal.h"
#include "core/app_texts.h"
#include "platform/key_codes.h"

namespace sched {

namespace t = appointment_texts;

namespace {

// The Option1 button of a kind: the kinds by weekday share Month and Year with those by date.
int ButtonOfOption(int option) {
  return ByWeekday(option) ? option - 2 : option;
}

std::optional<int> OptionOfCode(int code) {
  switch (code) {
    case kCodeDaily: return kOptionDaily;
    case kCodeWeekly: return kOptionWeekly;
    case kCodeMonthly: return kOptionMonthly;
    case kCodeYearly: return kOptionYearly;
    case kCodeMonthlyWeekday: return kOptionMonthlyWeekday;
    case kCodeYearlyWeekday: return kOptionYearlyWeekday;
    default: return std::nullopt;
  }
}

const char* NoMoreSetting(RepeatUnit unit) {
  switch (unit) {
    case RepeatUnit::Day: return t::kNoMoreDay;
    case RepeatUnit::Month: return t::kNoMoreMonth;
    default: return t::kNoMoreWeekYear;
  }
}

int OrdinalIndex(int ordinal) {
  const auto& data = t::kOrdinalData;
  return static_cast<int>(std::find(data.begin(), data.end(), ordinal) - data.begin());
}

std::int32_t CodeOfDate(const CivilDate& date) {
  return DateCode(date.year, date.month, date.day);
}

}  // namespace

void RepeatModel::Open(const CivilDate& editStart) {
  loading_ = true;
  confirmed_ = false;
  focus_.reset();
  c_ = RepeatControls{};
  savedCount_ = work_.RepeatCount;
  savedCode_ = work_.RepeatCode;
  d_.StartDate = d_.DateReserve = editStart;
  d_.ImDate2.fill(editStart);
  d_.ImDate1.fill(editStart);
  work_.SetAvailability(editStart);
  ShowNone();
  if (work_.RepeatCode != kCodeNone) RepeatDialogFromRule(work_.RepeatCode);
  c_.Label6[0] = RepeatDateText(dates_, d_.StartDate);
  c_.Label6[1] = RepeatDateText(dates_, d_.DateReserve);
  UpdateSentence();
  loading_ = false;
}

void RepeatModel::Option1_Click(int index) {
  if (loading_ || index < 0 || index >= static_cast<int>(t::kOptions.size()) ||
      index == c_.Option1) {
    return;
  }
  if (index == kOptionNone) {
    ShowNone();
  } else {
    ShowKind(index);
    RepeatOptionDefaults(index - 1);
  }
  UpdateSentence();
}

void RepeatModel::Option2_Click(int index) {
  if (loading_ || !c_.Option2Visible || index < 0 || index > 1 || index == c_.Option2) return;
  const int option = c_.Option1 + 2 * index;  // Month and Year become their kinds by weekday
  ShowKind(option);
  ImNumber_SetMax(option);
  UpdateSentence();
}

void RepeatModel::Combo1_Click(int listIndex) {
  if (loading_ || !c_.CombosEnabled || listIndex < 0 ||
      listIndex >= static_cast<int>(t::kWeekdays.size())) {
    return;
  }
  c_.Combo1 = listIndex;
  Combo_Click();
}

void RepeatModel::Combo2_Click(int listIndex) {
  if (loading_ || !c_.CombosEnabled || listIndex < 0 ||
      listIndex >= static_cast<int>(t::kOrdinals.size())) {
    return;
  }
  c_.Combo2 = listIndex;
  Combo_Click();
}

// The start moves to the chosen weekday of its month, and the last occurrence with it.
void RepeatModel::Combo_Click() {
  const WeekdayRule rule = Plan(currentOption_).weekday;
  CivilDate start = d_.StartDate;
  start.day = Sor_CulcDDfromYMNW(start.year, start.month, rule.ordinal, rule.weekday);
  d_.StartDate = start;
  d_.ImDate2.fill(start);
  c_.Label6[0] = RepeatDateText(dates_, start);
  ImNumber_SetMax(currentOption_);
  UpdateSentence();
}

void RepeatModel::ImNumber_Change(RepeatNumberField field, int value) {
  if (loading_) return;
  if (CheckNumber(field, value)) Number(field).value = value;
  ApplyRepeatNumber();
}

bool RepeatModel::ImNumber_KeyDown(RepeatNumberField field, int key) {
  if (key != kKeyUp && key != kKeyDown) return false;
  UpDown_Click(field, key == kKeyUp ? 1 : -1);
  return true;
}

void RepeatModel::UpDown_Click(RepeatNumberField field, int steps) {
  RepeatNumber& number = Number(field);
  const int value = number.value + steps;
  if (loading_ || value < number.min || value > number.max) return;
  number.value = value;
  ApplyRepeatNumber();
}

bool RepeatModel::OKButton_Click() {
  const int option = currentOption_;
  if (option != kOptionNone) {
    for (const RepeatNumberField field :
         {RepeatNumberField::ImNumber1, RepeatNumberField::ImNumber2}) {
      if (!CheckNumber(field, Number(field).value)) {
        ApplyRepeatNumber();
        return false;
      }
    }
  }
  const int step = c_.ImNumber2.value - 1;
  work_.RepeatStepUsed = static_cast<std::int16_t>(step);
  if (option == kOptionNone) {
    work_.WorkRepeatKind = 0;
    work_.RepeatFree = -1;
  } else {
    const CivilDate& start = d_.ImDate2[static_cast<std::size_t>(option - 1)];
    const CivilDate& last = d_.ImDate1[static_cast<std::size_t>(option - 1)];
    const WeekdayRule weekday = Plan(option).weekday;
    work_.WorkRepeatKind =
        BuildRepeatWord(option, {step, ByWeekday(option) ? weekday.weekday : WeekdayOf(start),
                                 start.day, start.month, weekday.ordinal});
    work_.RepeatFree = 0;
    work_.CanOption(option) = true;
    work_.RepeatLastYear = static_cast<std::int16_t>(last.year);
    work_.RepeatLastMonth = static_cast<std::int16_t>(last.month);
    work_.RepeatLastDay = static_cast<std::int16_t>(last.day);
    work_.RepeatLastCode = CodeOfDate(last);
  }
  work_.RepeatOption = static_cast<std::int16_t>(option);
  work_.RepeatCode = static_cast<std::int16_t>(DecodeRepeatKind(work_.WorkRepeatKind).code);
  work_.RepeatCount = static_cast<std::int16_t>(c_.ImNumber1.value);
  work_.RepeatStep = static_cast<std::int16_t>(step);
  work_.RepeatStartCode = CodeOfDate(d_.StartDate);
  confirmed_ = true;
  return true;
}

void RepeatModel::CancelButton_Click() {
  Form_Unload();
}

void RepeatModel::Form_Unload() {
  if (confirmed_) return;
  work_.RepeatCount = savedCount_;
  work_.RepeatCode = savedCode_;
}

bool RepeatModel::Option1Enabled(int index) const {
  switch (index) {
    case kOptionNone: return true;
    case kOptionDaily: return work_.CanDaily;
    case kOptionWeekly: return work_.CanWeekly;
    case kOptionMonthly: return work_.CanMonthly || work_.CanMonthlyWeekday;
    case kOptionYearly: return work_.CanYearly || work_.CanYearlyWeekday;
    default: return false;
  }
}

std::optional<RepeatNumberField> RepeatModel::TakeFocus() {
  return std::exchange(focus_, std::nullopt);
}

// Shows an existing rule. A start that has moved since the rule was made gets its last
// occurrence anew, with the count lowered until the rule ends by kEndLimit.
void RepeatModel::RepeatDialogFromRule(int code) {
  const std::optional<int> option = OptionOfCode(code);
  if (!option) return;
  const RepeatUnit unit = UnitOfOption(*option);
  ShowKind(*option);
  if (*option >= kOptionMonthly) SetCombos(WeekdayRuleOfStart());
  const RepeatPlan plan = Plan(*option);
  const int interval = work_.RepeatStep + 1;
  if (CodeOfDate(d_.StartDate) == work_.RepeatStartCode) {
    d_.DateReserve = DateOfCode(work_.RepeatLastCode);
  } else {
    int count = work_.RepeatCount;
    while (count > kMinRepeatCount && !FitsInCalendar(plan, count, interval)) --count;
    if (!FitsInCalendar(plan, count, interval)) {
      messages_.Show({NoMoreSetting(unit), kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
      ShowNone();
      return;
    }
    d_.DateReserve = LastOccurrence(plan, count, interval);
    work_.RepeatCount = static_cast<std::int16_t>(count);
  }
  c_.ImNumber1 = {work_.RepeatCount, kMinRepeatCount, MaxRepeatCount(unit)};
  c_.ImNumber2 = {interval, kMinRepeatInterval, MaxRepeatInterval(unit)};
  LimitRepeatNumbers(*option);
  ShowLastOccurrence(*option, d_.DateReserve);
}

// The defaults of a kind (`k` is RepeatOption - 1): two occurrences one unit apart. A kind
// of which not even that fits is marked unavailable and the dialog falls back to None.
void RepeatModel::RepeatOptionDefaults(int k) {
  const int option = k + 1;
  if (option >= kOptionMonthly) SetCombos(WeekdayRuleOfStart());
  bool& available = work_.CanOption(option);
  available = FitsInCalendar(Plan(option), kMinRepeatCount, kMinRepeatInterval);
  if (!available) {
    ShowNone();
    return;
  }
  const RepeatUnit unit = UnitOfOption(option);
  c_.ImNumber1 = {kMinRepeatCount, kMinRepeatCount, MaxRepeatCount(unit)};
  c_.ImNumber2 = {kMinRepeatInterval, kMinRepeatInterval, MaxRepeatInterval(unit)};
  ImNumber_SetMax(option);
}

// Lowers each number's maximum to the largest value with which the last occurrence still
// falls by kEndLimit, the other number as it is. The current value stays inside the range.
void RepeatModel::LimitRepeatNumbers(int kind) {
  const RepeatPlan plan = Plan(kind);
  const RepeatUnit unit = UnitOfOption(kind);
  RepeatNumber& count = c_.ImNumber1;
  RepeatNumber& interval = c_.ImNumber2;
  const int intervalMax = MaxRepeatInterval(unit);
  interval.max = LargestFitting(std::min(interval.value, intervalMax), intervalMax,
                                [&](int i) { return FitsInCalendar(plan, count.value, i); });
  const int countMax = MaxRepeatCount(unit);
  count.max = LargestFitting(std::min(count.value, countMax), countMax,
                             [&](int n) { return FitsInCalendar(plan, n, interval.value); });
}

// The ranges of the numbers for the kind, and its last occurrence as the numbers say.
void RepeatModel::ImNumber_SetMax(int kind) {
  LimitRepeatNumbers(kind);
  ShowLastOccurrence(kind, LastOccurrence(Plan(kind), c_.ImNumber1.value, c_.ImNumber2.value));
}

void RepeatModel::ApplyRepeatNumber() {
  if (currentOption_ != kOptionNone) ImNumber_SetMax(currentOption_);
  UpdateSentence();
}

void RepeatModel::ShowKind(int option) {
  const auto unit = static_cast<std::size_t>(UnitOfOption(option));
  currentOption_ = option;
  c_.Option1 = ButtonOfOption(option);
  c_.Frame1Visible = true;
  c_.Option2 = ByWeekday(option) ? 1 : 0;
  c_.Option2Visible = c_.Option1 >= kOptionMonthly;
  c_.CombosEnabled = ByWeekday(option);
  c_.Label4 = t::kUnits[unit];
  c_.Label5 = t::kMaxTimes[unit];
}

void RepeatModel::ShowNone() {
  currentOption_ = kOptionNone;
  c_.Option1 = kOptionNone;
  c_.Frame1Visible = false;
  c_.Option2Visible = false;
  c_.CombosEnabled = false;
}

// The weekday and ordinal of the start, its fifth weekday of a month being its last. An
// existing rule for the last weekday keeps it where the start is also a fourth.
WeekdayRule RepeatModel::WeekdayRuleOfStart() const {
  const CivilDate& start = d_.StartDate;
  const WeekPosition at = Sor_CulcNWfromYMD(start.year, start.month, start.day);
  const std::optional<WeekdayRule> rule = SplitWeekdayRule(work_.WorkRepeatKind);
  const bool keepsLast =
      rule && rule->ordinal == kLastOrdinal && rule->weekday == at.W && at.isLast;
  return {keepsLast || at.N > 4 ? kLastOrdinal : at.N, at.W};
}

void RepeatModel::SetCombos(const WeekdayRule& rule) {
  c_.Combo1 = rule.weekday;
  c_.Combo2 = OrdinalIndex(rule.ordinal);
}

void RepeatModel::ShowLastOccurrence(int kind, const CivilDate& last) {
  d_.DateReserve = d_.ImDate1[static_cast<std::size_t>(kind - 1)] = last;
  c_.Label6[1] = RepeatDateText(dates_, last);
}

void RepeatModel::UpdateSentence() {
  const RepeatSentenceParts parts{
      std::to_string(c_.ImNumber2.value),        c_.Label6[0], c_.Label6[1], c_.Combo2, c_.Combo1,
      d_.ImDate2[kOptionYearlyWeekday - 1].month};
  if (const auto text = BuildRepeatCaption(currentOption_, parts)) c_.Label2 = *text;
}

RepeatPlan RepeatModel::Plan(int option) const {
  return {option,
          d_.ImDate2[static_cast<std::size_t>(option - 1)],
          {t::kOrdinalData[static_cast<std::size_t>(c_.Combo2)], c_.Combo1}};
}

RepeatNumber& RepeatModel::Number(RepeatNumberField field) {
  return field == RepeatNumberField::ImNumber1 ? c_.ImNumber1 : c_.ImNumber2;
}

// A value outside its box's range is refused: the box goes to its maximum when the value was
// above it, else to its minimum, and asks for the focus.
bool RepeatModel::CheckNumber(RepeatNumberField field, int value) {
  RepeatNumber& number = Number(field);
  if (value >= number.min && value <= number.max) return true;
  messages_.Show({t::kInvalidInput, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
  number.value = value > number.max ? number.max : number.min;
  focus_ = field;
  return false;
}

}  // namespace sched
