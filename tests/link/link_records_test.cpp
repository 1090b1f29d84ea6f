#include "link/link_records.h"

#include <gtest/gtest.h>

#include <string>

namespace sched {
namespace {

std::string Hex(const std::vector<std::uint8_t>& bytes) {
  std::string out;
  for (std::uint8_t b : bytes) {
    out += "0123456789abcdef"[b >> 4];
    out += "0123456789abcdef"[b & 15];
  }
  return out;
}

SchRecord Meeting() {
  SchRecord r;
  r.Day = 24, r.Month = 11, r.Year = 2026, r.EndDay = 8, r.EndMonth = 12, r.EndYear = 2026;
  r.StartTime = 540, r.EndTime = 600, r.SubNo = 3, r.Stamp = -1029439488;
  r.ParentSubNo = 1, r.ParentStamp = -1029439488, r.RepeatKind = 0x1000 | 2 << 2;
  r.Private = 1, r.AlarmOn = 1, r.AlarmLead = 15;
  r.Title = "\u4F1A\u8B70", r.Place = "Hall", r.Memo = "a\r\nb";
  return r;
}

TEST(LinkRecords, TheTwoFormsByteForByte) {
  const SchRecord r = Meeting();
  // count, date, end date, times, SubNo, Stamp, ParentSubNo (16 bits), ParentStamp, rule,
  // private, alarm, lead, then title, place and memo
  EXPECT_EQ(Hex(ExportRecordBytes(r, CodePage::kJapanese)),
            "3200"
            "180bea07"
            "080cea07"
            "1c025802"
            "0300"
            "0000a4c2"
            "0100"
            "0000a4c2"
            "0810"
            "0100"
            "0100"
            "0f00"
            "040089ef8b63"
            "040048616c6c"
            "0400610d0a62");
  // count, date, times, SubNo, Stamp, ParentSubNo (32 bits), ParentStamp, rule, private,
  // alarm, lead, then title and memo
  EXPECT_EQ(Hex(ImportRecordBytes(r, CodePage::kJapanese)),
            "2a00"
            "180bea07"
            "1c025802"
            "0300"
            "0000a4c2"
            "01000000"
            "0000a4c2"
            "0810"
            "0100"
            "0100"
            "0f00"
            "040089ef8b63"
            "0400610d0a62");
}

TEST(LinkRecords, ReadBackAsFarAsTheyAreWhole) {
  SchRecord r = Meeting();
  std::vector<std::uint8_t> file = ExportRecordBytes(r, CodePage::kWestern);
  r.Title = "Lunch";
  const std::vector<std::uint8_t> second = ExportRecordBytes(r, CodePage::kWestern);
  file.insert(file.end(), second.begin(), second.end());
  LinkRecords read = ReadExportRecords(file, CodePage::kWestern);
  ASSERT_EQ(read.records.size(), 2u);
  EXPECT_FALSE(read.cut);
  EXPECT_EQ(read.records[1], r);

  std::vector<std::uint8_t> imports = ImportRecordBytes(r, CodePage::kWestern);
  for (std::size_t cut : {imports.size() - 1, std::size_t{1}, imports.size() + 5}) {
    std::vector<std::uint8_t> bytes = imports;
    bytes.insert(bytes.end(), imports.begin(), imports.end());
    bytes.resize(imports.size() + std::min(cut, imports.size()));
    if (cut > imports.size()) bytes[imports.size()] = 4;  // a count too small for its texts
    read = ReadImportRecords(bytes, CodePage::kWestern);
    ASSERT_EQ(read.records.size(), 1u) << cut;
    EXPECT_TRUE(read.cut);
    EXPECT_EQ(read.records[0].Title, "Lunch");
    EXPECT_EQ(read.records[0].Memo, "a\r\nb");
    EXPECT_EQ(read.records[0].EndDay, 24);
  }
}

TEST(LinkRecords, TextsTooLongForTheCountAreCutMemoFirstBetweenCharacters) {
  SchRecord r = Meeting();
  r.Place = std::string(40000, 'p');
  for (int i = 0; i < 20000; ++i) r.Memo += "\u6A19";
  const std::vector<std::uint8_t> bytes = ExportRecordBytes(r, CodePage::kJapanese);
  const LinkRecords read = ReadExportRecords(bytes, CodePage::kJapanese);
  ASSERT_EQ(read.records.size(), 1u);
  EXPECT_EQ(read.records[0].Place.size(), 40000u);
  // 25,493 bytes were left for the memo: its first line and 12,744 whole kanji
  EXPECT_EQ(read.records[0].Memo.size(), 4u + 3u * 12744);
  EXPECT_EQ(bytes.size(), 2u + 65534u);
}

}  // namespace
}  // namespace sched
