#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"
#include "holidays/country_calendar.h"
#include "views/month_view_model.h"

namespace sched {
namespace {

// The 42 cells of the month grid as the month tab shows them with day 1 selected, one line a
// cell (cell, day, colour, background, enabled or disabled, holiday name, tab-separated) and
// the cell's list lines indented below.
int RunMonth(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
             CodePage page) {
  RequireArguments(args, {"FILE.scl", "YYYY", "MM"}, {"COUNTRYFILE"});
  const int year = RequireInt("YYYY", args[1], kFirstYear, kLastYear);
  const int month = RequireInt("MM", args[2], 1, 12);

  CountryCalendar calendar;
  NamedHolidays holidays;
  if (args.size() == 4) {
    if (calendar.SorCalender_InitFunction(args[3], holidays.HolidayHandle) != 0) {
      err << "scltool month: cannot load " << args[3] << '\n';
      return kExitRefused;
    }
    holidays.calendar = &calendar;
    holidays.HolidayReady = -1;
  }

  CliStore cli(err, page);
  if (!cli.Load(args[0])) return kExitRefused;
  ScheduleDocument& doc = cli.Document();
  doc.SetShownDate({year, month, 1});
  MonthView view(doc, holidays);
  view.FillMonthGrid(year, month);
  view.FillMonthLists();

  for (int c = 0; c < kMonthCells; ++c) {
    const MonthCell& cell = view.Cell(c);
    out << c << '\t' << cell.dayText << '\t' << ColorName(cell.dayColor) << '\t'
        << ColorName(cell.back) << '\t' << (cell.enabled ? "enabled" : "disabled") << '\t'
        << cell.holidayName << '\n';
    for (std::size_t i = 0; i < cell.rows.size(); ++i) out << "    " << cell.lines[i] << '\n';
  }
  if (holidays.HolidayReady == -1) calendar.SorCalender_EndFunction(holidays.HolidayHandle);
  return kExitDone;
}

}  // namespace

const Verb kMonthVerb{"month", "FILE.scl YYYY MM [COUNTRYFILE]",
                      "the month grid of the window as text, with a country's holidays", RunMonth,
                      true};

}  // namespace sched
