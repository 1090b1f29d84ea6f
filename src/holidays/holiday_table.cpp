#include "holidays/holiday_table.h"

#include <cstddef>
#include <memory>
#include <utility>

#include "core/calendar.h"
#include "core/codepage.h"
#include "holidays/holiday_rules.h"

namespace sched {

HolidayTable::HolidayTable(CountryFile file) : file_(std::move(file)) {}

const std::string* HolidayTable::Find(int year, int month, int day) {
  if (!IsValidDate(year, month, day)) return nullptr;
  const Year& table = YearOf(year);
  const int slot = table.slot[static_cast<std::size_t>((month - 1) * 31 + day - 1)];
  return slot == 0 ? nullptr : &table.names[static_cast<std::size_t>(slot - 1)];
}

const HolidayTable::Year& HolidayTable::YearOf(int year) {
  std::unique_ptr<Year>& cached = years_[static_cast<std::size_t>(year - kFirstYear)];
  if (!cached) {
    auto table = std::make_unique<Year>();
    for (const NamedDay& named : EvaluateYear(file_, year)) {
      table->names.push_back(ToUtf8(named.name, CodePage::kWestern));
      table->slot[static_cast<std::size_t>((named.month - 1) * 31 + named.day - 1)] =
          static_cast<std::int16_t>(table->names.size());
    }
    cached = std::move(table);
  }
  return *cached;
}

}  // namespace sched
