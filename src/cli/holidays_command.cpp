#include <iomanip>

#include "cli/cli_args.h"
#include "cli/verb.h"
#include "core/calendar.h"
#include "holidays/country_file.h"
#include "holidays/holiday_table.h"

namespace sched {
namespace {

int RunHolidays(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                CodePage) {
  RequireArguments(args, {"COUNTRYFILE", "FROMYEAR"}, {"TOYEAR"});
  const int from = RequireInt("FROMYEAR", args[1], kFirstYear, kLastYear);
  const int to = args.size() == 3 ? RequireInt("TOYEAR", args[2], kFirstYear, kLastYear) : from;
  if (from > to) throw UsageError("FROMYEAR is later than TOYEAR");

  CountryFile file;
  CountryFileError error;
  if (!LoadCountryFile(args[0], file, error)) {
    err << "scltool holidays: cannot load " << args[0] << ": ";
    if (error.line > 0) err << "line " << error.line << ": ";
    err << error.message << '\n';
    return kExitRefused;
  }
  HolidayTable table(std::move(file));
  const char fill = out.fill('0');
  for (int year = from; year <= to; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= 31; ++day) {
        if (const std::string* name = table.Find(year, month, day)) {
          out << year << '/' << std::setw(2) << month << '/' << std::setw(2) << day << '\t' << *name
              << '\n';
        }
      }
    }
  }
  out.fill(fill);
  return kExitDone;
}

}  // namespace

const Verb kHolidaysVerb{"holidays", "COUNTRYFILE FROMYEAR [TOYEAR]",
                         "the named holidays of a country file, yyyy/mm/dd<TAB>name a line",
                         RunHolidays};

}  // namespace sched
