// Feeds arbitrary bytes to the country file parser and, when they parse, evaluates a few years
// and looks up every day of one of them. Neither may crash, hang or break the name limits.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "holidays/country_file.h"
#include "holidays/holiday_rules.h"
#include "holidays/holiday_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  sched::CountryFile file;
  sched::CountryFileError error;
  if (!sched::ParseCountryFile(bytes, file, error)) return 0;

  for (int year : {1901, 1972, 2000, 2099}) {
    int previous = 0;
    for (const sched::NamedDay& named : sched::EvaluateYear(file, year)) {
      const int code = named.month * 100 + named.day;
      if (code <= previous || named.name.empty() ||
          named.name.size() > sched::kMaxHolidayNameBytes) {
        std::abort();
      }
      previous = code;
    }
  }
  sched::HolidayTable table(std::move(file));
  for (int month = 0; month <= 13; ++month) {
    for (int day = 0; day <= 32; ++day) table.Find(2024, month, day);
  }
  return 0;
}
