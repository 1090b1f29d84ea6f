#include "holidays/sch_week_h_model.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_messages.h"
#include "tests/support/holiday_dialog_fakes.h"

namespace sched {
namespace {

using Calls = std::vector<std::string>;

constexpr CaptionLook kPlain{kColorButtonText, kColorWhite, false};
constexpr CaptionLook kRedUnfocused{kColorRed, kColorWhite, true};
constexpr CaptionLook kPlainFocused{kColorButtonText, kColorDarkGreen, true};
constexpr CaptionLook kRedFocused{kColorRed, kColorDarkGreen, true};

class SchWeekHModelTest : public ::testing::Test {
 protected:
  // The current date is Saturday 2026/11/21; Sunday and Saturday are weekly holidays.
  SchWeekHModelTest() {
    doc.CurYear = 2026;
    doc.CurMonth = 11;
    doc.CurDay = 21;
    doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  }

  ScheduleDocument doc;
  FakeMessages messages;
  RecordingHolidayHost host;
  SchWeekHModel model{doc, messages, host};
};

TEST_F(SchWeekHModelTest, LoadFocusesTheCurrentWeekdayAndPaintsHolidaysRed) {
  model.Form_Load();
  EXPECT_EQ(model.CurrentCaption(), 6);
  const std::array<CaptionLook, 7> expected{kRedUnfocused, kPlain, kPlain,     kPlain,
                                            kPlain,        kPlain, kRedFocused};
  EXPECT_EQ(model.CSCaption1(), expected);
  EXPECT_EQ(model.SavedWeekHoliday(), doc.WeekHoliday);
  EXPECT_EQ(model.WeekChanged(), 0);
  EXPECT_EQ(model.WeekDecided(), 0);
}

TEST_F(SchWeekHModelTest, KeysMoveTheFocusRoundTheWeekAndF1AsksForHelp) {
  const struct {
    int from;
    int key;
    bool used;
    int to;
  } cases[] = {{0, kKeyLeft, true, 6},  {6, kKeyRight, true, 0}, {3, kKeyLeft, true, 2},
               {3, kKeyRight, true, 4}, {4, kKeyF1, true, 4},    {4, 38, false, 4},
               {4, 40, false, 4},       {4, 13, false, 4}};
  for (const auto& c : cases) {
    model.Form_Load();
    model.CSCaption1_Click(c.from);
    host.calls.clear();
    EXPECT_EQ(model.Form_KeyDown(c.key), c.used) << c.from << " key " << c.key;
    EXPECT_EQ(model.CurrentCaption(), c.to) << c.from << " key " << c.key;
    EXPECT_EQ(host.calls, c.key == kKeyF1 ? Calls{"ShowHelp"} : Calls{});
  }
}

TEST_F(SchWeekHModelTest, ACaptionLosingTheFocusKeepsItsMarkOnlyWhenRed) {
  model.Form_Load();  // Saturday in focus
  model.CSCaption1_Click(2);
  EXPECT_EQ(model.CSCaption1()[6], kRedUnfocused);
  EXPECT_EQ(model.CSCaption1()[2], kPlainFocused);
  model.Form_KeyDown(kKeyRight);
  EXPECT_EQ(model.CSCaption1()[2], kPlain);
  EXPECT_EQ(model.CSCaption1()[3], kPlainFocused);
  model.CSCaption1_Click(7);  // no such caption
  model.CSCaption1_Click(-1);
  EXPECT_EQ(model.CurrentCaption(), 3);
}

TEST_F(SchWeekHModelTest, SelectDeselectTogglesTheLiveFlagOfTheCaptionInFocus) {
  model.Form_Load();
  model.CSCaption1_Click(3);
  model.SetReset_Click();
  EXPECT_EQ(doc.WeekHoliday, (WeekFlags{1, 0, 0, 1, 0, 0, 1}));
  EXPECT_EQ(model.CSCaption1()[3], kRedFocused);
  EXPECT_EQ(model.WeekChanged(), -1);
  model.Form_KeyDown(kKeyRight);
  EXPECT_EQ(model.CSCaption1()[3], kRedUnfocused);
  model.Form_KeyDown(kKeyLeft);
  model.SetReset_Click();
  EXPECT_EQ(doc.WeekHoliday, (WeekFlags{1, 0, 0, 0, 0, 0, 1}));
  EXPECT_EQ(model.CSCaption1()[3], kPlainFocused);
  EXPECT_EQ(model.WeekChanged(), -1);  // a change undone is still a change
  EXPECT_FALSE(doc.Dirty);
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(SchWeekHModelTest, CancelPutsTheFlagsBackAndLeavesTheScheduleAlone) {
  model.Form_Load();
  model.CSCaption1_Click(0);
  model.SetReset_Click();  // Sunday off
  ASSERT_EQ(doc.WeekHoliday[0], 0);
  model.Command1_Click();
  EXPECT_EQ(doc.WeekHoliday, (WeekFlags{1, 0, 0, 0, 0, 0, 1}));
  EXPECT_FALSE(doc.Dirty);
  EXPECT_EQ(model.WeekDecided(), -1);
  EXPECT_TRUE(model.Form_QueryUnload());
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(SchWeekHModelTest, OkKeepsTheFlagsMarksTheScheduleAndRepaints) {
  model.Form_Load();
  model.CSCaption1_Click(6);
  model.SetReset_Click();  // Saturday a workday
  model.Command2_Click();
  EXPECT_EQ(doc.WeekHoliday, (WeekFlags{1, 0, 0, 0, 0, 0, 0}));
  EXPECT_TRUE(doc.Dirty);
  EXPECT_EQ(host.calls, (Calls{"SetModifiedMark", "PaintWeekHeads 1000000", "RefillMonthView"}));
  EXPECT_TRUE(model.Form_QueryUnload());
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(SchWeekHModelTest, ClosingAnotherWayAfterAChangeAsksWhatToDo) {
  const struct {
    const char* what;
    MsgAnswer answer;
    bool closes;
    WeekFlags flags;
    bool dirty;
    Calls calls;
  } cases[] = {
      {"Yes keeps the change",
       MsgAnswer::Yes,
       true,
       {0, 0, 0, 0, 0, 0, 1},
       true,
       {"SetModifiedMark", "RefillMonthView"}},
      {"No puts the flags back", MsgAnswer::No, true, {1, 0, 0, 0, 0, 0, 1}, false, {}},
      {"Cancel keeps the dialog open", MsgAnswer::Cancel, false, {0, 0, 0, 0, 0, 0, 1}, false, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ScheduleDocument d = doc;
    FakeMessages m;
    RecordingHolidayHost h;
    SchWeekHModel dialog(d, m, h);
    dialog.Form_Load();
    dialog.CSCaption1_Click(0);
    dialog.SetReset_Click();
    m.QueueAnswer(c.answer);
    EXPECT_EQ(dialog.Form_QueryUnload(), c.closes);
    ASSERT_EQ(m.Shown().size(), 1u);
    EXPECT_EQ(m.Shown()[0].text, "Do you want to save the changes?");
    EXPECT_EQ(m.Shown()[0].title, "Setting Weekend");
    EXPECT_EQ(m.Shown()[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(m.Shown()[0].buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(d.WeekHoliday, c.flags);
    EXPECT_EQ(d.Dirty, c.dirty);
    EXPECT_EQ(h.calls, c.calls);
  }
}

TEST_F(SchWeekHModelTest, ClosingAfterRefusedCloseAsksAgainAndOkStillWorks) {
  model.Form_Load();
  model.SetReset_Click();
  messages.QueueAnswer(MsgAnswer::Cancel);
  ASSERT_FALSE(model.Form_QueryUnload());
  model.Command2_Click();
  EXPECT_TRUE(model.Form_QueryUnload());
  EXPECT_EQ(messages.Shown().size(), 1u);
  EXPECT_EQ(doc.WeekHoliday, (WeekFlags{1, 0, 0, 0, 0, 0, 0}));
}

TEST_F(SchWeekHModelTest, ClosingWithoutAChangeAsksNothing) {
  model.Form_Load();
  model.CSCaption1_Click(2);
  EXPECT_TRUE(model.Form_QueryUnload());
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_FALSE(doc.Dirty);
}

}  // namespace
}  // namespace sched
