#pragma once

#include <string>

#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_holiday_calendar.h"
#include "platform/fake/fake_messages.h"
#include "tests/support/test_store.h"
#include "views/calendar_views.h"

namespace sched {

// The views over a test store, with named holidays, a fixed date form and a settable clock.
struct ViewsFixture {
  TestStore s;
  FakeHolidayCalendar calendar;
  NamedHolidays holidays{&calendar, 1, -1};
  FakeDateFormatter dates;
  FakeClock clock{{2010, 6, 15, 9, 0, 0}};
  FakeMessages messages;
  CalendarViews views{{s.doc, holidays, dates, clock, messages}};

  void Insert(int year, int month, int day, int start, int end, const std::string& title) {
    s.store.InsertRecord(MakeItem(year, month, day, start, end, title));
  }
  // Shows a month on the month tab as a change of month does: day 1 selected.
  void ShowMonth(int year, int month) {
    s.doc.SetShownDate({year, month, 1});
    views.Combo1Index = month - 1;
    views.Combo2Index = year - kFirstYear;
    views.FillMonthGrid();
    views.FillMonthLists();
    views.UpdateDeleteMenus();
  }
  // Sets the masks of a year's row, making the row.
  void SetMasks(int year, int month, std::int32_t on, std::int32_t off) {
    const int row = s.store.FindOrAddYear(year);
    s.doc.Tables.AncYY.Edit(row).HolidayOn[static_cast<std::size_t>(month - 1)] = on;
    s.doc.Tables.AncYY.Edit(row).HolidayOff[static_cast<std::size_t>(month - 1)] = off;
  }
  const MonthCell& Cell(int c) const { return views.Month().Cell(c); }
};

constexpr std::int32_t Bit(int day) {
  return static_cast<std::int32_t>(1u << (day - 1));
}

}  // namespace sched
