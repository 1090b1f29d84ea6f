#include "holidays/sch_year_h_model.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_date_formatter.h"
#include "tests/support/case_file.h"
#include "tests/support/holiday_dialog_fakes.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

using Calls = std::vector<std::string>;
using testing::CaseRow;
using testing::ReadCases;

TEST(ChooseDayQuestion, OffersTheOppositeOfWhatTheDateIsNow) {
  for (const CaseRow& row : ReadCases("holidays/day-questions.txt", 6, 16)) {
    const DayQuestion q = ChooseDayQuestion(row.YesNo(0), row.YesNo(1), row.YesNo(2), row.YesNo(3));
    EXPECT_EQ(q.EditsOff, row.YesNo(4) ? 1 : 0) << row.where;
    EXPECT_EQ(std::string(q.statement), row[5]) << row.where;
  }
}

std::int32_t Bit(int day) {
  return static_cast<std::int32_t>(1u << (day - 1));
}

class SchYearHModelTest : public ::testing::Test {
 protected:
  SchYearHModelTest() { t.doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1}; }

  void SetDate(int year, int month, int day) {
    t.doc.CurYear = year;
    t.doc.CurMonth = month;
    t.doc.CurDay = day;
  }
  const AncYYRow& Year(int year) const {
    return t.doc.Tables.AncYY.At(FindYearRow(t.doc.Tables, year));
  }
  // Opens the dialog on the date and presses OK.
  void SetOnce(int year, int month, int day) {
    SetDate(year, month, day);
    SchYearHModel dialog(t.store, named, dates, host);
    dialog.Form_Load();
    dialog.Command1_Click();
  }

  TestStore t;
  // Names Friday 2026/11/20 and Sunday 2026/11/22.
  FakeHolidayCalendar calendar{{{20261120, "Founders' Day"}, {20261122, "Harvest Day"}}, 3};
  NamedHolidays named{&calendar, 3, -1};
  FakeDateFormatter dates;
  RecordingHolidayHost host;
  SchYearHModel model{t.store, named, dates, host};
};

TEST_F(SchYearHModelTest, LoadAsksAboutTheDateByItsWeekdayNameAndMarks) {
  for (const CaseRow& row : ReadCases("holidays/year-dialog-days.txt", 5, 8)) {
    SCOPED_TRACE(row.where + " " + row[0]);
    ASSERT_TRUE(row[2] == "none" || row[2] == "holiday" || row[2] == "workday");
    const int day = row.Int(1);
    const std::int32_t on = row[2] == "holiday" ? Bit(day) : 0;
    const std::int32_t off = row[2] == "workday" ? Bit(day) : 0;
    const int editsOff = row.YesNo(4) ? 1 : 0;
    t.store.ClearIndex();
    t.store.ResetHeader();
    t.doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
    const int yearRow = t.store.FindOrAddYear(2026);
    t.doc.Tables.AncYY.At(yearRow).HolidayOn[10] = on | Bit(1);
    t.doc.Tables.AncYY.At(yearRow).HolidayOff[10] = off | Bit(2);
    SetDate(2026, 11, day);
    model.Form_Load();
    EXPECT_EQ(model.Label2(), row[3] + "\n\rAre you sure?");
    EXPECT_EQ(model.EditsOff(), editsOff);
    EXPECT_EQ(model.DayIsWeekly(), editsOff == 1 ? 1 : 0);
    EXPECT_EQ(model.NewHolidayOn(), (on ^ Bit(day)) | Bit(1));
    EXPECT_EQ(model.NewHolidayOff(), (off ^ Bit(day)) | Bit(2));
    EXPECT_EQ(model.Yday(), "2026/11/" + std::to_string(day));
    EXPECT_EQ(model.CAL(), (CivilDate{2026, 11, day}));
  }
}

TEST_F(SchYearHModelTest, WithoutACountryFileNoDateIsNamed) {
  named.HolidayReady = 0;
  SetDate(2026, 11, 20);
  model.Form_Load();
  EXPECT_EQ(model.Label2(), "Setting a Holiday.\n\rAre you sure?");
}

TEST_F(SchYearHModelTest, OkStoresTheMaskThatAppliesInTheArraysAndTheYearRow) {
  const struct {
    int day;
    int column;  // of AncYY
    bool off;
  } cases[] = {{19, 11 + 2, false}, {21, 11 + 14, true}};
  for (const auto& c : cases) {
    SetDate(2026, 11, c.day);
    model.Form_Load();
    model.Command1_Click();
    const int row = FindYearRow(t.doc.Tables, 2026);
    EXPECT_EQ(t.doc.Tables.AncYY.Cell(row, c.column), std::to_string(Bit(c.day)));
    const YearMasks& shown = t.doc.ShownYearMasks;
    EXPECT_EQ((c.off ? shown.HolidayOff : shown.HolidayOn)[10], Bit(c.day));
    EXPECT_EQ((c.off ? shown.HolidayOn : shown.HolidayOff)[10], c.off ? Bit(19) : 0);
  }
  EXPECT_TRUE(t.doc.Dirty);
  EXPECT_EQ(host.calls, (Calls{"SetModifiedMark", "SetModifiedMark"}));
  // Only November of the one year changed.
  const AncYYRow& year = Year(2026);
  EXPECT_EQ(year.HolidayOn,
            (std::array<std::int32_t, 12>{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, Bit(19), 0}));
  EXPECT_EQ(year.HolidayOff,
            (std::array<std::int32_t, 12>{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, Bit(21), 0}));
}

TEST_F(SchYearHModelTest, ANamedWeekdaySetToWorkOffersHolidayNext) {
  SetDate(2026, 11, 20);
  model.Form_Load();
  ASSERT_EQ(model.Label2(), "Setting a Workday.\n\rAre you sure?");
  model.Command1_Click();
  SchYearHModel again(t.store, named, dates, host);
  again.Form_Load();
  EXPECT_EQ(again.Label2(), "Setting a Holiday.\n\rAre you sure?");
  again.Command1_Click();
  EXPECT_EQ(Year(2026).HolidayOn[10], 0);  // set back twice: the mask is empty again
  EXPECT_EQ(t.doc.Tables.YearCount, 1);    // the row stays until a save drops it
}

TEST_F(SchYearHModelTest, AYearWithoutARowGetsOneEvenWhenCancelled) {
  SetOnce(2025, 3, 4);
  ASSERT_EQ(t.doc.Tables.YearCount, 1);
  // The arrays still hold 2025's marks; the new year starts without any.
  t.doc.ShownYearMasks.HolidayOn[2] = -1;
  SetDate(2026, 3, 4);
  model.Form_Load();
  EXPECT_EQ(t.doc.Tables.YearCount, 2);
  EXPECT_EQ(t.doc.Tables.AncYY.At(0).NextYear, 1);
  EXPECT_EQ(Year(2026).FirstMonth, -1);
  EXPECT_EQ(t.doc.ShownYearMasks.HolidayOn, (std::array<std::int32_t, 12>{}));
  EXPECT_EQ(model.NewHolidayOn(), Bit(4));
  model.Command2_Click();
  EXPECT_EQ(t.doc.Tables.YearCount, 2);
  EXPECT_EQ(Year(2026).HolidayOn, (std::array<std::int32_t, 12>{}));
  EXPECT_EQ(Year(2025).HolidayOn[2], Bit(4));
}

TEST_F(SchYearHModelTest, TheLastDayOfAMonthUsesBit30AndNeverTheSignBit) {
  SetOnce(2099, 12, 31);  // a Thursday
  EXPECT_EQ(Year(2099).HolidayOn[11], 0x40000000);
  EXPECT_EQ(t.doc.Tables.AncYY.Cell(FindYearRow(t.doc.Tables, 2099), 14), "1073741824");
  SetOnce(1901, 1, 1);
  EXPECT_EQ(Year(1901).HolidayOn[0], 1);
}

TEST_F(SchYearHModelTest, F1AsksForHelpAndOtherKeysAreLeftAlone) {
  EXPECT_TRUE(model.Form_KeyDown(kKeyF1));
  EXPECT_FALSE(model.Form_KeyDown(kKeyLeft));
  EXPECT_EQ(host.calls, Calls{"ShowHelp"});
}

}  // namespace
}  // namespace sched
