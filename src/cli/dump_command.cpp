#include "cli/dump_command.h"

#include <cstdio>

#include "store/row_order.h"

namespace sched {
namespace {

std::string JsonString(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char escaped[8];
          std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
          out += escaped;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

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
