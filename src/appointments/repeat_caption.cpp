#include "appointments/repeat_caption.h"

#include <array>
#include <string>

#include "appointments/repeat_rule.h"
#include "appointments/texts.h"
#include "store/date_text.h"

namespace sched {

namespace t = appointment_texts;

namespace {

std::string UnitText(RepeatUnit unit) {
  return std::string(" ") + t::kUnits[static_cast<std::size_t>(unit)];
}

}  // namespace

std::string RepeatDateText(const DateFormatter& dates, const CivilDate& date) {
  return FormatDateWeekday(dates, std::to_string(date.year), std::to_string(date.month),
                           std::to_string(date.day), WeekdayOf(date));
}

std::string MonthNameOfDayCount(int days) {
  static constexpr std::array<const char*, 12> kMonths = {
      "January", "February", "March",     "April",   "May",      "June",
      "July",    "August",   "September", "October", "November", "December"};
  const CivilDate date = AddDays({1899, 12, 30}, days);
  return kMonths[static_cast<std::size_t>(date.month - 1)];
}

std::optional<std::string> BuildRepeatCaption(int option, const RepeatSentenceParts& p) {
  if (option < kOptionNone || option > kOptionYearlyWeekday) return std::nullopt;
  if (option == kOptionNone) return std::string(t::kNoRepeat);

  const std::string span = std::string("\r") + t::kFrom + p.start + t::kTo + p.end + ".";
  if (option <= kOptionYearly) {
    return t::kRepeatsEvery + p.interval + UnitText(UnitOfOption(option)) + span;
  }
  std::string text = std::string(t::kRepeatsOn) +
                     t::kOrdinals[static_cast<std::size_t>(p.ordinalIndex)] + " " +
                     t::kWeekdays[static_cast<std::size_t>(p.weekdayIndex)];
  // Two oddities of the yearly sentence are kept on purpose: it names its month as the month
  // number reads when taken for a day count (1 is December, 2 to 12 are January), and it
  // counts its years in month(s).
  if (option == kOptionYearlyWeekday) text += t::kIn + MonthNameOfDayCount(p.month);
  return text + t::kEvery + p.interval + UnitText(RepeatUnit::Month) + span;
}

}  // namespace sched
