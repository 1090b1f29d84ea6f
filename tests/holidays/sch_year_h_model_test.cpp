#include "holidays/sch_year_h_model.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "platform/fake/fake_date_formatter.h"
#include "tests/support/case_file.h"
#include "tests/support/holiday_dialog_fakes.h"
#include "tests/support/key_names.h"
#include "tests/support/test_store.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;
using testing::YesNo;

TEST(ChooseDayQuestion, OffersTheOppositeOfWhatTheDateIsNow) {
  for (const CaseRow& row : ReadCases("holidays/day-questions.txt", 6, 16)) {
    const DayQuestion q = ChooseDayQuestion(row.YesNo(0), row.YesNo(1), row.YesNo(2), row.YesNo(3));
    EXPECT_EQ(q.EditsOff, row.YesNo(4) ? 1 : 0) << row.where;
    EXPECT_EQ(std::string(q.statement), row[5]) << row.where;
  }
}

// The holiday dialog of a day as tests/data/holidays/year-dialog.txt drives it.
struct Year {
  TestStore t;
  FakeHolidayCalendar calendar{{{20261120, "Founders' Day"}, {20261122, "Harvest Day"}}, 3};
  NamedHolidays named{&calendar, 3, -1};
  FakeDateFormatter dates;
  RecordingHolidayHost host;
  std::unique_ptr<SchYearHModel> model;

  Year() {
    t.doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
    Open();
  }
  SchYearHModel& Open() {
    model = std::make_unique<SchYearHModel>(t.store, named, dates, host);
    return *model;
  }
  const AncYYRow& Row(int year) const {
    return t.doc.Tables.AncYY.At(FindYearRow(t.doc.Tables, year));
  }
};

// A mask as its days, "-" for none; bit 31 would be day 32.
std::string Days(std::int32_t mask) {
  std::string days;
  for (int day = 1; day <= 32; ++day) {
    if (static_cast<std::uint32_t>(mask) >> (day - 1) & 1u)
      days += (days.empty() ? "" : " ") + std::to_string(day);
  }
  return days.empty() ? "-" : days;
}

// The masks of a year's months, as "MONTH:DAYS" for each month with a day marked.
std::string Months(const std::array<std::int32_t, 12>& masks) {
  std::string text;
  for (int m = 0; m < 12; ++m) {
    if (masks[m] != 0)
      text += (text.empty() ? "" : " ") + std::to_string(m + 1) + ":" + Days(masks[m]);
  }
  return text;
}

// Days as a mask: "1 19", or "-" for none.
std::int32_t Mask(const std::string& days) {
  std::uint32_t mask = 0;
  std::istringstream in(days == "-" ? "" : days);
  for (int day; in >> day;) mask |= 1u << (day - 1);
  return static_cast<std::int32_t>(mask);
}

TEST(SchYearHModel, OpensWithTheQuestionForTheDayAndTheMarksAYesWouldLeave) {
  for (const CaseRow& row : ReadCases("holidays/day-dialog-opens.txt", 7, 8)) {
    Year y;
    const CivilDate date = row.Date(2);
    AncYYRow& year = y.t.doc.Tables.AncYY.Edit(y.t.store.FindOrAddYear(date.year));
    year.HolidayOn[date.month - 1] = Mask(row[0]);
    year.HolidayOff[date.month - 1] = Mask(row[1]);
    y.t.doc.SetShownDate(date);
    y.Open().Form_Load();
    EXPECT_EQ(y.model->Label2(), row[3] + "\n\rAre you sure?") << row.where;
    EXPECT_EQ(y.model->EditsOff(), row.YesNo(4) ? 1 : 0) << row.where;
    EXPECT_EQ(y.model->DayIsWeekly(), row.YesNo(4) ? 1 : 0) << row.where;
    EXPECT_EQ(Days(y.model->NewHolidayOn()), row[5]) << row.where;
    EXPECT_EQ(Days(y.model->NewHolidayOff()), row[6]) << row.where;
  }
}

using S = Year&;
using R = const CaseRow&;

testing::Trace<Year> YearDialogTrace() {
  testing::Trace<Year> t;
  const auto n = [](int value) { return std::to_string(value); };
  t.steps["date"] = [](S y, R r) { y.t.doc.SetShownDate(r.Date(1)); };
  t.steps["unnamed"] = [](S y, R) { y.named.HolidayReady = 0; };
  // The masks the month view shows, written over.
  t.steps["shown-mask"] = [](S y, R r) {
    y.t.doc.ShownYearMasks.HolidayOn[r.Int(1) - 1] = r.Int(2);
  };
  t.steps["load"] = [](S y, R) { y.Open().Form_Load(); };
  t.steps["ok"] = [](S y, R) { y.model->Command1_Click(); };
  t.steps["cancel"] = [](S y, R) { y.model->Command2_Click(); };
  t.steps["key"] = [](S y, R r) {
    EXPECT_EQ(y.model->Form_KeyDown(testing::KeyNamed(r[1])), r.YesNo(2)) << r.where;
  };

  t.looks["question"] = [](S y, auto&) { return y.model->Label2(); };
  t.looks["new-on"] = [](S y, auto&) { return Days(y.model->NewHolidayOn()); };
  t.looks["yday"] = [](S y, auto&) { return y.model->Yday(); };
  t.looks["calendar"] = [n](S y, auto&) {
    const CivilDate d = y.model->CAL();
    return n(d.year) + "/" + n(d.month) + "/" + n(d.day);
  };
  t.looks["year-on"] = [](S y, auto& year) { return Months(y.Row(std::stoi(year)).HolidayOn); };
  t.looks["year-off"] = [](S y, auto& year) { return Months(y.Row(std::stoi(year)).HolidayOff); };
  t.looks["shown-on"] = [](S y, auto&) { return Months(y.t.doc.ShownYearMasks.HolidayOn); };
  t.looks["shown-off"] = [](S y, auto&) { return Months(y.t.doc.ShownYearMasks.HolidayOff); };
  // A cell of the current year's row of AncYY.
  t.looks["cell"] = [](S y, auto& column) {
    return y.t.doc.Tables.AncYY.Cell(FindYearRow(y.t.doc.Tables, y.t.doc.CurYear),
                                     std::stoi(column));
  };
  t.looks["years"] = [n](S y, auto&) { return n(y.t.doc.Tables.YearCount); };
  t.looks["next-year"] = [n](S y, auto& row) {
    return n(y.t.doc.Tables.AncYY.At(std::stoi(row)).NextYear);
  };
  t.looks["first-month"] = [n](S y, auto& year) { return n(y.Row(std::stoi(year)).FirstMonth); };
  t.looks["dirty"] = [](S y, auto&) { return YesNo(y.t.doc.Dirty); };
  t.looks["calls"] = [](S y, auto&) { return y.host.NewCalls(); };
  return t;
}

TEST(SchYearHModel, FollowsTheTraces) {
  YearDialogTrace().Run("holidays/year-dialog.txt", 5, 60);
}

}  // namespace
}  // namespace sched
