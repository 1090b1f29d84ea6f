#include "appointments/repeat_model.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "platform/key_codes.h"

namespace sched {

void PrintTo(const RepeatNumber& n, std::ostream* out) {
  *out << n.value << " in " << n.min << ".." << n.max;
}

namespace {

using Field = RepeatNumberField;

std::string Text(const CivilDate& d) {
  return std::to_string(DateCode(d.year, d.month, d.day));
}

class RepeatModelTest : public ::testing::Test {
 protected:
  // A new item: no rule yet.
  void OpenNew(const CivilDate& start) {
    work = RepeatWork{};
    model.Open(start);
  }

  // An item of a series made on `madeOn`, opened on `start`.
  void OpenOnRule(std::uint16_t word, const CivilDate& start, int count, std::int32_t madeOn = 0,
                  std::int32_t lastCode = -1) {
    work = RepeatWork{};
    work.WorkRepeatKind = word;
    work.Decode(word);
    work.RepeatFree = 0;
    work.RepeatCount = static_cast<std::int16_t>(count);
    work.RepeatStartCode = madeOn;
    work.RepeatLastCode = lastCode;
    model.Open(start);
  }

  void ExpectNone() {
    EXPECT_EQ(model.CurrentOption(), kOptionNone);
    EXPECT_EQ(model.Controls().Option1, 0);
    EXPECT_FALSE(model.Controls().Frame1Visible);
    EXPECT_EQ(model.Controls().Label2, " No Repeat ");
  }

  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const MessageRequest& m : messages.Shown()) {
      EXPECT_EQ(m.title, "Scheduler");
      EXPECT_EQ(m.icon, MsgIcon::Exclamation);
      EXPECT_EQ(m.buttons, MsgButtons::Ok);
      texts.push_back(m.text);
    }
    return texts;
  }

  RepeatWork work;
  FakeMessages messages;
  FakeDateFormatter dates;
  RepeatModel model{work, messages, dates};
};

TEST_F(RepeatModelTest, ANewItemOpensWithoutARule) {
  OpenNew({2026, 11, 21});
  ExpectNone();
  EXPECT_FALSE(model.Loading());
  EXPECT_EQ(model.Controls().Label6[0], "2026/11/21(Sat)");
  EXPECT_EQ(model.StartDate(), (CivilDate{2026, 11, 21}));
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(model.Option1Enabled(i)) << i;
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(RepeatModelTest, EachKindStartsWithTwoOccurrencesOneUnitApart) {
  const struct {
    int button;
    const char* unit;
    const char* maxTimes;
    int countMax;
    int intervalMax;
    const char* end;
    bool monthOrYear;
  } cases[] = {
      {1, "day(s)", " time(s) - Max 31 times.", 31, 30, "2026/11/22(Sun)", false},
      {2, "week(s)", " time(s) - Max 52 times.", 52, 6, "2026/11/28(Sat)", false},
      {3, "month(s)", " time(s) - Max 12 times.", 12, 11, "2026/12/21(Mon)", true},
      {4, "year(s)", " time(s) - Max 10 times.", 10, 7, "2027/11/21(Sun)", true},
  };
  const char* units[] = {"", "day(s)", "week(s)", "month(s)", "year(s)"};
  for (const auto& c : cases) {
    OpenNew({2026, 11, 21});
    model.Option1_Click(c.button);
    const RepeatControls& r = model.Controls();
    EXPECT_EQ(model.CurrentOption(), c.button);
    EXPECT_TRUE(r.Frame1Visible);
    EXPECT_EQ(r.Label4, c.unit);
    EXPECT_EQ(r.Label5, c.maxTimes);
    EXPECT_EQ(r.ImNumber1, (RepeatNumber{2, 2, c.countMax})) << c.unit;
    EXPECT_EQ(r.ImNumber2, (RepeatNumber{1, 1, c.intervalMax})) << c.unit;
    EXPECT_EQ(r.Label6[1], c.end);
    EXPECT_EQ(r.Label2, std::string(" The item repeats every 1 ") + units[c.button] +
                            "\rfrom 2026/11/21(Sat) to " + c.end + ".");
    EXPECT_EQ(r.Option2Visible, c.monthOrYear) << c.unit;
    EXPECT_EQ(r.Option2, 0);
    EXPECT_FALSE(r.CombosEnabled);
    if (c.monthOrYear) {
      EXPECT_EQ(r.Combo1, 6);  // the start is the 3rd Saturday of its month
      EXPECT_EQ(r.Combo2, 2);
    }
  }
}

TEST_F(RepeatModelTest, KindsNearTheEndOfTheCalendarAreLimitedOrFallBackToNone) {
  const struct {
    CivilDate start;
    int button;
    int countMax;  // 0: not two occurrences fit, the kind falls back to None
    int intervalMax;
  } cases[] = {
      {{2099, 12, 31}, 1, 0, 0}, {{2099, 12, 30}, 1, 2, 1}, {{2099, 12, 20}, 1, 12, 11},
      {{2099, 12, 25}, 2, 0, 0}, {{2099, 12, 24}, 2, 2, 1}, {{2099, 6, 1}, 2, 31, 6},
      {{2099, 12, 1}, 3, 0, 0},  {{2099, 11, 30}, 3, 2, 1}, {{2099, 3, 15}, 3, 10, 9},
      {{2099, 12, 1}, 4, 0, 0},  {{2099, 1, 1}, 4, 0, 0},   {{2098, 12, 31}, 4, 2, 1},
      {{2095, 5, 5}, 4, 5, 4},   {{2092, 1, 1}, 4, 8, 7},   {{1901, 1, 1}, 4, 10, 7},
  };
  for (const auto& c : cases) {
    OpenNew(c.start);
    const std::string at = Text(c.start) + " option " + std::to_string(c.button);
    const bool fits = c.countMax > 0;
    EXPECT_EQ(model.Option1Enabled(c.button), fits) << at;
    work.CanOption(c.button) = !fits;
    model.Option1_Click(c.button);
    EXPECT_EQ(work.CanOption(c.button), fits) << at;
    if (!fits) {
      ExpectNone();
      continue;
    }
    EXPECT_EQ(model.CurrentOption(), c.button) << at;
    EXPECT_EQ(model.Controls().ImNumber1.max, c.countMax) << at;
    EXPECT_EQ(model.Controls().ImNumber2.max, c.intervalMax) << at;
  }
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(RepeatModelTest, ALargerCountShrinksTheIntervalAndALargerIntervalTheCount) {
  OpenNew({2099, 11, 1});
  model.Option1_Click(1);
  EXPECT_EQ(model.Controls().ImNumber2.max, 30);
  model.ImNumber_Change(Field::ImNumber1, 31);
  EXPECT_EQ(model.Controls().ImNumber2.max, 2);
  EXPECT_EQ(model.Controls().Label6[1], "2099/12/01(Tue)");
  model.ImNumber_Change(Field::ImNumber2, 2);
  EXPECT_EQ(model.Controls().Label6[1], "2099/12/31(Thu)");
  EXPECT_EQ(model.Controls().Label2,
            " The item repeats every 2 day(s)\rfrom 2099/11/01(Sun) to 2099/12/31(Thu).");
  model.ImNumber_Change(Field::ImNumber2, 3);
  EXPECT_EQ(Texts(), std::vector<std::string>{"Invalid input."});
  EXPECT_EQ(model.Controls().ImNumber2.value, 2);

  OpenNew({2090, 1, 1});
  model.Option1_Click(4);
  EXPECT_EQ(model.Controls().ImNumber1.max, 10);
  model.ImNumber_Change(Field::ImNumber2, 2);
  EXPECT_EQ(model.Controls().ImNumber1.max, 5);
  EXPECT_EQ(model.Controls().ImNumber2.max, 7);
}

TEST_F(RepeatModelTest, InvalidInputPutsTheBoxAtItsEdgeAndAsksForTheFocus) {
  const struct {
    Field field;
    int typed;
    bool valid;
    int value;
    const char* end;  // daily from 2026/11/21
  } cases[] = {
      {Field::ImNumber1, 40, false, 31, "2026/12/21(Mon)"},
      {Field::ImNumber1, 32, false, 31, "2026/12/21(Mon)"},
      {Field::ImNumber1, 1, false, 2, "2026/11/22(Sun)"},
      {Field::ImNumber1, 0, false, 2, "2026/11/22(Sun)"},
      {Field::ImNumber1, 31, true, 31, "2026/12/21(Mon)"},
      {Field::ImNumber2, 31, false, 30, "2026/12/21(Mon)"},
      {Field::ImNumber2, 0, false, 1, "2026/11/22(Sun)"},
      {Field::ImNumber2, 30, true, 30, "2026/12/21(Mon)"},
  };
  for (const auto& c : cases) {
    OpenNew({2026, 11, 21});
    model.Option1_Click(1);
    messages = FakeMessages{};
    model.ImNumber_Change(c.field, c.typed);
    const std::string what =
        (c.field == Field::ImNumber1 ? "count " : "interval ") + std::to_string(c.typed);
    EXPECT_EQ(Texts(),
              c.valid ? std::vector<std::string>{} : std::vector<std::string>{"Invalid input."})
        << what;
    const RepeatNumber& n =
        c.field == Field::ImNumber1 ? model.Controls().ImNumber1 : model.Controls().ImNumber2;
    EXPECT_EQ(n.value, c.value) << what;
    EXPECT_EQ(model.Controls().Label6[1], c.end) << what;
    EXPECT_EQ(model.TakeFocus(), c.valid ? std::nullopt : std::optional<Field>(c.field)) << what;
    EXPECT_EQ(model.TakeFocus(), std::nullopt);
  }
}

TEST_F(RepeatModelTest, KeysAndSpinButtonsStepInsideTheRange) {
  OpenNew({2026, 11, 21});
  model.Option1_Click(1);
  EXPECT_TRUE(model.ImNumber_KeyDown(Field::ImNumber1, kKeyDown));  // at the minimum
  EXPECT_EQ(model.Controls().ImNumber1.value, 2);
  EXPECT_TRUE(model.ImNumber_KeyDown(Field::ImNumber1, kKeyUp));
  EXPECT_EQ(model.Controls().ImNumber1.value, 3);
  EXPECT_EQ(model.Controls().Label6[1], "2026/11/23(Mon)");
  EXPECT_FALSE(model.ImNumber_KeyDown(Field::ImNumber1, kKeyEnter));
  EXPECT_FALSE(model.ImNumber_KeyDown(Field::ImNumber1, kKeyLeft));
  model.UpDown_Click(Field::ImNumber2, 1);
  EXPECT_EQ(model.Controls().ImNumber2.value, 2);
  EXPECT_EQ(model.Controls().Label6[1], "2026/11/25(Wed)");
  model.UpDown_Click(Field::ImNumber2, 29);  // past 30
  model.UpDown_Click(Field::ImNumber2, -2);  // below 1
  EXPECT_EQ(model.Controls().ImNumber2.value, 2);
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(RepeatModelTest, ByDayOfWeekUsesTheCombosAndMovesTheStart) {
  OpenNew({2026, 11, 21});
  model.Option1_Click(3);
  model.Combo1_Click(5);  // disabled while by day
  EXPECT_EQ(model.StartDate(), (CivilDate{2026, 11, 21}));
  model.Option2_Click(1);
  EXPECT_EQ(model.CurrentOption(), kOptionMonthlyWeekday);
  EXPECT_TRUE(model.Controls().CombosEnabled);
  EXPECT_EQ(model.Controls().Label6[1], "2026/12/19(Sat)");  // the 3rd Saturday

  model.Combo1_Click(5);  // the 3rd Friday
  EXPECT_EQ(model.StartDate(), (CivilDate{2026, 11, 20}));
  model.Combo2_Click(4);  // the last Friday
  EXPECT_EQ(model.StartDate(), (CivilDate{2026, 11, 27}));
  for (const CivilDate& d : model.Dates().ImDate2) EXPECT_EQ(d, (CivilDate{2026, 11, 27}));
  EXPECT_EQ(model.Controls().Label6[0], "2026/11/27(Fri)");
  EXPECT_EQ(model.Controls().Label6[1], "2026/12/25(Fri)");
  EXPECT_EQ(model.Controls().Label2,
            " The item repeats on Last Friday every 1 month(s)\r"
            "from 2026/11/27(Fri) to 2026/12/25(Fri).");

  ASSERT_TRUE(model.OKButton_Click());
  EXPECT_EQ(work.WorkRepeatKind, 0x207D);
  EXPECT_EQ(work.RepeatCode, kCodeMonthlyWeekday);
  EXPECT_EQ(work.RepeatStartCode, 20261127);
  EXPECT_EQ(work.RepeatLastCode, 20261225);
  EXPECT_EQ(model.StartDate(), (CivilDate{2026, 11, 27}));
}

TEST_F(RepeatModelTest, SwitchingBackToByDayKeepsTheStartsDay) {
  OpenNew({2026, 11, 21});
  model.Option1_Click(4);
  model.Option2_Click(0);  // already by day
  EXPECT_EQ(model.CurrentOption(), kOptionYearly);
  model.Option2_Click(1);
  EXPECT_EQ(model.CurrentOption(), kOptionYearlyWeekday);
  EXPECT_EQ(model.Controls().Label6[1], "2027/11/20(Sat)");  // the 3rd Saturday
  EXPECT_EQ(model.Controls().Label2,
            " The item repeats on 3rd Saturday in January every 1 month(s)\r"
            "from 2026/11/21(Sat) to 2027/11/20(Sat).");
  model.Option2_Click(0);
  EXPECT_EQ(model.CurrentOption(), kOptionYearly);
  EXPECT_FALSE(model.Controls().CombosEnabled);
  EXPECT_EQ(model.Controls().Label6[1], "2027/11/21(Sun)");

  model.Option2_Click(1);
  model.Option1_Click(0);
  model.Combo1_Click(2);  // no combo shows without a rule
  model.Option2_Click(1);
  ExpectNone();
  EXPECT_EQ(model.StartDate(), (CivilDate{2026, 11, 21}));
}

TEST_F(RepeatModelTest, OkWritesTheRuleToTheWorkingValues) {
  const struct {
    const char* name;
    CivilDate start;
    int button;
    bool byWeekday;
    int interval;
    int count;
    std::uint16_t word;
    int code;
    int option;
    std::int32_t last;
  } cases[] = {
      {"every 2 weeks", {2026, 11, 18}, 2, false, 2, 5, 0x102C, 4, 2, 20270113},
      {"every 3 days", {2026, 11, 21}, 1, false, 3, 4, 0x0880, 8, 1, 20261130},
      {"monthly on the 31st", {2024, 1, 31}, 3, false, 1, 2, 0x203E, 2, 3, 20240229},
      {"yearly on February 29", {2096, 2, 29}, 4, false, 1, 2, 0x40BA, 1, 4, 20970228},
      {"every 2 years on the 3rd Thursday of January",
       {2026, 1, 15},
       4,
       true,
       2,
       3,
       0x4C5C,
       50,
       6,
       20300117},
  };
  for (const auto& c : cases) {
    OpenNew(c.start);
    model.Option1_Click(c.button);
    if (c.byWeekday) model.Option2_Click(1);
    model.ImNumber_Change(Field::ImNumber2, c.interval);
    model.ImNumber_Change(Field::ImNumber1, c.count);
    ASSERT_TRUE(model.OKButton_Click()) << c.name;
    EXPECT_TRUE(model.Confirmed());
    EXPECT_EQ(work.WorkRepeatKind, c.word) << c.name;
    EXPECT_EQ(work.RepeatCode, c.code) << c.name;
    EXPECT_EQ(work.RepeatOption, c.option) << c.name;
    EXPECT_EQ(work.RepeatFree, 0) << c.name;
    EXPECT_EQ(work.RepeatCount, c.count) << c.name;
    EXPECT_EQ(work.RepeatStep, c.interval - 1) << c.name;
    EXPECT_EQ(work.RepeatStepUsed, c.interval - 1) << c.name;
    EXPECT_EQ(work.RepeatStartCode, DateCode(c.start.year, c.start.month, c.start.day));
    EXPECT_EQ(work.RepeatLastCode, c.last) << c.name;
    EXPECT_EQ(work.RepeatLastYear * 10000 + work.RepeatLastMonth * 100 + work.RepeatLastDay,
              c.last);
    EXPECT_TRUE(work.CanOption(c.option)) << c.name;
    model.Form_Unload();  // a confirmed dialog keeps what it wrote
    EXPECT_EQ(work.RepeatCount, c.count) << c.name;
  }
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(RepeatModelTest, OkOnNoneRemovesTheRule) {
  OpenOnRule(0x102C, {2026, 11, 18}, 5);
  model.Option1_Click(0);
  ExpectNone();
  ASSERT_TRUE(model.OKButton_Click());
  EXPECT_EQ(work.WorkRepeatKind, 0);
  EXPECT_EQ(work.RepeatCode, kCodeNone);
  EXPECT_EQ(work.RepeatOption, kOptionNone);
  EXPECT_EQ(work.RepeatFree, -1);
}

TEST_F(RepeatModelTest, ARuleOpenedWhereItWasMadeShowsItsNotedLastDate) {
  OpenOnRule(0x102C, {2026, 11, 18}, 5, 20261118, 20270106);
  const RepeatControls& r = model.Controls();
  EXPECT_EQ(model.CurrentOption(), kOptionWeekly);
  EXPECT_EQ(r.Option1, 2);
  EXPECT_TRUE(r.Frame1Visible);
  EXPECT_FALSE(r.Option2Visible);
  EXPECT_EQ(r.Label4, "week(s)");
  EXPECT_EQ(r.ImNumber1, (RepeatNumber{5, 2, 52}));
  EXPECT_EQ(r.ImNumber2, (RepeatNumber{2, 1, 6}));
  EXPECT_EQ(r.Label6[1], "2027/01/06(Wed)");
  EXPECT_EQ(r.Label2,
            " The item repeats every 2 week(s)\rfrom 2026/11/18(Wed) to 2027/01/06(Wed).");
  EXPECT_EQ(model.SavedCount(), 5);
  EXPECT_EQ(model.SavedCode(), kCodeWeekly);
}

TEST_F(RepeatModelTest, AMovedStartLowersTheCountAndCancelPutsItBack) {
  OpenOnRule(0x0840, {2099, 12, 20}, 10, 20991201);  // every 2 days, 10 times
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_EQ(work.RepeatCount, 6);
  EXPECT_EQ(model.Controls().ImNumber1, (RepeatNumber{6, 2, 6}));
  EXPECT_EQ(model.Controls().ImNumber2, (RepeatNumber{2, 1, 2}));
  EXPECT_EQ(model.Controls().Label6[1], "2099/12/30(Wed)");
  work.RepeatCode = kCodeWeekly;
  model.CancelButton_Click();
  EXPECT_FALSE(model.Confirmed());
  EXPECT_EQ(work.RepeatCount, 10);
  EXPECT_EQ(work.RepeatCode, kCodeDaily);
}

TEST_F(RepeatModelTest, ARuleThatNoLongerFitsSaysSoByKindAndOpensAtNone) {
  const struct {
    std::uint16_t word;
    CivilDate start;
    const char* message;
  } cases[] = {
      {0x0800, {2099, 12, 31}, "No more setting!."}, {0x1010, {2099, 12, 26}, "No more setting!"},
      {0x2014, {2099, 12, 10}, "No more setting"},   {0x40C2, {2099, 3, 1}, "No more setting!"},
      {0x207D, {2099, 12, 25}, "No more setting"},   {0x473D, {2099, 12, 25}, "No more setting!"},
  };
  for (const auto& c : cases) {
    messages = FakeMessages{};
    OpenOnRule(c.word, c.start, 3);
    EXPECT_EQ(Texts(), std::vector<std::string>{c.message}) << std::hex << c.word;
    ExpectNone();
    EXPECT_EQ(work.RepeatCount, 3);
  }
}

TEST_F(RepeatModelTest, ARuleByWeekdayKeepsItsLastWhereTheStartIsBothFourthAndLast) {
  const struct {
    std::uint16_t word;
    CivilDate start;
    int combo1;
    int combo2;
  } cases[] = {
      {0x207D, {2027, 2, 26}, 5, 4},  // the last Friday, here also the 4th
      {0x2055, {2027, 2, 26}, 5, 3},  // a 2nd Friday rule moved to a 4th Friday
      {0x207D, {2027, 3, 1}, 1, 0},   // moved to a Monday: the start's own position
      {0x2000, {2026, 1, 30}, 5, 4},  // a rule by date shows the start, a 5th, as the last
  };
  for (const auto& c : cases) {
    OpenOnRule(c.word, c.start, 2);
    EXPECT_EQ(model.Controls().Combo1, c.combo1) << std::hex << c.word << " " << Text(c.start);
    EXPECT_EQ(model.Controls().Combo2, c.combo2) << std::hex << c.word << " " << Text(c.start);
  }
}

TEST_F(RepeatModelTest, OkRefusesANumberOutsideItsRange) {
  OpenOnRule(0x0800, {2026, 11, 21}, 40, 20261121, 20261230);  // more times than a day allows
  EXPECT_EQ(model.Controls().ImNumber1.value, 40);
  EXPECT_FALSE(model.OKButton_Click());
  EXPECT_EQ(Texts(), std::vector<std::string>{"Invalid input."});
  EXPECT_EQ(model.TakeFocus(), Field::ImNumber1);
  EXPECT_EQ(model.Controls().ImNumber1.value, 31);
  EXPECT_FALSE(model.Confirmed());
  EXPECT_EQ(work.WorkRepeatKind, 0x0800);
  ASSERT_TRUE(model.OKButton_Click());
  EXPECT_EQ(work.RepeatCount, 31);
  EXPECT_EQ(work.RepeatLastCode, 20261221);
}

}  // namespace
}  // namespace sched
