#include "views/line_text.h"

#include <string>

#include "core/calendar.h"
#include "core/time_text.h"
#include "store/sch_record.h"
#include "views/view_texts.h"

namespace sched {
namespace {

// A time value outside one day wraps as the clock does: -1 is 11:59pm, 1440 is 12:00am.
int MinuteOfDay(int minutes) {
  return ((minutes % 1440) + 1440) % 1440;
}

std::string TimeText(int minutes, bool padHour) {
  const int m = MinuteOfDay(minutes);
  return TwelveHourTime(m / 60, m % 60, padHour, "am", "pm");
}

std::string PadTwo(int number) {
  std::string text = std::to_string(number);
  return text.size() < 2 ? " " + text : text;
}

struct SpanDates {
  std::string first;
  std::string last;
};

// The first and last date of a multi-day row's series, as the lists show them.
SpanDates SeriesDates(const SchDatCTL& ctl, const SchDatRow& r) {
  SeriesRange range = GetSeriesRange(ctl, r.ParentSubNo, r.ParentStamp);
  if (!range.found) range.Add(r);
  const auto text = [](std::int32_t code) { return MonthDayText(code / 100 % 100, code % 100); };
  return {text(range.firstCode), text(range.lastCode)};
}

bool IsMultiDay(const SchDatRow& r) {
  return r.RepeatKind == kMultiDayKind;
}

}  // namespace

std::string ShortTimeText(int minutes) {
  return TimeText(minutes, false);
}
std::string PaddedTimeText(int minutes) {
  return TimeText(minutes, true);
}
std::string MonthDayText(int month, int day) {
  return PadTwo(month) + "/" + PadTwo(day);
}

std::string MonthLineText(const SchDatCTL& ctl, int row) {
  const SchDatRow& r = ctl.SchDatList.At(row);
  const std::string title(ctl.SchDatList.Texts(r).Title);
  if (r.StartTime != -1) return ShortTimeText(r.StartTime) + " " + title;
  if (IsMultiDay(r)) return SeriesDates(ctl, r).last + " " + title;
  return view_texts::kAllDayMonth + title;
}

std::string DayLineText(const SchDatCTL& ctl, int row) {
  const SchDatRow& r = ctl.SchDatList.At(row);
  const std::string title(ctl.SchDatList.Texts(r).Title);
  std::string time;
  if (r.StartTime != -1) {
    time = PaddedTimeText(r.StartTime) + " - " + PaddedTimeText(r.EndTime);
  } else if (IsMultiDay(r)) {
    const SpanDates dates = SeriesDates(ctl, r);
    time = dates.first + " - " + dates.last;
  } else {
    time = view_texts::kAllDayList;
  }
  return time + "  " + title;
}

std::string ListLineText(const SchDatCTL& ctl, int row) {
  const SchDatRow& r = ctl.SchDatList.At(row);
  const std::string title(ctl.SchDatList.Texts(r).Title);
  if (r.StartTime != -1) {
    return ShortTimeText(r.StartTime) + "-" + ShortTimeText(r.EndTime) + " " + title;
  }
  if (IsMultiDay(r)) {
    const SpanDates dates = SeriesDates(ctl, r);
    return dates.first + "-" + dates.last + " " + title;
  }
  return view_texts::kAllDayList + title;
}

}  // namespace sched
