#include "cli/holidays_command.h"

#include <charconv>
#include <iomanip>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "holidays/country_file.h"
#include "holidays/holiday_table.h"

namespace sched {
namespace {

constexpr const char* kUsage = "usage: scltool holidays COUNTRYFILE FROMYEAR [TOYEAR]";

std::optional<int> ParseYear(const std::string& text) {
  int year = 0;
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, year);
  if (text.empty() || text[0] == '-' || ec != std::errc{} || ptr != end) return std::nullopt;
  if (year < kFirstYear || year > kLastYear) return std::nullopt;
  return year;
}

int Usage(std::ostream& err, const std::string& problem) {
  if (!problem.empty()) err << "scltool holidays: " << problem << '\n';
  err << kUsage << '\n';
  return 2;
}

}  // namespace

int RunHolidaysCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.size() < 2 || args.size() > 3) return Usage(err, "");
  const std::optional<int> from = ParseYear(args[1]);
  const std::optional<int> to = args.size() == 3 ? ParseYear(args[2]) : from;
  if (!from || !to) {
    return Usage(
        err, "years run from " + std::to_string(kFirstYear) + " to " + std::to_string(kLastYear));
  }
  if (*from > *to) return Usage(err, "FROMYEAR is later than TOYEAR");

  CountryFile file;
  CountryFileError error;
  if (!LoadCountryFile(args[0], file, error)) {
    err << "scltool holidays: cannot load " << args[0] << ": ";
    if (error.line > 0) err << "line " << error.line << ": ";
    err << error.message << '\n';
    return 1;
  }
  HolidayTable table(std::move(file));
  const char fill = out.fill('0');
  for (int year = *from; year <= *to; ++year) {
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
  return 0;
}

}  // namespace sched
