#include "views/delete_menus.h"

#include "store/chains.h"
#include "views/month_view_model.h"

namespace sched {
namespace {

bool LiveInDays(const SchDatCTL& ctl, int monthRow, int firstDay, int lastDay) {
  for (int day = firstDay; day <= lastDay; ++day) {
    if (FirstLiveRow(ctl, GetDayHead(ctl, monthRow, day)) != -1) return true;
  }
  return false;
}

// Calls `visit(monthRow)` for each month of the year's chain until it returns true.
template <typename Visit>
bool AnyMonth(const SchDatCTL& ctl, const AncYYRow& year, Visit visit) {
  for (int monthRow : MonthChain(ctl.AncMM, year.FirstMonth)) {
    if (visit(monthRow)) return true;
  }
  return false;
}

bool MaskOfMonth(const AncYYRow& year, int month) {
  const auto index = static_cast<std::size_t>(month - 1);
  return year.HolidayOn[index] != 0 || year.HolidayOff[index] != 0;
}

// `direction` is 1 for data after the date, -1 for data before it.
bool HasDataBeyond(const SchDatCTL& ctl, const CivilDate& date, int direction) {
  if (ctl.AncYY.IsEmpty()) return false;
  for (int row = 0; row < ctl.AncYY.Rows(); ++row) {
    const AncYYRow& year = ctl.AncYY.At(row);
    const int yearOrder = (year.Year - date.year) * direction;
    if (yearOrder < 0) continue;
    if (yearOrder > 0) {
      if (year.HasHolidayMask()) return true;
      if (AnyMonth(ctl, year, [&](int m) { return LiveInDays(ctl, m, 1, 31); })) return true;
      continue;
    }
    for (int month = 1; month <= 12; ++month) {
      if ((month - date.month) * direction > 0 && MaskOfMonth(year, month)) return true;
    }
    const bool found = AnyMonth(ctl, year, [&](int m) {
      const int monthOrder = (ctl.AncMM.At(m).Month - date.month) * direction;
      if (monthOrder > 0) return LiveInDays(ctl, m, 1, 31);
      if (monthOrder < 0) return false;
      return direction > 0 ? LiveInDays(ctl, m, date.day + 1, 31)
                           : LiveInDays(ctl, m, 1, date.day - 1);
    });
    if (found) return true;
  }
  return false;
}

}  // namespace

bool YearHasData(const SchDatCTL& ctl, int year) {
  const int yearRow = FindYearRow(ctl, year);
  if (yearRow == -1) return false;
  return AnyMonth(ctl, ctl.AncYY.At(yearRow), [&](int m) { return LiveInDays(ctl, m, 1, 31); });
}

bool MonthHasLiveData(const SchDatCTL& ctl, int year, int month) {
  const int yearRow = FindYearRow(ctl, year);
  if (yearRow == -1) return false;
  if (MaskOfMonth(ctl.AncYY.At(yearRow), month)) return true;
  const int monthRow = FindMonthRow(ctl, yearRow, month);
  return monthRow != -1 && LiveInDays(ctl, monthRow, 1, 31);
}

bool HasDataAfter(const SchDatCTL& ctl, const CivilDate& date) {
  return HasDataBeyond(ctl, date, 1);
}

bool HasDataBefore(const SchDatCTL& ctl, const CivilDate& date) {
  return HasDataBeyond(ctl, date, -1);
}

}  // namespace sched
