// The edit dialog's buttons: the repeat dialog, OK and Cancel.
#include "appointments/item_limits.h"
#include "appointments/sch_edit_model.h"
#include "appointments/texts.h"
#include "core/app_texts.h"

namespace sched {

void SchEditModel::Command1_Click() {
  if (!c_.ImDate1[0]) return;
  Work.Decode(Work.WorkRepeatKind);
  RepeatModel repeat(Work, s_.messages, s_.dates);
  repeat.Open(*c_.ImDate1[0]);
  s_.host.ShowRepeatDialog(repeat);
  if (!repeat.Confirmed()) {
    repeat.Form_Unload();
    return;
  }
  c_.ImDate1 = {repeat.StartDate(), repeat.StartDate()};
  c_.EndDateEnabled = Work.RepeatFree != 0;
  ChangedFlag = -1;
  ShowDateButtons();
}

bool SchEditModel::CheckFields() {
  for (int index : {0, 1}) {
    if (!c_.ImDate1[static_cast<std::size_t>(index)]) {
      Warn(appointment_texts::kSpecifyDate);
      focus_ = index == 0 ? EditFocus::ImDate1Start : EditFocus::ImDate1End;
      return false;
    }
  }
  if (!c_.Check3 && (!c_.DTPicker2[0] || !c_.DTPicker2[1])) {
    Warn(appointment_texts::kInvalidTime);
    focus_ = c_.DTPicker2[0] ? EditFocus::Combo1End : EditFocus::Combo1Start;
    return false;
  }
  if (c_.Check1 && (c_.ImNumber1 > kMaxLead || c_.ImNumber1 < 0)) {
    Warn(appointment_texts::kInvalidAlarmTime);
    focus_ = EditFocus::ImNumber1;
    return false;
  }
  const CivilDate start = *c_.ImDate1[0];
  const CivilDate end = *c_.ImDate1[1];
  if (Work.RepeatFree == -1) {
    const int days = DaySerial(end) - DaySerial(start) + 1;
    if (days > kLongestSpan) {
      Warn(appointment_texts::kOverlap30Days);
      c_.ImDate1[1] = c_.ImDate1[0];
      focus_ = EditFocus::ImDate1End;
      if (c_.Check3) SetAllDay(false);
      ShowDateButtons();
      return false;
    }
    Work.WorkRepeatKind = days > 1 ? kOverDaysWord : 0;
  }
  if (!c_.Check3 && *c_.DTPicker2[0] > *c_.DTPicker2[1]) {
    Warn(appointment_texts::kInvalidTime);
    focus_ = EditFocus::Combo1Start;
    return false;
  }
  return true;
}

AppointmentInput SchEditModel::Input() const {
  AppointmentInput in;
  in.start = *c_.ImDate1[0];
  in.end = *c_.ImDate1[1];
  in.allDay = c_.Check3;
  in.startMinutes = c_.DTPicker2[0].value_or(0);
  in.endMinutes = c_.DTPicker2[1].value_or(0);
  in.title = c_.Text1;
  in.place = c_.Text3;
  in.memo = c_.Text2;
  in.alarm = c_.Check1;
  in.alarmLead = c_.ImNumber1;
  in.sound = c_.SoundName;
  in.privateItem = c_.Check2;
  return in;
}

bool SchEditModel::SchEditOK_Click() {
  if (ChangedFlag == 0) return true;
  if (!CheckFields()) return false;

  ScheduleStore& store = s_.store;
  std::optional<ReplacedItem> replaced;
  if (IsNewItem == 0) {
    // A series keeps its lowest SubNo; the old records all go, the new ones take their place.
    const bool oldSeries = SavedRecord.RepeatKind != 0;
    const std::int16_t subNo =
        Work.WorkRepeatKind != 0 && oldSeries
            ? static_cast<std::int16_t>(GetSeriesLowestSubNo(
                  store.Document().Tables, SavedRecord.ParentSubNo, SavedRecord.ParentStamp))
            : SavedRecord.SubNo;
    replaced = ReplacedItem{subNo, SavedRecord.Stamp, SavedRecord.ParentSubNo};
    store.DeleteItem(SavedRecord);
  }
  const SchDatCTL& tables = store.Document().Tables;
  const int firstRow =
      tables.RowCount == 0 && tables.SchDatList.IsEmpty() ? 0 : tables.SchDatList.Rows();

  Work.Decode(Work.WorkRepeatKind);
  if (Work.RepeatCode == kCodeOverDays) Record.RepeatKind = kMultiDayKind;
  OccurrenceMaker maker(store, s_.messages, Work);
  if (!maker.Expand(Input(), replaced)) {
    c_.ImDate1[1] = c_.ImDate1[0];
    focus_ = EditFocus::ImDate1End;
    return false;
  }
  Record = maker.Record();
  written_ = true;
  newRow_ = firstRow;
  s_.store.Document().SetShownDate(shownDate_);
  return true;
}

bool SchEditModel::SchEditCAN_Click() {
  if (ChangedFlag != 0) {
    switch (s_.messages.Show(
        {texts::kAskSaveChanges, kAppTitle, MsgIcon::Exclamation, MsgButtons::YesNoCancel})) {
      case MsgAnswer::Yes: return SchEditOK_Click();
      case MsgAnswer::Cancel: focus_ = EditFocus::Text1; return false;
      default: break;
    }
  }
  s_.store.Document().SetShownDate(shownDate_);
  Record = SavedRecord;
  return true;
}

}  // namespace sched
