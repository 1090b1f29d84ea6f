#include "appointments/copy_paste.h"

#include <gtest/gtest.h>

#include "appointments/occurrences.h"
#include "appointments/texts.h"
#include "store/stamp.h"
#include "tests/support/case_file.h"
#include "tests/support/message_lines.h"
#include "tests/support/test_store.h"
#include "tests/support/written_records.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;
namespace t = appointment_texts;

constexpr DateTime kPasteTime{2026, 11, 21, 11, 0, 0};

struct Clipboard {
  FakeStore s;
  FakeMessages messages;
  CopyPaste copyPaste{s.store, messages};

  // Writes an item as the edit dialog does, 09:00 to 10:00: `word` 0 for a plain item,
  // 0x8000 for `count` days, else a rule of `count` occurrences. Gives its last row.
  int Enter(std::uint16_t word, const CivilDate& first, int count, bool alarm = false) {
    RepeatWork work;
    work.Decode(word);
    work.WorkRepeatKind = word;
    work.RepeatCount = static_cast<std::int16_t>(count);
    AppointmentInput input;
    input.start = first;
    input.end = work.RepeatCode == kCodeOverDays ? AddDays(first, count - 1) : first;
    input.startMinutes = 540;
    input.endMinutes = 600;
    input.title = "Standup";
    input.place = "Room 1";
    input.alarm = alarm;
    FakeMessages entering;
    OccurrenceMaker maker(s.store, entering, work);
    EXPECT_TRUE(maker.Expand(input, std::nullopt));
    return s.doc.Tables.SchDatList.Rows() - 1;
  }
};

TEST(CopyPaste, APasteWritesTheCopyOnTheShownDate) {
  for (const CaseRow& c : ReadCases("appointments/pastes.txt", 10, 20)) {
    Clipboard b;
    const int copied = b.Enter(c.Hex(0), c.Date(1), c.Int(2));
    // The copied row holds the word as the case writes it, as a file may hold it.
    b.s.doc.Tables.SchDatList.Edit(copied).RepeatKind = static_cast<std::int16_t>(c.Hex(0));
    ASSERT_TRUE(b.copyPaste.CopySchedule(false, copied)) << c.where;
    if (c.YesNo(3)) b.s.store.DeleteItem(RowToRecord(b.s.doc.Tables.SchDatList, copied));
    b.s.doc.SetShownDate(c.Date(4));
    const bool asked = c[5] != "-";
    if (c[5] == "no") b.messages.QueueAnswer(MsgAnswer::No);
    b.s.clock.Set(kPasteTime);
    const int readings = b.s.clock.Readings();

    ASSERT_TRUE(b.copyPaste.PasteSchedule()) << c.where;
    const std::vector<SchRecord> pasted = LiveRecords(b.s.doc.Tables, copied + 1);
    EXPECT_EQ(DatesOf(pasted), c[8]) << c.where;
    EXPECT_EQ(WarningTexts(b.messages, asked ? 1 : 0), MessageList(c[9])) << c.where;
    if (asked) {
      EXPECT_EQ(testing::MessageLine(b.messages.Shown().front()),
                "[Scheduler, Exclamation, YesNo] " + std::string(t::kKeepRegular))
          << c.where;
    }
    EXPECT_EQ(b.s.clock.Readings() - readings, 1) << c.where << ": one stamp a paste";
    EXPECT_EQ(DateText(b.s.doc.CurYear, b.s.doc.CurMonth, b.s.doc.CurDay), c[4]) << c.where;

    const bool series = c.Hex(0) != 0 && c[5] != "no";
    const std::int32_t stamp = StampOf(kPasteTime);
    for (std::size_t i = 0; i < pasted.size(); ++i) {
      const SchRecord& r = pasted[i];
      EXPECT_EQ(EndText(r), c[7]) << c.where;
      EXPECT_EQ(r.RepeatKind, static_cast<std::int16_t>(c.Hex(6))) << c.where;
      EXPECT_EQ(r.Title + "/" + r.Place, "Standup/Room 1") << c.where;
      EXPECT_EQ(r.StartTime, c.Hex(0) == kOverDaysWord ? -1 : 540) << c.where;
      EXPECT_EQ(r.Stamp, stamp) << c.where;
      EXPECT_EQ(r.SubNo, series ? static_cast<int>(i) + 1 : 0) << c.where;
      EXPECT_EQ(r.ParentSubNo, series ? 1 : 0) << c.where;
      EXPECT_EQ(r.ParentStamp, series ? stamp : 0) << c.where;
    }
  }
}

TEST(CopyPaste, NothingToCopyKeepsTheOldCopy) {
  Clipboard b;
  EXPECT_FALSE(b.copyPaste.PasteSchedule());  // nothing copied yet
  EXPECT_TRUE(b.messages.Shown().empty());
  const int row = b.Enter(0, {2026, 11, 24}, 1);
  ASSERT_TRUE(b.copyPaste.CopySchedule(false, row));
  const struct {
    bool multiple;
    int row;
    const char* message;
  } cases[] = {
      {true, row, t::kCannotCopyMultiple},
      {true, -1, t::kCannotCopyMultiple},
      {false, -1, t::kCannotCopyNoSchedule},
  };
  for (const auto& c : cases) {
    const std::size_t shown = b.messages.Shown().size();
    EXPECT_FALSE(b.copyPaste.CopySchedule(c.multiple, c.row)) << c.message;
    EXPECT_EQ(WarningTexts(b.messages, shown), MessageList(c.message));
    EXPECT_EQ(b.s.doc.CopiedRow, row);
  }
}

TEST(CopyPaste, APastedAlarmPutsTodaysListInOrderOnce) {
  Clipboard b;
  const int copied = b.Enter(0x1000, {2026, 11, 7}, 3, true);
  ASSERT_TRUE(b.copyPaste.CopySchedule(false, copied));
  b.s.doc.SetShownDate({2026, 11, 21});
  b.s.clock.Set({2026, 11, 21, 8, 0, 0});  // before today's occurrence rings
  b.s.alarms.calls.clear();
  ASSERT_TRUE(b.copyPaste.PasteSchedule());
  EXPECT_EQ(b.s.alarms.calls,
            (std::vector<std::string>{"AddAlarmOfRecord 3", "SortTodayAlarms", "ArmNextAlarm"}));
}

}  // namespace
}  // namespace sched
