#include "cli/dump_command.h"

#include "cli/json_text.h"
#include "store/row_order.h"

namespace sched {
namespace {

template <typename Values>
void WriteArray(std::ostream& out, const Values& values) {
  out << '[';
  bool first = true;
  for (const auto value : values) {
    out << (first ? "" : ",") << value;
    first = false;
  }
  out << ']';
}

void WriteRow(std::ostream& out, const SchDatRow& r) {
  out << "{\"Day\":" << r.Day << ",\"Month\":" << r.Month << ",\"Year\":" << r.Year
      << ",\"EndDay\":" << r.EndDay << ",\"EndMonth\":" << r.EndMonth
      << ",\"EndYear\":" << r.EndYear << ",\"StartTime\":" << r.StartTime
      << ",\"EndTime\":" << r.EndTime << ",\"SubNo\":" << r.SubNo << ",\"Stamp\":" << r.Stamp
      << ",\"ParentSubNo\":" << r.ParentSubNo << ",\"ParentStamp\":" << r.ParentStamp
      << ",\"RepeatKind\":" << r.RepeatKind << ",\"Private\":" << (r.Private != 0 ? 1 : 0)
      << ",\"Title\":" << JsonString(r.Title) << ",\"Place\":" << JsonString(r.Place)
      << ",\"Memo\":" << JsonString(r.Memo) << ",\"AlarmOn\":" << r.AlarmOn
      << ",\"AlarmSound\":" << JsonString(r.AlarmSound) << ",\"AlarmLead\":" << r.AlarmLead << '}';
}

}  // namespace

void WriteDumpJson(const ScheduleDocument& doc, std::ostream& out) {
  const SchDatCTL& t = doc.Tables;
  out << "{\"weekHoliday\":";
  WriteArray(out, doc.WeekHoliday);
  out << ",\"years\":[";
  for (int y = 0; y < t.YearCount; ++y) {
    const AncYYRow& year = t.AncYY.At(y);
    out << (y > 0 ? "," : "") << "{\"year\":" << year.Year << ",\"holidayOn\":";
    WriteArray(out, year.HolidayOn);
    out << ",\"holidayOff\":";
    WriteArray(out, year.HolidayOff);
    out << '}';
  }
  out << "],\"rows\":[";
  bool first = true;
  for (int row : LiveRowsInDateOrder(t)) {
    out << (first ? "" : ",");
    WriteRow(out, t.SchDatList.At(row));
    first = false;
  }
  out << "]}\n";
}

}  // namespace sched
