#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/test_store.h"

namespace sched {
namespace {

// Little-endian bytes written out by hand, to check the saver against an independent encoding.
struct Expected {
  std::vector<std::uint8_t> bytes;
  Expected& u8(unsigned v) {
    bytes.push_back(static_cast<std::uint8_t>(v));
    return *this;
  }
  Expected& u16(unsigned v) { return u8(v & 0xFF).u8((v >> 8) & 0xFF); }
  Expected& i32(std::int64_t v) {
    const auto bits = static_cast<std::uint32_t>(v);
    return u16(bits & 0xFFFF).u16(bits >> 16);
  }
  Expected& text(const std::string& s) {
    u16(static_cast<unsigned>(s.size()));
    for (char c : s) u8(static_cast<unsigned char>(c));
    return *this;
  }
  // Fixed part: links, dates, times, identity, kind, private, VarLen.
  Expected& record(std::int64_t prev, std::int64_t next, unsigned d, unsigned m, unsigned y,
                   unsigned ed, unsigned em, unsigned ey, int start, int end, int subNo,
                   std::int64_t stamp, int parentSubNo, std::int64_t parentStamp, int kind,
                   int priv, int varLen) {
    i32(prev).i32(next).u8(d).u8(m).u16(y).u8(ed).u8(em).u16(ey);
    u16(static_cast<unsigned>(start) & 0xFFFF).u16(static_cast<unsigned>(end) & 0xFFFF);
    u16(static_cast<unsigned>(subNo) & 0xFFFF).i32(stamp).u16(static_cast<unsigned>(parentSubNo));
    i32(parentStamp).u16(static_cast<unsigned>(kind) & 0xFFFF).u16(static_cast<unsigned>(priv));
    return u16(static_cast<unsigned>(varLen));
  }
  Expected& month(unsigned m, std::int64_t next,
                  const std::vector<std::pair<int, std::int64_t>>& heads, std::int64_t multiDay) {
    u16(m).i32(next);
    for (int d = 1; d <= 31; ++d) {
      std::int64_t head = -1;
      for (const auto& [day, offset] : heads) {
        if (day == d) head = offset;
      }
      i32(head);
    }
    return i32(multiDay);
  }
};

TEST(SclSave, WritesTheFileLeavesFirstByteForByte) {
  TestStore s;
  s.doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  SchRecord a = MakeItem(1998, 7, 9, 540, 600, "A");
  a.Stamp = 0x11;
  a.Memo = "x\r\ny";
  a.AlarmOn = 1;
  a.AlarmSound = "SCHALARM";
  a.AlarmLead = 15;
  SchRecord b = MakeItem(1998, 7, 9, -1, -1, "B");
  b.Stamp = 0x22;
  b.Private = 1;
  s.store.InsertRecord(a);
  s.store.InsertRecord(b);
  InsertSpan(s.store, {1998, 7, 30}, 4, "Trip", 0x33);
  s.doc.Tables.AncYY.Edit(0).HolidayOn[6] = 1 << 3;  // 1998/7/4
  s.doc.Tables.AncYY.Edit(s.store.FindOrAddYear(1999)).HolidayOff[0] = 1;
  SchRecord gone = MakeItem(2000, 1, 1, -1, -1, "gone");
  s.store.InsertRecord(gone);
  s.store.DeleteItem(gone);  // leaves a year and month with nothing to write

  Expected e;
  e.u8('Q').u8('3').u8('9').u8('E').u16(1).u16(0x41).i32(487);
  // 12: B, all day, first in the chain of July 9; private with the default level 1.
  e.record(-1, 59, 9, 7, 1998, 9, 7, 1998, -1, -1, 0, 0x22, 0, 0, 0, 1, 9)
      .text("B")
      .text("")
      .text("")
      .u16(0);
  // 59: A with memo (LF alone) and alarm.
  e.record(12, -1, 9, 7, 1998, 9, 7, 1998, 540, 600, 0, 0x11, 0, 0, 0, 0, 22)
      .text("A")
      .text("")
      .text("x\ny")
      .u16(1);
  for (char c : std::string("SCHALARM")) e.u8(static_cast<unsigned char>(c));
  e.u16(15);
  // 119: the trip, once in July's multi-day chain, with its whole span and its lowest SubNo.
  e.record(-1, -1, 30, 7, 1998, 2, 8, 1998, -1, -1, 1, 0x33, 1, 0x33, 0x8000, 0, 12)
      .text("Trip")
      .text("")
      .text("")
      .u16(0);
  e.month(7, 353, {{9, 12}}, 119);  // 169
  e.record(-1, -1, 30, 7, 1998, 2, 8, 1998, -1, -1, 1, 0x33, 1, 0x33, 0x8000, 0, 12)
      .text("Trip")
      .text("")
      .text("")
      .u16(0);                    // 303
  e.month(8, -1, {}, 303);        // 353
  e.u16(1998).i32(593).i32(169);  // 487
  for (int m = 0; m < 12; ++m) e.i32(m == 6 ? 8 : 0);
  for (int m = 0; m < 12; ++m) e.i32(0);
  e.u16(1999).i32(-1).i32(-1);  // 593: holiday settings only
  for (int m = 0; m < 12; ++m) e.i32(0);
  for (int m = 0; m < 12; ++m) e.i32(m == 0 ? 1 : 0);

  EXPECT_EQ(s.SaveTo("exact.scl"), e.bytes);
  EXPECT_EQ(s.doc.Header.PrivateCount, 1);
}

TEST(SclSave, PrivateRecordsTakeTheDevicesLevelAndAreCountedOnceAMonth) {
  TestStore s;
  s.doc.PrivateLevel = 4;
  SchRecord secret = MakeItem(1998, 7, 9, 540, 600, "secret");
  secret.Private = 1;
  s.store.InsertRecord(secret);
  InsertSpan(s.store, {1998, 7, 31}, 2, "private trip", 0x44);
  for (int row = 1; row <= 2; ++row) s.doc.Tables.SchDatList.Edit(row).Private = 1;
  const auto bytes = s.SaveTo("private.scl");
  EXPECT_EQ(bytes[4], 3);        // one plain record and the trip in July and in August
  EXPECT_EQ(bytes[12 + 34], 4);  // the first record's Private is the level
}

TEST(SclSave, TheVarLenOfARecordInMemoryIsWhatTheFileWrites) {
  TestStore s;
  SchRecord plain = MakeItem(1998, 7, 9, 540, 600, "Caf\xC3\xA9");  // 4 bytes in the file
  plain.Memo = "a\r\nb";                                            // 3
  SchRecord alarmed = plain;
  alarmed.Stamp ^= 1;
  alarmed.AlarmOn = 1;
  alarmed.AlarmSound = kDefaultAlarmSound;
  EXPECT_EQ(VarLenOf(plain, CodePage::kWestern), 4 + 3 + 8);
  EXPECT_EQ(VarLenOf(alarmed, CodePage::kWestern), 4 + 3 + 8 + 10);
  s.store.InsertRecord(plain);
  s.store.InsertRecord(alarmed);
  ASSERT_TRUE(s.RoundTrip());
  EXPECT_EQ(s.doc.Tables.SchDatList.At(0).VarLen, VarLenOf(plain, CodePage::kWestern));
  EXPECT_EQ(s.doc.Tables.SchDatList.At(1).VarLen, VarLenOf(alarmed, CodePage::kWestern));
}

TEST(SclSave, AMultiDayItemOfOneDateIsWrittenAsADayRecord) {
  TestStore s;
  InsertSpan(s.store, {1998, 7, 9}, 1, "one day", 0x55);
  const auto bytes = s.SaveTo("oneday.scl");
  ASSERT_GT(bytes.size(), 12u + 38u + 134u);
  const std::size_t monthAt = bytes.size() - 106 - 134;
  // July 9's head points at the record; the month's multi-day chain is empty.
  EXPECT_EQ(bytes[monthAt + 6 + 8 * 4], 12);
  EXPECT_EQ(bytes[monthAt + 130], 0xFF);
}

TEST(SclSave, TextsTooLongForTheRecordsSizeFieldAreCutMemoFirst) {
  TestStore s;
  SchRecord r = MakeItem(1998, 7, 9, 540, 600, "Title");
  r.Place = std::string(20000, 'p');
  r.Memo = std::string(30000, 'm');
  s.store.InsertRecord(r);
  const auto bytes = s.SaveTo("long.scl");
  const int varLen = bytes[12 + 36] | bytes[12 + 37] << 8;
  EXPECT_EQ(varLen, 32767 - 10);  // the whole budget, and no alarm
  ASSERT_TRUE(s.LoadFrom(s.dir.File("long.scl")));
  const RowTexts row = s.doc.Tables.SchDatList.Texts(0);
  EXPECT_EQ(row.Title, "Title");
  EXPECT_EQ(row.Place.size(), 20000u);
  EXPECT_EQ(row.Memo.size(), 32749u - 5 - 20000);
}

TEST(SclSave, ShiftJisTextsCountTwoBytesACharacterAndAreCutBetweenCharacters) {
  TestStore s;
  s.doc.FileCodePage = CodePage::kJapanese;
  EXPECT_EQ(VarLenOf(MakeItem(2026, 11, 24, 540, 600, "\u4F1A\u8B70"), CodePage::kJapanese), 4 + 8);
  SchRecord r = MakeItem(2026, 11, 24, 540, 600, "\u4F1AX");  // 3 bytes
  r.Place = std::string(5001, 'p');
  r.Memo = std::string(10000, 'm');
  for (int i = 0; i < 12000; ++i) r.Memo += "\u6A19";  // 34,000 bytes
  r.AlarmOn = 1;
  r.AlarmSound = "ALARM\u4F1A\u8B70";  // 9 bytes: the second kanji does not fit in eight
  s.store.InsertRecord(r);
  std::vector<std::uint8_t> bytes = s.SaveTo("japanese.scl");
  // The memo gave way to the size field: 17,745 bytes were left for the kanji, 8,872 whole ones.
  EXPECT_EQ(bytes[12 + 36] | bytes[12 + 37] << 8, 3 + 5001 + 10000 + 2 * 8872 + 8 + 10);
  const std::vector<std::uint8_t> title = {0x89, 0xEF, 'X'};
  const auto at = std::search(bytes.begin(), bytes.end(), title.begin(), title.end());
  ASSERT_NE(at, bytes.end());
  at[2] = 0x89;  // a lead byte at the end of the field
  WriteBytes(s.dir.File("broken.scl"), bytes);
  ASSERT_TRUE(s.LoadFrom(s.dir.File("broken.scl")));
  const RowTexts row = s.doc.Tables.SchDatList.Texts(0);
  EXPECT_EQ(row.Title, "\u4F1A\uFFFD");
  EXPECT_EQ(row.AlarmSound, "ALARM\u4F1A");
  EXPECT_EQ(row.Memo.size(), 10000u + 3u * 8872);
  ASSERT_TRUE(s.RoundTrip());
  EXPECT_EQ(s.doc.Tables.SchDatList.Texts(0).Title, "\u4F1A?");
}

// A file of several pieces is handed to the disk as it is made, its links to parts already
// handed on written in place afterwards: the bytes on disk are those made in memory.
TEST(SclSave, AFileWrittenInPiecesIsTheFileMadeInMemory) {
  TestStore s;
  for (int day = 0; day < 3000; ++day) {
    const CivilDate date = AddDays({2020, 1, 1}, day % 1500);
    SchRecord r = MakeItem(date.year, date.month, date.day, 540, 600, "Item");
    r.Memo = std::string(400, static_cast<char>('a' + day % 26));
    s.store.InsertRecord(r);
  }
  const std::vector<std::uint8_t> made = s.store.BuildScheduleBytes();
  ASSERT_GT(made.size(), 1u << 20);
  EXPECT_EQ(s.SaveTo("pieces.scl"), made);
}

}  // namespace
}  // namespace sched
