#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/json_text.h"
#include "cli/verb.h"
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

void WriteRow(std::ostream& out, const SchDatRow& r, const RowTexts& texts) {
  // The narrow fields are written as numbers, never as characters.
  out << "{\"Day\":" << +r.Day << ",\"Month\":" << +r.Month << ",\"Year\":" << r.Year
      << ",\"EndDay\":" << +r.EndDay << ",\"EndMonth\":" << +r.EndMonth
      << ",\"EndYear\":" << r.EndYear << ",\"StartTime\":" << r.StartTime
      << ",\"EndTime\":" << r.EndTime << ",\"SubNo\":" << r.SubNo << ",\"Stamp\":" << r.Stamp
      << ",\"ParentSubNo\":" << r.ParentSubNo << ",\"ParentStamp\":" << r.ParentStamp
      << ",\"RepeatKind\":" << r.RepeatKind << ",\"Private\":" << (r.Private != 0 ? 1 : 0)
      << ",\"Title\":" << JsonString(texts.Title) << ",\"Place\":" << JsonString(texts.Place)
      << ",\"Memo\":" << JsonString(texts.Memo) << ",\"AlarmOn\":" << r.AlarmOn
      << ",\"AlarmSound\":" << JsonString(texts.AlarmSound) << ",\"AlarmLead\":" << r.AlarmLead
      << '}';
}

// The loaded tables as JSON: weekly holidays, the years with their masks in table order, and
// the live rows in date order.
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
    WriteRow(out, t.SchDatList.At(row), t.SchDatList.Texts(row));
    first = false;
  }
  out << "]}\n";
}

int RunDump(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
            CodePage page) {
  RequireArguments(args, {"FILE.scl"});
  CliStore cli(err, page);
  if (!cli.Load(args[0])) return kExitRefused;
  WriteDumpJson(cli.Document(), out);
  return kExitDone;
}

}  // namespace

const Verb kDumpVerb{"dump", "FILE.scl", "the loaded schedule as JSON, the rows by date", RunDump,
                     true};

}  // namespace sched
