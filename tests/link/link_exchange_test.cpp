#include "link/link_exchange.h"

#include <gtest/gtest.h>

#include "link/link_records.h"
#include "store/stamp.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

constexpr DateTime kNow{2026, 11, 24, 9, 30, 0};

struct Exchange : FakeStore {
  SchRecord Add(int day, int start, const std::string& title, bool alarm = false) {
    SchRecord r = MakeItem(2026, 11, day, start, start < 0 ? -1 : start + 30, title);
    if (alarm) r.AlarmOn = 1, r.AlarmSound = "BELL", r.AlarmLead = 10;
    store.InsertRecord(r);
    return r;
  }
  std::vector<SchRecord> Exported(bool onlyNew) {
    const auto file = BuildExportFile(doc.Tables, onlyNew, kNow, CodePage::kWestern);
    return file ? ReadExportRecords(*file, CodePage::kWestern).records : std::vector<SchRecord>{};
  }
};

TEST(LinkExchange, ExportSendsEveryLiveRowAndAPastAlarmOff) {
  Exchange x;
  EXPECT_FALSE(BuildExportFile(x.doc.Tables, false, kNow, CodePage::kWestern));  // nothing yet
  x.Add(24, 540, "Past", true);                                                  // 9:00 before 9:30
  x.Add(24, 600, "Later", true);                                                 // 10:00
  const std::vector<SchRecord> sent = x.Exported(false);
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_EQ(sent[0].Title, "Past");
  EXPECT_EQ(sent[0].AlarmOn, 0);
  EXPECT_EQ(sent[0].AlarmLead, 0);
  EXPECT_EQ(sent[1].AlarmOn, 1);
  EXPECT_EQ(sent[1].AlarmLead, 10);
}

TEST(LinkExchange, WithTheMarkOnlyUnlinkedRowsCountAndTheFileStaysEmpty) {
  Exchange x;
  x.Add(24, 600, "New");
  const auto file = BuildExportFile(x.doc.Tables, true, kNow, CodePage::kWestern);
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->empty());  // the row test reads SubNo, which never has the link bit
  ClearLinkBits(x.doc.Tables);
  EXPECT_EQ(IsLinkDone(x.doc.Tables.SchDatList.At(0).Stamp), -1);
  EXPECT_FALSE(BuildExportFile(x.doc.Tables, true, kNow, CodePage::kWestern));
  EXPECT_EQ(x.Exported(false).size(), 1u);
}

TEST(LinkExchange, PartnerHolidaysAreKnownByTitleMemoAndKind) {
  struct Case {
    const char* title;
    const char* memo;
    int start;
    std::int16_t kind;
    bool holiday;
  };
  const Case cases[] = {
      {"文化の日", "場所:日本", -1, 0, true},
      {"振替休日", "場所:日本", -1, 0, true},
      {"振替休日（月）", "場所:日本", -1, 0, true},
      {"振替休日（月）", "", -1, 0, false},
      {"文化の日", "場所:日本", 540, 0, false},
      {"文化の日", "場所:日本", -1, 0x1000, false},
      {"文化の日のパーティー", "場所:日本", -1, 0, false},
  };
  for (const Case& c : cases) {
    SchRecord r;
    r.Title = c.title, r.Memo = c.memo, r.StartTime = static_cast<std::int16_t>(c.start);
    r.RepeatKind = c.kind;
    EXPECT_EQ(IsPartnerHoliday(r), c.holiday) << c.title << " " << c.memo << " " << c.start;
  }
}

TEST(LinkExchange, AnImportReplacesWhatItsMergeSaysAndAddsLinkedRows) {
  struct Case {
    ImportMerge merge;
    ImportPeriod period;
    const char* live;  // the live rows after the import, in row order
  };
  const Case cases[] = {
      {ImportMerge::kAddAll, {}, "Own|Linked|In Tab|Late"},
      {ImportMerge::kReplaceAll, {}, "In Tab|Late"},
      {ImportMerge::kReplaceLinked, {}, "Own|In Tab|Late"},
      {ImportMerge::kReplaceAll, {CivilDate{2026, 11, 24}, CivilDate{2026, 11, 24}}, "In Tab"},
  };
  for (const Case& c : cases) {
    Exchange x;
    x.Add(24, 540, "Own");
    const SchRecord linked = x.Add(24, 600, "Linked");
    x.doc.Tables.SchDatList.Edit(1).Stamp = ClearLinkBit(linked.Stamp);
    SchRecord in = MakeItem(2026, 11, 24, 660, 690, "In\tTab");
    in.AlarmOn = 1, in.AlarmLead = 5;
    SchRecord holiday = MakeItem(2026, 11, 23, -1, -1, "勤労感謝の日");
    holiday.Memo = "場所:日本";
    const SchRecord late = MakeItem(2026, 12, 1, 600, 630, "Late");
    const int added = MergeImportedRecords(x.store, {in, holiday, late}, c.merge, c.period, "GONG");
    std::string live;
    const auto& list = x.doc.Tables.SchDatList;
    for (int row = 0; row < list.Rows(); ++row) {
      if (list.At(row).IsLive())
        live += (live.empty() ? "" : "|") + std::string(list.Texts(row).Title);
    }
    EXPECT_EQ(live, c.live);
    EXPECT_EQ(added, c.period.last ? 1 : 2);
    const SchDatRow& imported = list.At(2);
    EXPECT_EQ(IsLinkDone(imported.Stamp), -1);
    EXPECT_LT(imported.Stamp, 0);  // the top bit
    EXPECT_EQ(list.Texts(imported).AlarmSound, "GONG");
    EXPECT_EQ(imported.AlarmLead, 5);
  }
}

}  // namespace
}  // namespace sched
