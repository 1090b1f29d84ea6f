#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "holidays/country_file.h"

namespace sched {

// The named holidays of one country file, by date, for kFirstYear to kLastYear. A year is evaluated
// on its first lookup and kept; later lookups of it are an array access.
class HolidayTable {
 public:
  explicit HolidayTable(CountryFile file);

  // The UTF-8 name of the holiday on that date; nullptr when there is none, and for dates that
  // do not exist or lie outside kFirstYear to kLastYear.
  const std::string* Find(int year, int month, int day);

  const CountryFile& File() const { return file_; }

 private:
  struct Year {
    std::array<std::int16_t, 12 * 31> slot{};  // index into `names` + 1, 0 for none
    std::vector<std::string> names;
  };

  const Year& YearOf(int year);

  CountryFile file_;
  std::array<std::unique_ptr<Year>, kLastYear - kFirstYear + 1> years_;
};

}  // namespace sched
