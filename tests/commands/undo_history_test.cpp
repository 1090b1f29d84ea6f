#include "store/undo_history.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "appointments/copy_paste.h"
#include "appointments/delete_commands.h"
#include "link/link_exchange.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

constexpr std::int16_t kWeeklyOnMonday = 0x1000 | 1 << 2;

// What a user can see of the document, and what its file would hold.
struct Snapshot {
  std::string rows;
  std::string marks;
  std::array<std::int16_t, 7> weekHoliday{};
  int rowCount = 0;
  bool operator==(const Snapshot&) const = default;
};

Snapshot Take(const ScheduleDocument& doc) {
  Snapshot s;
  std::ostringstream rows;
  const SchDatCTL& t = doc.Tables;
  for (int row = 0; row < t.SchDatList.Rows(); ++row) {
    const SchDatRow& r = t.SchDatList.At(row);
    if (!r.IsLive()) continue;
    const RowTexts texts = t.SchDatList.Texts(r);
    rows << row << ':' << Table<SchDatRow>::LineOf(r) << '|' << texts.Title << '|' << texts.Memo
         << '\n';
  }
  s.rows = rows.str();
  for (int y = 0; y < t.YearCount; ++y) {
    const AncYYRow& year = t.AncYY.At(y);
    if (year.HasHolidayMask()) s.marks += Table<AncYYRow>::LineOf(year) + "\n";
  }
  s.weekHoliday = doc.WeekHoliday;
  s.rowCount = t.RowCount;
  return s;
}

// A schedule of a few hundred rows and its commands, drawn at random.
class Session {
 public:
  explicit Session(unsigned seed) : random_(seed) {
    s_.clock.SetSecondsPerReading(2);  // new stamps come as the clock moves on
    for (int i = 0; i < 60; ++i) Add();
    for (int i = 0; i < 15; ++i) AddSeries();
    for (int i = 0; i < 10; ++i) FlipMark();
    s_.store.History().Record(true);
  }

  ScheduleDocument& Doc() { return s_.doc; }
  UndoHistory& History() { return s_.store.History(); }
  ScheduleStore& Store() { return s_.store; }

  // One command, sealed as one step as the window does.
  void RunCommand() {
    static constexpr const char* kNames[] = {"Add",   "Add Series", "Modify",
                                             "Paste", "Delete",     "Bulk Delete",
                                             "Mark",  "Weekly",     "Import"};
    const int which = Pick(0, 8);
    switch (which) {
      case 0: Add(); break;
      case 1: AddSeries(); break;
      case 2: ModifySeries(); break;
      case 3: Paste(); break;
      case 4: Delete(); break;
      case 5: BulkDelete(); break;
      case 6: FlipMark(); break;
      case 7: s_.doc.WeekHoliday[static_cast<std::size_t>(Pick(0, 6))] ^= 1; break;
      default: Import(); break;
    }
    History().Seal(kNames[which]);
  }

  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

 private:
  CivilDate Date() { return {Pick(2024, 2026), Pick(1, 12), Pick(1, 28)}; }
  SchRecord Item() {
    const CivilDate d = Date();
    const int start = Pick(-1, 20) * 60;
    SchRecord item = MakeItem(d.year, d.month, d.day, start, start < 0 ? -1 : start + 30,
                              "item " + std::to_string(++made_));
    item.Memo = "memo " + std::to_string(made_);
    return item;
  }
  void Add() { s_.store.InsertRecord(Item()); }
  void AddSeries() {
    SchRecord item = Item();
    item.RepeatKind = kWeeklyOnMonday;
    InsertSeries(s_.store, item, Pick(2, 12), 7);
  }
  // A live row drawn at random, -1 when there is none.
  int LiveRow() {
    std::vector<int> live;
    for (int row = 0; row < s_.doc.Tables.SchDatList.Rows(); ++row) {
      if (s_.doc.Tables.SchDatList.At(row).IsLive()) live.push_back(row);
    }
    return live.empty() ? -1 : live[static_cast<std::size_t>(Pick(0, int(live.size()) - 1))];
  }
  // A series written anew under another title, as the edit dialog's OK does.
  void ModifySeries() {
    const int row = LiveRow();
    if (row < 0) return;
    SchRecord item = RowToRecord(s_.doc.Tables.SchDatList, row);
    s_.store.DeleteItem(item);
    item.Title += " changed";
    item.Stamp = s_.store.NewUniqueStamp();
    item.RepeatKind = kWeeklyOnMonday;
    SetStartDate(item, Date());
    InsertSeries(s_.store, item, Pick(2, 6), 7);
  }
  void Paste() {
    const int row = LiveRow();
    if (row < 0) return;
    FakeMessages messages;
    CopyPaste copy(s_.store, messages);
    copy.CopySchedule(false, row);
    s_.doc.SetShownDate(Date());
    copy.PasteSchedule();
  }
  void Delete() {
    const int row = LiveRow();
    if (row >= 0) s_.store.DeleteItem(RowToRecord(s_.doc.Tables.SchDatList, row));
  }
  void BulkDelete() {
    FakeMessages messages;  // every question answered yes
    FakeDateFormatter dates;
    DeleteCommands commands(s_.store, messages, dates);
    const CivilDate d = Date();
    switch (Pick(0, 3)) {
      case 0: commands.DelMonth_Click(d.year, d.month); break;
      case 1: commands.DelYear_Click(d.year); break;
      case 2: commands.DelBefore_Click(d); break;
      default: commands.DelAfter_Click(d); break;
    }
  }
  void FlipMark() {
    const CivilDate d = Date();
    AncYYRow& year = s_.doc.Tables.AncYY.Edit(s_.store.FindOrAddYear(d.year));
    auto& masks = Pick(0, 1) ? year.HolidayOn : year.HolidayOff;
    masks[static_cast<std::size_t>(d.month - 1)] ^= 1 << (d.day - 1);
  }
  void Import() {
    std::vector<SchRecord> records;
    for (int i = Pick(1, 4); i > 0; --i) records.push_back(Item());
    const CivilDate d = Date();
    MergeImportedRecords(s_.store, records,
                         Pick(0, 1) ? ImportMerge::kAddAll : ImportMerge::kReplaceAll,
                         {d, AddDays(d, 40)}, "BELL");
  }

  std::mt19937 random_;
  int made_ = 0;
  TestStore s_;
};

TEST(UndoHistory, UndoingEveryCommandGivesTheDocumentAndItsFileBack) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    Session s(seed);
    const std::vector<std::uint8_t> bytesBefore = s.Store().BuildScheduleBytes();
    s.History().Absorb();  // the header the save wrote
    const Snapshot before = Take(s.Doc());
    for (int i = 0; i < 40; ++i) s.RunCommand();
    const Snapshot after = Take(s.Doc());
    const std::size_t steps = s.History().Steps();
    ASSERT_GT(steps, 20u) << seed;

    while (s.History().CanUndo()) s.Store().Undo();
    EXPECT_EQ(Take(s.Doc()), before) << seed;
    EXPECT_FALSE(s.Doc().Dirty) << seed;
    EXPECT_EQ(s.Store().BuildScheduleBytes(), bytesBefore) << seed;
    s.History().Absorb();

    while (s.History().CanRedo()) s.Store().Redo();
    EXPECT_EQ(Take(s.Doc()), after) << seed;
    EXPECT_TRUE(s.Doc().Dirty) << seed;
    EXPECT_EQ(s.History().Steps(), steps) << seed;
  }
}

TEST(UndoHistory, UndoRedoAndNewCommandsInterleavedKeepOneConsistentHistory) {
  for (unsigned seed = 100; seed < 110; ++seed) {
    Session s(seed);
    // The states the history can reach, and where the document stands among them.
    std::vector<Snapshot> states = {Take(s.Doc())};
    std::size_t at = 0;
    for (int i = 0; i < 120; ++i) {
      const int what = s.Pick(0, 5);
      if (what == 0 && s.History().CanUndo()) {
        s.Store().Undo();
        --at;
      } else if (what == 1 && s.History().CanRedo()) {
        s.Store().Redo();
        ++at;
      } else {
        const std::string undoName = s.History().UndoName();
        const std::size_t stepsBefore = s.History().Steps();
        const bool couldRedo = s.History().CanRedo();
        s.RunCommand();
        const Snapshot now = Take(s.Doc());
        if (now == states[at] && s.History().Steps() == stepsBefore &&
            s.History().UndoName() == undoName) {
          EXPECT_EQ(s.History().CanRedo(), couldRedo) << seed << " step " << i;
          continue;  // nothing changed: no step, the redo branch kept
        }
        states.resize(at + 1);  // a new command drops what could be redone
        states.push_back(now);
        ++at;
        EXPECT_FALSE(s.History().CanRedo()) << seed << " step " << i;
        continue;
      }
      ASSERT_EQ(Take(s.Doc()), states[at]) << seed << " step " << i;
      EXPECT_EQ(s.Doc().Dirty, at != 0) << seed << " step " << i;
      EXPECT_EQ(s.History().CanUndo(), at > 0);
      EXPECT_EQ(s.History().CanRedo(), at + 1 < states.size());
    }
  }
}

TEST(UndoHistory, AStepKeepsWhatItChangedAndNoMore) {
  Session s(7);
  for (int i = 0; i < 2000; ++i) {
    s.Store().InsertRecord(
        MakeItem(2025, 1 + i % 12, 1 + i % 28, 600, 630, "x" + std::to_string(i)));
  }
  s.History().Absorb();
  s.Store().InsertRecord(MakeItem(2025, 3, 3, 700, 730, "one more"));
  s.History().Seal("Add");
  EXPECT_LT(s.History().LastStepBytes(), 1024u);
  EXPECT_EQ(s.History().UndoName(), "Add");

  FakeMessages messages;
  FakeDateFormatter dates;
  DeleteCommands(s.Store(), messages, dates).DelYear_Click(2025);
  s.History().Seal("Delete this Year");
  // Two forms of each of the 2001 rows of the year, and of its year row.
  EXPECT_LT(s.History().LastStepBytes(), 2 * 2100 * sizeof(std::pair<int, SchDatRow>) + 4096);
  EXPECT_GT(s.History().LastStepBytes(), 2 * 2000 * sizeof(std::pair<int, SchDatRow>));
}

TEST(UndoHistory, AnEmptyYearRowIsNoStepAndTheOldestStepsGoFirst) {
  Session s(3);
  s.Store().FindOrAddYear(2090);  // the day holiday dialog opened and cancelled
  s.History().Seal("Selected Day");
  EXPECT_FALSE(s.History().CanUndo());

  for (std::size_t i = 0; i < UndoHistory::kStepLimit + 5; ++i) {
    s.Store().InsertRecord(MakeItem(2030, 1, 1, 600, 630, "n" + std::to_string(i)));
    s.History().Seal("Add " + std::to_string(i));
  }
  EXPECT_EQ(s.History().Steps(), UndoHistory::kStepLimit);
  while (s.History().CanUndo()) s.Store().Undo();
  EXPECT_EQ(s.History().RedoName(), "Add 5");
  EXPECT_TRUE(s.Doc().Dirty);  // the saved state went with the steps dropped
}

}  // namespace
}  // namespace sched
