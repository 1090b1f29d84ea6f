#include "appointments/sch_edit_model.h"

#include <algorithm>

#include "appointments/item_limits.h"
#include "appointments/texts.h"
#include "core/app_texts.h"
#include "core/codepage.h"
#include "platform/key_codes.h"

namespace sched {
namespace {

constexpr int kDefaultSpan = 30;  // minutes of a new item
constexpr int kLastMinute = 23 * 60 + 59;
constexpr int kLeadStep = 5;
constexpr int kSoundNameBytes = 8;

// Carriage returns of a text: each one lengthens the text's limit by one.
int CrCount(const std::string& text) {
  return static_cast<int>(std::count(text.begin(), text.end(), '\r'));
}

// The text cut to `limit` characters.
std::string CutToCharacters(const std::string& text, int limit) {
  int seen = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) continue;
    if (seen++ == limit) return text.substr(0, i);
  }
  return text;
}

// The combo item for a time: the one with exactly these minutes, else the next half hour.
int ComboIndexOf(int minutes) {
  const auto& items = TimeComboItems();
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].minutes >= minutes) return static_cast<int>(i);
  }
  return static_cast<int>(items.size()) - 1;
}

}  // namespace

SchEditModel::SchEditModel(SchEditServices services) : s_(std::move(services)) {}

std::optional<EditFocus> SchEditModel::TakeFocus() {
  std::optional<EditFocus> focus;
  focus.swap(focus_);
  return focus;
}

std::string SchEditModel::TimeText(int index) const {
  const auto& time = c_.DTPicker2[static_cast<std::size_t>(index)];
  if (!time) return {};
  return TimeComboText(*time);
}

void SchEditModel::StartSession() {
  ScheduleDocument& doc = s_.store.Document();
  shownDate_ = {doc.CurYear, doc.CurMonth, doc.CurDay};
  Work = RepeatWork{};
  Work.CanYearly = shownDate_.year != kLastYear;
  c_ = SchEditControls{};
  c_.SelSubjectEnabled = s_.media != nullptr;
  soundOutput_ = s_.media != nullptr && s_.media->HasSoundOutput();
  spanMinutes_ = kDefaultSpan;
  spanSet_ = false;
}

void SchEditModel::OpenNew() {
  StartSession();
  IsNewItem = -1;
  Record = SchRecord{};
  SetStartDate(Record, shownDate_);
  SetEndDate(Record, shownDate_);
  c_.ImDate1 = {shownDate_, shownDate_};
  SetDefaultTimes();
  c_.Caption = appointment_texts::kCaptionNew;
  Work.RepeatCode = kCodeNone;
  SoundCombo_Disp("");
  FinishOpening();
}

void SchEditModel::OpenModify(int row) {
  StartSession();
  IsNewItem = 0;
  const SchDatCTL& tables = s_.store.Document().Tables;
  Record = RowToRecord(tables.SchDatList, row);
  c_.Caption = appointment_texts::kCaptionModify + Record.Title;
  c_.Text1 = Record.Title;
  c_.Text3 = Record.Place;
  c_.Text2 = Record.Memo;
  SetLengthLimits();
  SoundCombo_Disp(Record.AlarmSound);

  Work.WorkRepeatKind = static_cast<std::uint16_t>(Record.RepeatKind);
  if (Work.WorkRepeatKind != 0 && Work.WorkRepeatKind != kOverDaysWord) {
    const SeriesInEditor series = LoadSeriesIntoEditor(tables, Work, Work.WorkRepeatKind,
                                                       Record.ParentSubNo, Record.ParentStamp);
    Work.RepeatFree = 0;
    c_.ImDate1 = {series.first, series.first};
    c_.EndDateEnabled = false;
    ShowTimes(series.StartTime, series.EndTime);
    s_.store.Document().SetShownDate(series.first);
    SetStartDate(Record, series.first);
  } else if (Work.WorkRepeatKind == kOverDaysWord) {
    Work.RepeatCode = kCodeOverDays;
    const SpanInEditor span = LoadSpanIntoEditor(tables, Record.ParentSubNo, Record.ParentStamp);
    c_.ImDate1 = {span.first, span.last};
    SetStartDate(Record, span.first);
    ShowTimes(-1, -1);
  } else {
    c_.ImDate1 = {CivilDate{Record.Year, Record.Month, Record.Day},
                  CivilDate{Record.EndYear, Record.EndMonth, Record.EndDay}};
    ShowTimes(Record.StartTime, Record.EndTime);
  }
  ShowDateButtons();

  if (Record.AlarmOn != 0) {
    c_.Check1 = true;
    c_.ImNumber1 = Record.AlarmLead;
    EnableAlarmControls();
    if (std::find(c_.SoundList.begin(), c_.SoundList.end(), c_.SoundName) == c_.SoundList.end()) {
      Warn(std::string(appointment_texts::kCannotFindSound) + "\r\n" +
           appointment_texts::kAlarmSettingClear);
      c_.Check1 = false;
      Record.AlarmOn = 0;
      EnableAlarmControls();
    }
  }
  c_.Check2 = Record.Private != 0;
  FinishOpening();
}

void SchEditModel::FinishOpening() {
  SavedRecord = Record;
  ChangedFlag = 0;
  written_ = false;
  newRow_ = -1;
}

void SchEditModel::SetLengthLimits() {
  c_.Text1MaxLength = kTitleLimit + CrCount(c_.Text1);
  c_.Text3MaxLength = kTitleLimit + CrCount(c_.Text3);
  c_.Text2MaxLength = kMemoLimit + CrCount(c_.Text2);
}

void SchEditModel::SoundCombo_Disp(const std::string& name) {
  c_.SoundList = s_.sounds;
  c_.SoundName = name;
  if (c_.SoundName.empty() && !c_.SoundList.empty()) {
    const bool hasDefault = std::find(c_.SoundList.begin(), c_.SoundList.end(),
                                      kDefaultAlarmSound) != c_.SoundList.end();
    c_.SoundName = hasDefault ? kDefaultAlarmSound : c_.SoundList.front();
  }
  EnableAlarmControls();
}

void SchEditModel::EnableAlarmControls() {
  const bool alarm = c_.Check1 && !c_.Check3;
  c_.ImNumber1Enabled = alarm;
  c_.SoundEnabled = alarm && !c_.SoundList.empty();
  c_.PreviewEnabled = c_.SoundEnabled && soundOutput_;
}

void SchEditModel::SetDefaultTimes() {
  const DateTime now = s_.clock.Now();
  const int start = now.minute <= 30 ? now.hour * 60 + 30 : (now.hour + 1) % 24 * 60;
  const int end = std::min(start + kDefaultSpan, kLastMinute);
  spanMinutes_ = end - start;
  SetTimeCombos(start, end);
}

void SchEditModel::SetTimeCombos(int start, int end) {
  c_.DTPicker2 = {start, end};
  c_.Combo1 = {ComboIndexOf(start), ComboIndexOf(end)};
}

void SchEditModel::ShowTimes(int start, int end) {
  if (start == -1) {
    SetAllDay(true);
    return;
  }
  SetTimeCombos(start, end);
  spanMinutes_ = std::max(end - start, 0);
}

void SchEditModel::SetAllDay(bool on) {
  c_.Check3 = on;
  c_.TimesEnabled = !on;
  c_.Check1Enabled = !on;
  if (on) {
    c_.DTPicker2 = {std::nullopt, std::nullopt};
    c_.Combo1 = {-1, -1};
    c_.Check1 = false;
  } else {
    SetDefaultTimes();
  }
  EnableAlarmControls();
}

void SchEditModel::Warn(const std::string& text) {
  s_.messages.Show({text, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

void SchEditModel::Text1_Change(const std::string& text) {
  c_.Text1 = CutToCharacters(text, kTitleLimit + CrCount(text));
  ChangedFlag = -1;
}

void SchEditModel::cbtSNDprev_Click() {
  if (s_.media != nullptr) s_.media->PreviewAlarmSound(c_.SoundName);
}

void SchEditModel::SelSubject_Click(int index) {
  if (s_.media == nullptr) return;
  const bool place = index == 1;
  const std::optional<std::string> text =
      s_.media->SelectWords(place ? WordField::Place : WordField::Title,
                            place ? c_.Text3 : c_.Text1, s_.store.Document().FileCodePage);
  if (!text) return;
  if (place) {
    Text3_Change(*text);
  } else {
    Text1_Change(*text);
  }
}

void SchEditModel::Text3_Change(const std::string& text) {
  c_.Text3 = CutToCharacters(text, kTitleLimit + CrCount(text));
  ChangedFlag = -1;
}

void SchEditModel::Text2_Change(const std::string& text) {
  c_.Text2 = CutToCharacters(text, kMemoLimit + CrCount(text));
  ChangedFlag = -1;
}

void SchEditModel::ImDate1_Change(int index, const std::optional<CivilDate>& date) {
  ChangedFlag = -1;
  auto& start = c_.ImDate1[0];
  auto& end = c_.ImDate1[1];
  if (index == 1) {
    end = date;
    if (end && start && DaySerial(*end) < DaySerial(*start)) end = start;
    ShowDateButtons();
    return;
  }
  const std::optional<CivilDate> old = start;
  start = date;
  if (!start) return;
  if (Work.RepeatFree == 0 || !end || !old) {
    end = start;
  } else {
    // The end keeps its distance from the start, up to the calendar's last day.
    const int span = std::max(DaySerial(*end) - DaySerial(*old), 0);
    const int room = DaySerial(kEndLimit) - DaySerial(*start);
    end = AddDays(*start, std::min(span, room));
  }
  end = DaySerial(*end) < DaySerial(*start) ? start : end;
  ShowDateButtons();
}

void SchEditModel::ShowDateButtons() {
  const auto& start = c_.ImDate1[0];
  const auto& end = c_.ImDate1[1];
  const bool oneDate = start && end && *start == *end;
  c_.Command1Enabled = oneDate;
  if (!oneDate) {
    for (int option = kOptionDaily; option <= kOptionYearlyWeekday; ++option) {
      Work.CanOption(option) = false;
    }
    return;
  }
  Work.SetAvailability(*start);
  if (Work.WorkRepeatKind == kOverDaysWord) {
    // An item over several dates narrowed to one is a plain item.
    Work.WorkRepeatKind = 0;
    Work.RepeatCode = kCodeNone;
    Record.RepeatKind = 0;
  }
}

void SchEditModel::Combo1_Click(int index, int listIndex) {
  const auto& items = TimeComboItems();
  if (listIndex < 0 || listIndex >= static_cast<int>(items.size())) return;
  SetTime(index, items[static_cast<std::size_t>(listIndex)].minutes);
}

void SchEditModel::Combo1_Text(int index, const std::string& text) {
  if (const std::optional<int> minutes = ParseTimeText(text)) SetTime(index, *minutes);
}

void SchEditModel::SetTime(int index, int minutes) {
  ChangedFlag = -1;
  int start = c_.DTPicker2[0].value_or(minutes);
  int end = c_.DTPicker2[1].value_or(minutes);
  if (index == 0) {
    start = minutes;
    // The end follows the start, keeping the span, until the user sets the end himself.
    if (start > end || !spanSet_) end = std::min(start + spanMinutes_, kLastMinute);
  } else {
    end = minutes;
    spanSet_ = true;
    if (end < start) start = std::max(end - spanMinutes_, 0);
    spanMinutes_ = end - start;
  }
  SetTimeCombos(start, end);
}

void SchEditModel::Check3_Click(bool on) {
  ChangedFlag = -1;
  SetAllDay(on);
}

void SchEditModel::Check1_Click(bool on) {
  ChangedFlag = -1;
  c_.Check1 = on;
  if (on && c_.SoundList.empty()) {
    Warn(appointment_texts::kCannotFindSound);
    c_.Check1 = false;
  }
  EnableAlarmControls();
}

void SchEditModel::Check2_Click(bool on) {
  ChangedFlag = -1;
  c_.Check2 = on;
}

void SchEditModel::ImNumber1_Change(int value) {
  ChangedFlag = -1;
  c_.ImNumber1 = std::clamp(value, 0, kMaxLead);
}

bool SchEditModel::ImNumber1_KeyDown(int key) {
  if (key != kKeyUp && key != kKeyDown) return false;
  ImNumber1_Change(c_.ImNumber1 + (key == kKeyUp ? kLeadStep : -kLeadStep));
  return true;
}

void SchEditModel::Sound_Change(const std::string& name) {
  ChangedFlag = -1;
  c_.SoundName = name;
}

bool SchEditModel::Sound_LostFocus() {
  if (CheckComboLen(static_cast<int>(ByteLength(c_.SoundName, s_.store.Document().FileCodePage)),
                    kSoundNameBytes))
    return true;
  focus_ = EditFocus::Sound;
  return false;
}

bool SchEditModel::CheckComboLen(int length, int max) {
  if (length <= max) return true;
  Warn(std::string(appointment_texts::kTooLong) + "\r\n" + appointment_texts::kMaximumLength + " " +
       std::to_string(max) + " " + appointment_texts::kCharacters);
  return false;
}

}  // namespace sched
