#include "appointments/sch_edit_model.h"

#include <gtest/gtest.h>

#include <functional>

#include "appointments/texts.h"
#include "core/app_texts.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "platform/key_codes.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

namespace t = appointment_texts;

// Shows the repeat dialog by running what the test tells the user to do in it.
class ScriptedRepeatHost : public SchEditHost {
 public:
  std::function<void(RepeatModel&)> user = [](RepeatModel&) {};
  int shown = 0;
  void ShowRepeatDialog(RepeatModel& repeat) override {
    ++shown;
    user(repeat);
  }
};

class SchEditModelTest : public ::testing::Test {
 protected:
  SchEditModelTest() {
    fake.clock.Set({2026, 11, 23, 10, 0, 0});
    ShowDate({2026, 11, 23});
  }

  void ShowDate(const CivilDate& date) {
    fake.doc.CurYear = date.year;
    fake.doc.CurMonth = date.month;
    fake.doc.CurDay = date.day;
  }
  CivilDate Shown() const { return {fake.doc.CurYear, fake.doc.CurMonth, fake.doc.CurDay}; }

  SchEditModel Model(std::vector<std::string> sounds = {"SCHALARM", "BELL"}) {
    return SchEditModel(
        SchEditServices{fake.store, messages, fake.clock, dates, host, std::move(sounds)});
  }

  // The live rows of the schedule, in the order they were written.
  std::vector<SchDatRow> LiveRows() const {
    std::vector<SchDatRow> rows;
    const auto& list = fake.doc.Tables.SchDatList;
    for (int row = 0; row < list.Rows(); ++row) {
      if (list.At(row).IsLive()) rows.push_back(list.At(row));
    }
    return rows;
  }

  // Writes a new item through the dialog: a title, and the dates when given.
  void AddItem(const std::string& title, const CivilDate& start, const CivilDate& end) {
    SchEditModel model = Model();
    model.OpenNew();
    model.Text1_Change(title);
    model.ImDate1_Change(0, start);
    model.ImDate1_Change(1, end);
    ASSERT_TRUE(model.SchEditOK_Click());
  }

  void ExpectMessage(const std::string& text, MsgButtons buttons = MsgButtons::Ok) const {
    ASSERT_FALSE(messages.Shown().empty());
    const MessageRequest& m = messages.Shown().back();
    EXPECT_EQ(m.text, text);
    EXPECT_EQ(m.title, kAppTitle);
    EXPECT_EQ(m.icon, MsgIcon::Exclamation);
    EXPECT_EQ(m.buttons, buttons);
  }

  FakeStore fake;
  FakeMessages messages;
  FakeDateFormatter dates;
  ScriptedRepeatHost host;
};

TEST(TimeCombo, HasTheHalfHoursAndTheLastMinute) {
  const auto& items = TimeComboItems();
  ASSERT_EQ(items.size(), 49u);
  EXPECT_EQ(items[0].text, "12:00 AM");
  EXPECT_EQ(items[1].text, "12:30 AM");
  EXPECT_EQ(items[24].text, "12:00 PM");
  EXPECT_EQ(items[47].text, "11:30 PM");
  EXPECT_EQ(items[47].minutes, 1410);
  EXPECT_EQ(items[48].text, "11:59 PM");
  EXPECT_EQ(items[48].minutes, 1439);
}

TEST(TimeCombo, ParsesTypedTimes) {
  const struct {
    const char* text;
    std::optional<int> minutes;
  } cases[] = {
      {"9:15", 555},   {" 09:15 ", 555},  {"23:59", 1439},  {"0:00", 0},
      {"12:00 AM", 0}, {"12:30 PM", 750}, {"1:05 pm", 785}, {"11:59 PM", 1439},
      {"24:00", {}},   {"9:60", {}},      {"13:00 PM", {}}, {"9", {}},
      {":30", {}},     {"9:5", {}},       {"ab:cd", {}},    {"", {}},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseTimeText(c.text), c.minutes) << c.text;
}

TEST_F(SchEditModelTest, NewItemStartsAtTheNextHalfHourForHalfAnHour) {
  const struct {
    int hour, minute;
    int start, end;
  } cases[] = {
      {10, 0, 630, 660},    {10, 30, 630, 660}, {10, 31, 660, 690},
      {23, 15, 1410, 1439}, {23, 45, 0, 30},    {0, 0, 30, 60},
  };
  for (const auto& c : cases) {
    fake.clock.Set({2026, 11, 23, c.hour, c.minute, 0});
    SchEditModel model = Model();
    model.OpenNew();
    const SchEditControls& shown = model.Controls();
    EXPECT_EQ(shown.DTPicker2[0], c.start) << c.hour << ":" << c.minute;
    EXPECT_EQ(shown.DTPicker2[1], c.end) << c.hour << ":" << c.minute;
    EXPECT_EQ(TimeComboItems()[static_cast<std::size_t>(shown.Combo1[1])].minutes, c.end);
  }
}

TEST_F(SchEditModelTest, NewItemOpensOnTheShownDateWithoutAlarm) {
  SchEditModel model = Model();
  model.OpenNew();
  const SchEditControls& c = model.Controls();
  EXPECT_EQ(c.Caption, "Appointment - New");
  EXPECT_EQ(c.ImDate1[0], CivilDate(2026, 11, 23));
  EXPECT_EQ(c.ImDate1[1], CivilDate(2026, 11, 23));
  EXPECT_FALSE(c.Check1);
  EXPECT_FALSE(c.ImNumber1Enabled);
  EXPECT_FALSE(c.SoundEnabled);
  EXPECT_EQ(c.SoundName, "SCHALARM");
  EXPECT_TRUE(c.Command1Enabled);
  EXPECT_FALSE(c.PreviewEnabled);
  EXPECT_EQ(model.ChangedFlag, 0);
  EXPECT_EQ(model.IsNewItem, -1);
}

TEST_F(SchEditModelTest, OkWithNothingChangedWritesNothing) {
  SchEditModel model = Model();
  model.OpenNew();
  EXPECT_TRUE(model.SchEditOK_Click());
  EXPECT_FALSE(model.Written());
  EXPECT_EQ(fake.doc.Tables.RowCount, 0);
}

TEST_F(SchEditModelTest, EmptyTitleIsSavedAsNoTitle) {
  SchEditModel model = Model();
  model.OpenNew();
  model.Check2_Click(true);
  ASSERT_TRUE(model.SchEditOK_Click());
  ASSERT_EQ(LiveRows().size(), 1u);
  EXPECT_EQ(LiveRows()[0].Title, "No Title");
  EXPECT_EQ(LiveRows()[0].Private, 1);
  EXPECT_EQ(LiveRows()[0].StartTime, 630);
  EXPECT_EQ(model.NewRow(), 0);
}

TEST_F(SchEditModelTest, SpanOfThirtyDaysIsOneRecordADayAndThirtyOneIsRefused) {
  AddItem("Trip", {2000, 1, 1}, {2000, 1, 30});
  const std::vector<SchDatRow> rows = LiveRows();
  ASSERT_EQ(rows.size(), 30u);
  EXPECT_EQ(rows.front().RepeatKind, kMultiDayKind);
  EXPECT_EQ(rows.back().Day, 30);
  EXPECT_EQ(rows.front().StartTime, -1);

  SchEditModel model = Model();
  model.OpenNew();
  model.ImDate1_Change(0, CivilDate{2000, 3, 1});
  model.ImDate1_Change(1, CivilDate{2000, 3, 31});
  EXPECT_FALSE(model.Controls().Command1Enabled);
  EXPECT_FALSE(model.SchEditOK_Click());
  ExpectMessage("A schedule can overlap 30 days at most.");
  EXPECT_EQ(model.Controls().ImDate1[1], CivilDate(2000, 3, 1));
  EXPECT_EQ(model.TakeFocus(), EditFocus::ImDate1End);
  EXPECT_EQ(LiveRows().size(), 30u);
}

TEST_F(SchEditModelTest, TheEndDateFollowsTheStartUpToTheLastDay) {
  SchEditModel model = Model();
  model.OpenNew();
  model.ImDate1_Change(1, CivilDate{2026, 11, 25});
  model.ImDate1_Change(0, CivilDate{2026, 11, 30});
  EXPECT_EQ(model.Controls().ImDate1[1], CivilDate(2026, 12, 2));
  model.ImDate1_Change(0, CivilDate{2099, 12, 30});
  EXPECT_EQ(model.Controls().ImDate1[1], CivilDate(2099, 12, 31));
  model.ImDate1_Change(1, CivilDate{2099, 12, 1});
  EXPECT_EQ(model.Controls().ImDate1[1], CivilDate(2099, 12, 30));
  EXPECT_TRUE(model.Controls().Command1Enabled);
}

TEST_F(SchEditModelTest, AMissingDateIsAskedFor) {
  for (int index : {0, 1}) {
    SchEditModel model = Model();
    model.OpenNew();
    model.ImDate1_Change(index, std::nullopt);
    EXPECT_FALSE(model.SchEditOK_Click());
    ExpectMessage("Specify the date.");
    EXPECT_EQ(model.TakeFocus(), index == 0 ? EditFocus::ImDate1Start : EditFocus::ImDate1End);
  }
  EXPECT_EQ(fake.doc.Tables.RowCount, 0);
}

TEST_F(SchEditModelTest, TheEndTimeFollowsTheStartUntilTheUserSetsIt) {
  SchEditModel model = Model();
  model.OpenNew();            // 10:30 to 11:00
  model.Combo1_Click(0, 20);  // 10:00
  EXPECT_EQ(model.Controls().DTPicker2[1], 630);
  model.Combo1_Click(1, 24);  // 12:00: a span of two hours
  model.Combo1_Click(0, 22);  // 11:00, still before the end
  EXPECT_EQ(model.Controls().DTPicker2[1], 720);
  model.Combo1_Text(0, "12:15");  // past the end: the end keeps the span
  EXPECT_EQ(model.Controls().DTPicker2[1], 855);
  EXPECT_EQ(model.TimeText(0), "12:15 PM");
  EXPECT_EQ(model.Controls().Combo1[0], 25);  // shown on the next half hour
  model.Combo1_Text(1, "11:00");              // before the start: the start keeps the span
  EXPECT_EQ(model.Controls().DTPicker2[0], 540);
  model.Combo1_Click(0, 48);
  EXPECT_EQ(model.Controls().DTPicker2[1], 1439);
  ASSERT_TRUE(model.SchEditOK_Click());
  EXPECT_EQ(LiveRows()[0].StartTime, 1439);
  EXPECT_EQ(LiveRows()[0].EndTime, 1439);
}

TEST_F(SchEditModelTest, AllDayClearsTheTimesAndTheAlarm) {
  SchEditModel model = Model();
  model.OpenNew();
  model.Check1_Click(true);
  EXPECT_TRUE(model.Controls().ImNumber1Enabled);
  EXPECT_TRUE(model.Controls().SoundEnabled);
  model.Check3_Click(true);
  const SchEditControls& c = model.Controls();
  EXPECT_FALSE(c.DTPicker2[0].has_value());
  EXPECT_EQ(c.Combo1[0], -1);
  EXPECT_FALSE(c.TimesEnabled);
  EXPECT_FALSE(c.Check1);
  EXPECT_FALSE(c.Check1Enabled);
  EXPECT_FALSE(c.ImNumber1Enabled);
  EXPECT_FALSE(c.SoundEnabled);
  ASSERT_TRUE(model.SchEditOK_Click());
  EXPECT_EQ(LiveRows()[0].StartTime, -1);
  EXPECT_EQ(LiveRows()[0].AlarmOn, 0);

  SchEditModel again = Model();
  again.OpenNew();
  again.Check3_Click(true);
  again.Check3_Click(false);
  EXPECT_EQ(again.Controls().DTPicker2[0], 630);
  EXPECT_TRUE(again.Controls().TimesEnabled);
  EXPECT_TRUE(again.Controls().Check1Enabled);
}

TEST_F(SchEditModelTest, AlarmMinutesStayInRangeAndStepByFive) {
  SchEditModel model = Model();
  model.OpenNew();
  model.Check1_Click(true);
  model.ImNumber1_Change(1000);
  EXPECT_EQ(model.Controls().ImNumber1, 999);
  EXPECT_TRUE(model.ImNumber1_KeyDown(kKeyUp));
  EXPECT_EQ(model.Controls().ImNumber1, 999);
  EXPECT_TRUE(model.ImNumber1_KeyDown(kKeyDown));
  EXPECT_EQ(model.Controls().ImNumber1, 994);
  model.ImNumber1_Change(-3);
  EXPECT_EQ(model.Controls().ImNumber1, 0);
  EXPECT_FALSE(model.ImNumber1_KeyDown(kKeyLeft));
  model.ImNumber1_Change(15);
  model.Sound_Change("bell");
  ASSERT_TRUE(model.SchEditOK_Click());
  const SchDatRow row = LiveRows()[0];
  EXPECT_EQ(row.AlarmOn, 1);
  EXPECT_EQ(row.AlarmLead, 15);
  EXPECT_EQ(row.AlarmSound, "BELL");
}

TEST_F(SchEditModelTest, AlarmWithoutSoundsIsRefused) {
  SchEditModel model = Model({});
  model.OpenNew();
  model.Check1_Click(true);
  ExpectMessage("Cannot find sound file.");
  EXPECT_FALSE(model.Controls().Check1);
  EXPECT_FALSE(model.Controls().ImNumber1Enabled);
}

TEST_F(SchEditModelTest, ASoundNameLongerThanEightBytesIsRefused) {
  SchEditModel model = Model();
  model.OpenNew();
  model.Sound_Change("MELODIES");
  EXPECT_TRUE(model.Sound_LostFocus());
  model.Sound_Change("MELODIE\xC3\xA9");  // 8 characters, 8 bytes in the file's code page
  EXPECT_TRUE(model.Sound_LostFocus());
  model.Sound_Change("LONGMELODY");
  EXPECT_FALSE(model.Sound_LostFocus());
  ExpectMessage("Input string is too long.\r\nMaximum string length is 8 chacters");
  EXPECT_EQ(model.TakeFocus(), EditFocus::Sound);
  EXPECT_EQ(model.TakeFocus(), std::nullopt);
}

TEST_F(SchEditModelTest, TitleAndPlaceTakeFiftySixCharactersAndTheMemoMore) {
  SchEditModel model = Model();
  model.OpenNew();
  model.Text1_Change(std::string(60, 'a'));
  EXPECT_EQ(model.Controls().Text1, std::string(56, 'a'));
  model.Text3_Change(std::string(57, 'p'));
  EXPECT_EQ(model.Controls().Text3.size(), 56u);
  std::string umlauts;
  for (int i = 0; i < 60; ++i) umlauts += "\xC3\xBC";
  model.Text1_Change(umlauts);
  EXPECT_EQ(model.Controls().Text1.size(), 112u);
  model.Text2_Change(std::string(1030, 'm') + "\r\n");
  EXPECT_EQ(model.Controls().Text2.size(), 1025u);
}

TEST_F(SchEditModelTest, CancelAsksAboutChangesAndKeepsTheShownDate) {
  const struct {
    MsgAnswer answer;
    bool closes;
    int rows;
  } cases[] = {{MsgAnswer::No, true, 0}, {MsgAnswer::Cancel, false, 0}, {MsgAnswer::Yes, true, 1}};
  for (const auto& c : cases) {
    FakeStore fresh;
    SchEditModel model(SchEditServices{fresh.store, messages, fake.clock, dates, host, {}});
    fresh.doc.CurYear = 2026, fresh.doc.CurMonth = 11, fresh.doc.CurDay = 23;
    model.OpenNew();
    model.Text1_Change("Dentist");
    messages.QueueAnswer(c.answer);
    EXPECT_EQ(model.SchEditCAN_Click(), c.closes);
    ExpectMessage("Do you want to save the changes?", MsgButtons::YesNoCancel);
    EXPECT_EQ(fresh.doc.Tables.RowCount, c.rows);
    if (c.answer == MsgAnswer::Cancel) {
      EXPECT_EQ(model.TakeFocus(), EditFocus::Text1);
    }
  }
  const std::size_t asked = messages.Shown().size();
  SchEditModel untouched = Model();
  untouched.OpenNew();
  EXPECT_TRUE(untouched.SchEditCAN_Click());
  EXPECT_EQ(messages.Shown().size(), asked);
}

TEST_F(SchEditModelTest, ModifyingAnItemReplacesItAndKeepsItsIdentity) {
  AddItem("Lunch", {2026, 11, 23}, {2026, 11, 23});
  const SchDatRow old = LiveRows()[0];

  SchEditModel model = Model();
  model.OpenModify(0);
  EXPECT_EQ(model.Controls().Caption, "Appointment - Lunch");
  EXPECT_EQ(model.Controls().Text1, "Lunch");
  EXPECT_EQ(model.IsNewItem, 0);
  model.Text3_Change("Canteen");
  ASSERT_TRUE(model.SchEditOK_Click());
  const std::vector<SchDatRow> rows = LiveRows();
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].Place, "Canteen");
  EXPECT_EQ(rows[0].SubNo, old.SubNo);
  EXPECT_EQ(static_cast<std::uint32_t>(rows[0].Stamp),
            static_cast<std::uint32_t>(old.Stamp) | 0xC0000000u);
  EXPECT_EQ(model.NewRow(), 1);
}

TEST_F(SchEditModelTest, ARecordWhoseSoundIsGoneLosesItsAlarm) {
  SchRecord record;
  record.Year = 2026, record.Month = 11, record.Day = 23;
  record.EndYear = 2026, record.EndMonth = 11, record.EndDay = 23;
  record.StartTime = 600, record.EndTime = 660;
  record.Title = "Call";
  record.AlarmOn = 1;
  record.AlarmLead = 10;
  record.AlarmSound = "GONE";
  fake.store.InsertRecord(record);

  SchEditModel model = Model();
  model.OpenModify(0);
  ExpectMessage("Cannot find sound file.\r\nAlarm setting clear.");
  EXPECT_FALSE(model.Controls().Check1);
  EXPECT_EQ(model.Record.AlarmOn, 0);
  EXPECT_EQ(model.ChangedFlag, 0);
}

TEST_F(SchEditModelTest, AnItemOverSeveralDatesOpensOnItsWholeSpan) {
  AddItem("Fair", {2026, 11, 20}, {2026, 11, 24});
  SchEditModel model = Model();
  model.OpenModify(2);
  EXPECT_EQ(model.Controls().ImDate1[0], CivilDate(2026, 11, 20));
  EXPECT_EQ(model.Controls().ImDate1[1], CivilDate(2026, 11, 24));
  EXPECT_FALSE(model.Controls().Command1Enabled);
  model.ImDate1_Change(1, CivilDate{2026, 11, 21});
  ASSERT_TRUE(model.SchEditOK_Click());
  const std::vector<SchDatRow> rows = LiveRows();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1].EndDay, 21);
  EXPECT_EQ(Shown(), CivilDate(2026, 11, 23));
}

TEST_F(SchEditModelTest, ASeriesOpensOnItsFirstOccurrenceAndIsReplacedWhole) {
  host.user = [](RepeatModel& repeat) {
    repeat.Option1_Click(kOptionWeekly);
    repeat.ImNumber_Change(RepeatNumberField::ImNumber2, 2);
    repeat.ImNumber_Change(RepeatNumberField::ImNumber1, 5);
    ASSERT_TRUE(repeat.OKButton_Click());
  };
  SchEditModel model = Model();
  model.OpenNew();
  model.Text1_Change("Review");
  model.Command1_Click();
  EXPECT_EQ(host.shown, 1);
  EXPECT_FALSE(model.Controls().EndDateEnabled);
  ASSERT_TRUE(model.SchEditOK_Click());
  std::vector<SchDatRow> rows = LiveRows();
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[4].Day, 18);  // 2027/1/18, eight weeks on
  EXPECT_EQ(Shown(), CivilDate(2026, 11, 23));
  const std::int32_t stamp = rows[0].Stamp;

  // The third occurrence opens the first; Cancel puts the shown date back.
  ShowDate({2026, 12, 21});
  SchEditModel third = Model();
  third.OpenModify(2);
  EXPECT_EQ(third.Controls().ImDate1[0], CivilDate(2026, 11, 23));
  EXPECT_EQ(Shown(), CivilDate(2026, 11, 23));
  EXPECT_EQ(third.Work.RepeatCount, 5);
  EXPECT_EQ(third.Work.RepeatStep, 1);
  third.Text3_Change("Room 2");
  messages.QueueAnswer(MsgAnswer::No);
  EXPECT_TRUE(third.SchEditCAN_Click());
  EXPECT_EQ(Shown(), CivilDate(2026, 12, 21));

  SchEditModel again = Model();
  again.OpenModify(2);
  again.Text3_Change("Room 2");
  ASSERT_TRUE(again.SchEditOK_Click());
  rows = LiveRows();
  ASSERT_EQ(rows.size(), 5u);
  for (const SchDatRow& row : rows) {
    EXPECT_EQ(row.Place, "Room 2");
    EXPECT_EQ(static_cast<std::uint32_t>(row.Stamp),
              static_cast<std::uint32_t>(stamp) | 0xC0000000u);
    EXPECT_EQ(row.RepeatKind, 0x1024);  // every 2 weeks on Monday
  }
  EXPECT_EQ(rows[0].SubNo, 1);
  EXPECT_EQ(rows[4].SubNo, 5);
  EXPECT_EQ(Shown(), CivilDate(2026, 12, 21));
}

}  // namespace
}  // namespace sched
