#include "cli/month_command.h"

#include <charconv>
#include <optional>

#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "holidays/country_calendar.h"
#include "views/month_view_model.h"

namespace sched {
namespace {

constexpr const char* kUsage = "usage: scltool month FILE.scl YYYY MM [COUNTRYFILE]";

}  // namespace

int RunMonthCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.size() < 3 || args.size() > 4) {
    err << kUsage << '\n';
    return 2;
  }
  const std::optional<int> year = ParseInt(args[1], 10, kFirstYear, kLastYear);
  const std::optional<int> month = ParseInt(args[2], 10, 1, 12);
  if (!year || !month) {
    err << kUsage << '\n';
    return 2;
  }

  CountryCalendar calendar;
  NamedHolidays holidays;
  if (args.size() == 4) {
    if (calendar.SorCalender_InitFunction(args[3], holidays.HolidayHandle) != 0) {
      err << "scltool month: cannot load " << args[3] << '\n';
      return 1;
    }
    holidays.calendar = &calendar;
    holidays.HolidayReady = -1;
  }

  CliStore cli;
  if (!cli.Load(args[0])) return 1;
  ScheduleDocument& doc = cli.Store().Document();
  doc.CurYear = *year;
  doc.CurMonth = *month;
  doc.CurDay = 1;
  MonthView view(doc, holidays);
  view.FillMonthGrid(*year, *month);
  view.FillMonthLists();

  for (int c = 0; c < kMonthCells; ++c) {
    const MonthCell& cell = view.Cell(c);
    out << c << '\t' << cell.dayText << '\t' << ColorName(cell.dayColor) << '\t'
        << ColorName(cell.back) << '\t' << (cell.enabled ? "enabled" : "disabled") << '\t'
        << cell.holidayName << '\n';
    for (std::size_t i = 0; i < cell.rows.size(); ++i) out << "    " << cell.lines[i] << '\n';
  }
  if (holidays.HolidayReady == -1) calendar.SorCalender_EndFunction(holidays.HolidayHandle);
  return 0;
}

}  // namespace sched
