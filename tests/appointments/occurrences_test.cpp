#include "appointments/occurrences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "appointments/texts.h"
#include "platform/fake/fake_messages.h"
#include "store/stamp.h"
#include "tests/support/case_file.h"
#include "tests/support/test_store.h"
#include "tests/support/written_records.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

struct Maker {
  FakeStore s;
  FakeMessages messages;
  RepeatWork work;
  OccurrenceMaker maker{s.store, messages, work};

  Maker() { s.alarms.calls.clear(); }  // the emptying of the new document is no concern here

  // A repeating item as the repeat dialog leaves it.
  void SetRule(int code, int every, int times, std::uint16_t wordBefore = 0) {
    work.RepeatCode = static_cast<std::int16_t>(code);
    work.RepeatStep = static_cast<std::int16_t>(every - 1);
    work.RepeatCount = static_cast<std::int16_t>(times);
    work.WorkRepeatKind = wordBefore;
  }

  std::vector<SchRecord> Live() const { return LiveRecords(s.doc.Tables); }
  std::vector<std::string> Warnings() const { return WarningTexts(messages); }
};

AppointmentInput TimedOn(const CivilDate& date, int start = 540, int end = 600) {
  AppointmentInput input;
  input.start = input.end = date;
  input.startMinutes = start;
  input.endMinutes = end;
  input.title = "Standup";
  return input;
}

int CodeOfKind(const CaseRow& c) {
  static const std::map<std::string, int> kCodes = {{"daily", kCodeDaily},
                                                    {"weekly", kCodeWeekly},
                                                    {"monthly", kCodeMonthly},
                                                    {"yearly", kCodeYearly},
                                                    {"monthly-weekday", kCodeMonthlyWeekday},
                                                    {"yearly-weekday", kCodeYearlyWeekday}};
  const auto it = kCodes.find(c[0]);
  if (it == kCodes.end()) ADD_FAILURE() << c.where << ": no kind " << c[0];
  return it == kCodes.end() ? kCodeNone : it->second;
}

// Writes the case's item into a new document.
void ExpandCase(Maker& m, const CaseRow& c) {
  m.SetRule(CodeOfKind(c), c.Int(2), c.Int(3), c.Hex(4));
  ASSERT_TRUE(m.maker.Expand(TimedOn(c.Date(1)), std::nullopt)) << c.where;
}

std::vector<CaseRow> Expansions() {
  return ReadCases("appointments/expansions.txt", 9, 25);
}

TEST(Occurrences, RepeatingItemsGiveTheirDatesWordEndAndWarning) {
  for (const CaseRow& c : Expansions()) {
    Maker m;
    ExpandCase(m, c);
    const std::vector<SchRecord> records = m.Live();
    EXPECT_EQ(DatesOf(records), c[7]) << c.where;
    EXPECT_EQ(m.work.WorkRepeatKind, c.Hex(5)) << c.where;
    for (const SchRecord& r : records) {
      EXPECT_EQ(EndText(r), c[6]) << c.where;
      EXPECT_EQ(r.RepeatKind, static_cast<std::int16_t>(c.Hex(5))) << c.where;
    }
    EXPECT_EQ(m.Warnings(), MessageList(c[8])) << c.where;
  }
}

// Opening any occurrence shows the first date and the count; OK with nothing changed writes
// the same records again, under the same identity.
TEST(Occurrences, ASeriesReadBackAndWrittenAgainIsTheSameSeries) {
  for (const CaseRow& c : Expansions()) {
    if (c.Hex(5) == 0) continue;  // no series is left to open
    Maker m;
    ExpandCase(m, c);
    const std::vector<SchRecord> before = m.Live();
    const SchRecord opened = before[std::min<std::size_t>(2, before.size() - 1)];

    RepeatWork again;
    const SeriesInEditor series =
        LoadSeriesIntoEditor(m.s.doc.Tables, again, static_cast<std::uint16_t>(opened.RepeatKind),
                             opened.ParentSubNo, opened.ParentStamp);
    const CivilDate last = c.Date(6);
    EXPECT_EQ(series.first, c.Date(1)) << c.where;
    EXPECT_EQ(std::make_pair(series.StartTime, series.EndTime), std::make_pair(540, 600));
    EXPECT_EQ(again.RepeatCount, static_cast<int>(before.size())) << c.where;
    EXPECT_EQ(again.RepeatStep, c.Int(2) - 1) << c.where;
    EXPECT_EQ(again.RepeatCode, CodeOfKind(c)) << c.where;
    EXPECT_EQ(again.RepeatLastCode, DateCode(last.year, last.month, last.day)) << c.where;
    EXPECT_EQ(DateText(again.RepeatLastYear, again.RepeatLastMonth, again.RepeatLastDay), c[6]);

    const std::int32_t lowest =
        GetSeriesLowestSubNo(m.s.doc.Tables, opened.ParentSubNo, opened.ParentStamp);
    m.s.store.DeleteItem(opened);
    again.WorkRepeatKind = static_cast<std::uint16_t>(opened.RepeatKind);
    OccurrenceMaker maker(m.s.store, m.messages, again);
    const ReplacedItem replaced{static_cast<std::int16_t>(lowest), opened.Stamp,
                                opened.ParentSubNo};
    ASSERT_TRUE(maker.Expand(TimedOn(series.first), replaced)) << c.where;
    EXPECT_EQ(m.Live(), before) << c.where;
    EXPECT_EQ(m.Warnings(), MessageList(c[8])) << c.where;  // nothing more to cut
  }
}

TEST(Occurrences, NewAndReplacedItemsTakeTheirIdentity) {
  constexpr std::int32_t kOld = 0x00345678;
  constexpr auto kOldTop = static_cast<std::int32_t>(0xC0345678u);
  const std::int32_t kNew = MakeStamp(FakeClock({2026, 11, 21, 10, 0, 0}));
  struct Case {
    const char* what;
    int code;
    std::optional<ReplacedItem> replaced;
    std::vector<int> subNos;
    std::int32_t stamp;
    int parentSubNo;
    std::int32_t parentStamp;
    CivilDate start{2026, 1, 5};
  };
  const Case cases[] = {
      {"new series", kCodeWeekly, {}, {1, 2, 3}, kNew, 1, kNew},
      {"replaced series", kCodeWeekly, ReplacedItem{7, kOld, 3}, {7, 8, 9}, kOldTop, 3, kOldTop},
      {"new single", kCodeNone, {}, {0}, kNew, 0, 0},
      {"replaced single", kCodeNone, ReplacedItem{5, kOld, 2}, {5}, kOldTop, 0, 0},
      // Cut to its first date, the item is no series but keeps the identity of one.
      {"series cut to one", kCodeYearly, {}, {1}, kNew, 1, kNew, {2099, 5, 1}},
  };
  for (const Case& c : cases) {
    Maker m;
    m.s.store.InsertRecord(MakeItem(2026, 1, 1, 540, 600, "Other"));
    m.s.clock.Set({2026, 11, 21, 10, 0, 0});
    const int readings = m.s.clock.Readings();
    m.SetRule(c.code, 1, 3);
    ASSERT_TRUE(m.maker.Expand(TimedOn(c.start), c.replaced)) << c.what;
    std::vector<SchRecord> records = m.Live();
    records.erase(records.begin());  // "Other"
    std::vector<int> subNos;
    for (const SchRecord& r : records) {
      subNos.push_back(r.SubNo);
      EXPECT_EQ(r.Stamp, c.stamp) << c.what;
      EXPECT_EQ(r.ParentSubNo, c.parentSubNo) << c.what;
      EXPECT_EQ(r.ParentStamp, c.parentStamp) << c.what;
    }
    EXPECT_EQ(subNos, c.subNos) << c.what;
    // A new stamp is asked once for the whole write; a replaced item asks none.
    EXPECT_EQ(m.s.clock.Readings() - readings, c.replaced ? 0 : 1) << c.what;
  }
}

TEST(Occurrences, EveryRecordCarriesTheDialogsTextsFlagsAndAlarm) {
  Maker m;  // today is 2026/11/21, 10:00
  m.s.doc.PrivateLevel = 3;
  AppointmentInput input = TimedOn({2026, 11, 21}, 660, 690);
  input.title = "";
  input.place = "Room 1";
  input.memo = "a\r\nb";
  input.privateItem = true;
  input.alarm = true;
  input.alarmLead = 15;
  input.sound = "melody";
  m.SetRule(kCodeWeekly, 1, 3);
  ASSERT_TRUE(m.maker.Expand(input, std::nullopt));

  const SchRecord& first = m.maker.Record();
  EXPECT_EQ(StartText(first), "2026-11-21");
  EXPECT_EQ(first.SubNo, 1);
  EXPECT_EQ(first.Title, appointment_texts::kNoTitle);
  EXPECT_EQ(first.Place, "Room 1");
  EXPECT_EQ(first.Memo, "a\r\nb");
  EXPECT_EQ(first.Private, 3);
  EXPECT_EQ(first.AlarmOn, 1);
  EXPECT_EQ(first.AlarmLead, 15);
  EXPECT_EQ(first.VarLen, 8 + 6 + 3 + 8 + 10);
  for (const SchRecord& r : m.Live()) {
    EXPECT_EQ(r.Private, 1);  // the tables keep the flag; the file takes the level
    EXPECT_EQ(r.StartTime, 660);
    EXPECT_EQ(r.EndTime, 690);
    EXPECT_EQ(r.AlarmSound, "MELODY");
  }
  // Only today's occurrence rings today; the list is sorted and armed once for the series.
  EXPECT_EQ(m.s.alarms.calls,
            (std::vector<std::string>{"AddAlarmOfRecord 0", "SortTodayAlarms", "ArmNextAlarm"}));
  // The shown date follows the occurrences written.
  EXPECT_EQ(DateText(m.s.doc.CurYear, m.s.doc.CurMonth, m.s.doc.CurDay), "2026-12-05");

  // A plain item without a chosen sound rings the default one.
  m.s.alarms.calls.clear();
  m.s.clock.SetSecondsPerReading(1);  // the series' stamp is taken: the next one waits
  input.sound = "";
  m.SetRule(kCodeNone, 1, 1);
  ASSERT_TRUE(m.maker.Expand(input, std::nullopt));
  EXPECT_EQ(m.maker.Record().AlarmSound, kDefaultAlarmSound);
  EXPECT_EQ(m.maker.Record().RepeatKind, 0);
  EXPECT_EQ(m.s.alarms.calls,
            (std::vector<std::string>{"AddAlarmOfRecord 3", "SortTodayAlarms", "ArmNextAlarm"}));
}

TEST(Occurrences, AStartAfterTheEndWritesNothing) {
  for (int code : {kCodeNone, kCodeDaily, kCodeMonthlyWeekday}) {
    Maker m;
    m.SetRule(code, 1, 3);
    EXPECT_FALSE(m.maker.Expand(TimedOn({2026, 1, 5}, 601, 600), std::nullopt));
    EXPECT_TRUE(m.Live().empty());
    EXPECT_EQ(m.s.clock.Readings(), 0);
  }
}

}  // namespace
}  // namespace sched
