#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "store/scl_format.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

// Lays out a schedule file part by part. Parts go in the order they are added; a link to a
// part that comes later is patched in once that part has its offset.
class FileBuilder {
 public:
  FileBuilder() { WriteHeader(out_, SclHeader{}); }

  std::int32_t Size() const { return out_.Position(); }
  std::vector<std::uint8_t> Bytes() const { return out_.Data(); }

  void SetFirstYear(std::int32_t offset) { out_.PatchI32(8, offset); }
  void Link(std::int32_t offset, std::int32_t value) { out_.PatchI32(offset, value); }
  void SetU16(std::int32_t offset, std::uint16_t value) {
    ByteWriter bytes;
    bytes.U16(value);
    out_.Patch(offset, bytes.Data());
  }

  std::int32_t Record(SchRecord r) {
    r.VarLen = static_cast<std::int16_t>(r.Title.size() + r.Place.size() + r.Memo.size() + 8 +
                                         (r.AlarmOn == 1 ? 10 : 0));
    const std::int32_t at = out_.Position();
    WriteRecord(out_, r);
    return at;
  }

  std::int32_t Month(std::uint16_t month, const std::map<int, std::int32_t>& dayHeads,
                     std::int32_t multiDayHead = -1) {
    SclMonth m;
    m.Month = month;
    m.DayHead.fill(-1);
    for (const auto& [day, head] : dayHeads) m.DayHead[static_cast<std::size_t>(day - 1)] = head;
    m.MultiDayHead = multiDayHead;
    const std::int32_t at = out_.Position();
    WriteMonth(out_, m);
    return at;
  }

  std::int32_t Year(std::uint16_t year, std::int32_t firstMonth) {
    SclYear y;
    y.Year = year;
    y.FirstMonth = firstMonth;
    const std::int32_t at = out_.Position();
    WriteYear(out_, y);
    return at;
  }

  // Cuts the file to its first `size` bytes.
  std::vector<std::uint8_t> Prefix(std::size_t size) const {
    std::vector<std::uint8_t> bytes = out_.Data();
    bytes.resize(std::min(size, bytes.size()));
    return bytes;
  }

 private:
  ByteWriter out_;
};

SchRecord Item(int year, int month, int day, int start = 540, int end = 600,
               const std::string& title = "Item") {
  SchRecord r = MakeItem(year, month, day, start, end, title);
  r.Stamp = static_cast<std::int32_t>(0xC2A40000u + static_cast<std::uint32_t>(day));
  return r;
}

// The offset of the record's Next link and of the year's and month's Next links.
constexpr std::int32_t kRecordNext = kRecordNextOffset;
constexpr std::int32_t kYearNext = kYearNextOffset;
constexpr std::int32_t kMonthNext = kMonthNextOffset;

// A file of one item: record, month, year, in the order the save writes them.
struct OneItem {
  FileBuilder file;
  std::int32_t record;
  std::int32_t month;
  std::int32_t year;
};

OneItem OneItemFile(const SchRecord& r, int headDay, int month = 7, int year = 1998) {
  OneItem f;
  f.record = f.file.Record(r);
  f.month = f.file.Month(static_cast<std::uint16_t>(month), {{headDay, f.record}});
  f.year = f.file.Year(static_cast<std::uint16_t>(year), f.month);
  f.file.SetFirstYear(f.year);
  return f;
}

OneItem OneItemFile(const SchRecord& r) {
  return OneItemFile(r, r.Day, r.Month, r.Year);
}

// A file of one item laid out year, month, record, so that the record ends the file.
struct RecordLast {
  FileBuilder file;
  std::int32_t record;
};

RecordLast RecordLastFile(const SchRecord& r) {
  RecordLast f;
  const std::int32_t year = f.file.Year(r.Year, f.file.Size() + kYearSize);
  f.record = f.file.Size() + kMonthSize;
  f.file.Month(r.Month, {{r.Day, f.record}});
  f.file.Record(r);
  f.file.SetFirstYear(year);
  return f;
}

// An item over three days, 1998/7/8 to 7/10, in the month's multi-day chain.
SchRecord MultiDayItem() {
  SchRecord r = Item(1998, 7, 8, -1, -1, "Trip");
  r.EndDay = 10;
  r.SubNo = 1;
  r.ParentSubNo = 1;
  r.ParentStamp = r.Stamp;
  r.RepeatKind = kMultiDayKind;
  return r;
}

// Each case builds a file that the loader must refuse, and, with `damaged` false, its
// well-formed twin, which differs only in the fault and loads `twinRows` rows.
struct DamagedCase {
  const char* name;
  std::function<std::vector<std::uint8_t>(bool damaged)> build;
  int twinRows;
};

const std::vector<DamagedCase>& DamagedCases() {
  static const std::vector<DamagedCase> cases = {
      {"FirstYearPastTheEnd",
       [](bool damaged) {
         OneItem f = OneItemFile(Item(1998, 7, 9));
         if (damaged) f.file.SetFirstYear(f.file.Size() + 100);
         return f.file.Bytes();
       },
       1},
      {"FirstYearNegative",
       [](bool damaged) {
         OneItem f = OneItemFile(Item(1998, 7, 9));
         if (damaged) f.file.SetFirstYear(-2);
         return f.file.Bytes();
       },
       1},
      {"YearCutByTheEndOfTheFile",
       [](bool damaged) {
         OneItem f = OneItemFile(Item(1998, 7, 9));
         if (damaged) f.file.SetFirstYear(f.file.Size() - kYearSize / 2);
         return f.file.Bytes();
       },
       1},
      {"DayHeadAtTheEndOfTheFile",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t record = f.Record(Item(1998, 7, 9));
         const std::int32_t month = f.Month(7, {{9, record}});
         const std::int32_t year = f.Year(1998, month);
         f.SetFirstYear(year);
         if (damaged) f.Link(month + 2 + 4 + 8 * 4, f.Size());  // DayHead[8]
         return f.Bytes();
       },
       1},
      {"YearChainLoops",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t r1 = f.Record(Item(1998, 7, 9));
         const std::int32_t m1 = f.Month(7, {{9, r1}});
         const std::int32_t y1 = f.Year(1998, m1);
         const std::int32_t r2 = f.Record(Item(1999, 7, 9));
         const std::int32_t m2 = f.Month(7, {{9, r2}});
         const std::int32_t y2 = f.Year(1999, m2);
         f.SetFirstYear(y1);
         f.Link(y1 + kYearNext, y2);
         if (damaged) f.Link(y2 + kYearNext, y1);
         return f.Bytes();
       },
       2},
      {"YearPointsToItself",
       [](bool damaged) {
         OneItem f = OneItemFile(Item(1998, 7, 9));
         if (damaged) f.file.Link(f.year + kYearNext, f.year);
         return f.file.Bytes();
       },
       1},
      {"MonthChainLoops",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t r1 = f.Record(Item(1998, 7, 9));
         const std::int32_t m1 = f.Month(7, {{9, r1}});
         const std::int32_t r2 = f.Record(Item(1998, 8, 9));
         const std::int32_t m2 = f.Month(8, {{9, r2}});
         f.Link(m1 + kMonthNext, m2);
         if (damaged) f.Link(m2 + kMonthNext, m1);
         f.SetFirstYear(f.Year(1998, m1));
         return f.Bytes();
       },
       2},
      {"DayChainLoops",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t r1 = f.Record(Item(1998, 7, 9, 540));
         const std::int32_t r2 = f.Record(Item(1998, 7, 9, 600));
         f.Link(r1 + kRecordNext, r2);
         if (damaged) f.Link(r2 + kRecordNext, r1);
         f.SetFirstYear(f.Year(1998, f.Month(7, {{9, r1}})));
         return f.Bytes();
       },
       2},
      {"MultiDayChainLoops",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t r = f.Record(MultiDayItem());
         if (damaged) f.Link(r + kRecordNext, r);
         f.SetFirstYear(f.Year(1998, f.Month(7, {}, r)));
         return f.Bytes();
       },
       3},
      {"TwoMonthsShareOneDayChain",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t july = f.Record(Item(1998, 7, 9));
         const std::int32_t august = f.Record(Item(1998, 8, 9));
         const std::int32_t m1 = f.Month(7, {{9, july}});
         const std::int32_t m2 = f.Month(8, {{9, damaged ? july : august}});
         f.Link(m1 + kMonthNext, m2);
         f.SetFirstYear(f.Year(1998, m1));
         return f.Bytes();
       },
       2},
      {"TwoYearsShareOneMonth",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t r1 = f.Record(Item(1998, 7, 9));
         const std::int32_t r2 = f.Record(Item(1999, 7, 9));
         const std::int32_t m1 = f.Month(7, {{9, r1}});
         const std::int32_t m2 = f.Month(7, {{9, r2}});
         const std::int32_t y1 = f.Year(1998, m1);
         const std::int32_t y2 = f.Year(1999, damaged ? m1 : m2);
         f.Link(y1 + kYearNext, y2);
         f.SetFirstYear(y1);
         return f.Bytes();
       },
       2},
      {"DayAndMultiDayChainShareARecord",
       [](bool damaged) {
         FileBuilder f;
         const std::int32_t span = f.Record(MultiDayItem());
         const std::int32_t plain = f.Record(Item(1998, 7, 20));
         f.SetFirstYear(f.Year(1998, f.Month(7, {{20, damaged ? span : plain}}, span)));
         return f.Bytes();
       },
       4},
      {"RecordLaidInsideAnotherRecordsTitle",
       // The second record of the chain is made of bytes of the first one's title.
       [](bool damaged) {
         ByteWriter inner;
         SchRecord second = Item(1998, 7, 9, 600, 660, "Inner");
         second.VarLen = static_cast<std::int16_t>(second.Title.size() + 8);
         WriteRecord(inner, second);
         const std::string innerBytes(inner.Data().begin(), inner.Data().end());
         const std::string pad(10, 'x');
         FileBuilder f;
         const std::int32_t first = f.Record(Item(1998, 7, 9, 540, 600, pad + innerBytes + pad));
         const std::int32_t inside = first + kRecordFixedSize + 2 + 10;
         const std::int32_t apart = f.Record(second);
         f.Link(first + kRecordNext, damaged ? inside : apart);
         f.SetFirstYear(f.Year(1998, f.Month(7, {{9, first}})));
         return f.Bytes();
       },
       2},
      {"TitleRunsPastTheEnd",
       [](bool damaged) {
         RecordLast f = RecordLastFile(Item(1998, 7, 9, 540, 600, "Title"));
         if (damaged) f.file.SetU16(f.record + kRecordFixedSize, 0xFFFF);
         return f.file.Bytes();
       },
       1},
      {"MemoRunsPastTheEnd",
       [](bool damaged) {
         SchRecord r = Item(1998, 7, 9, 540, 600, "Title");
         r.Memo = "memo";
         RecordLast f = RecordLastFile(r);
         // The memo's length follows the title and the place's empty length; 7 is one byte
         // more than the memo and the alarm flag behind it.
         const auto memoLength =
             static_cast<std::int32_t>(f.record + kRecordFixedSize + 2 + r.Title.size() + 2);
         if (damaged) f.file.SetU16(memoLength, 7);
         return f.file.Bytes();
       },
       1},
      {"AlarmSoundCutShort",
       [](bool damaged) {
         SchRecord r = Item(1998, 7, 9);
         r.AlarmOn = 1;
         r.AlarmSound = "SCHALARM";
         r.AlarmLead = 5;
         const RecordLast f = RecordLastFile(r);
         // Without the last five bytes of the sound, and the lead.
         return damaged ? f.file.Prefix(static_cast<std::size_t>(f.file.Size()) - 7)
                        : f.file.Bytes();
       },
       1},
      {"AlarmLeadCutShort",
       [](bool damaged) {
         SchRecord r = Item(1998, 7, 9);
         r.AlarmOn = 1;
         r.AlarmSound = "BELL";
         r.AlarmLead = 5;
         const RecordLast f = RecordLastFile(r);
         return damaged ? f.file.Prefix(static_cast<std::size_t>(f.file.Size()) - 1)
                        : f.file.Bytes();
       },
       1},
      {"Month13",
       [](bool damaged) {
         return OneItemFile(Item(1998, 12, 9), 9, damaged ? 13 : 12).file.Bytes();
       },
       1},
      {"Month0",
       [](bool damaged) { return OneItemFile(Item(1998, 1, 9), 9, damaged ? 0 : 1).file.Bytes(); },
       1},
      {"DayHeadOnFeb30",
       // The record's own date is right; only the day head that reaches it is not.
       [](bool damaged) {
         return OneItemFile(Item(2001, 2, 28), damaged ? 30 : 28, 2, 2001).file.Bytes();
       },
       1},
      {"DayHeadOnFeb29OfACommonYear",
       [](bool damaged) {
         const int year = damaged ? 2001 : 2000;
         return OneItemFile(Item(year, 2, 28), 29, 2, year).file.Bytes();
       },
       1},
      {"DayHeadOnApr31",
       [](bool damaged) {
         return OneItemFile(Item(2001, 4, 30), damaged ? 31 : 30, 4, 2001).file.Bytes();
       },
       1},
      {"Year1900",
       [](bool damaged) {
         return OneItemFile(Item(1901, 1, 1), 1, 1, damaged ? 1900 : 1901).file.Bytes();
       },
       1},
      {"Year2100",
       [](bool damaged) {
         return OneItemFile(Item(2099, 12, 31), 31, 12, damaged ? 2100 : 2099).file.Bytes();
       },
       1},
      {"HolidayOnlyYear1900",
       [](bool damaged) {
         FileBuilder f;
         f.SetFirstYear(f.Year(damaged ? 1900 : 1901, -1));
         return f.Bytes();
       },
       0},
      {"RecordDatedFeb30",
       [](bool damaged) {
         SchRecord r = Item(2001, 2, 28);
         if (damaged) r.Day = 30;
         return OneItemFile(r, 28, 2, 2001).file.Bytes();
       },
       1},
      {"RecordEndingInMonth0",
       [](bool damaged) {
         SchRecord r = Item(2001, 2, 28);
         if (damaged) r.EndMonth = 0;
         return OneItemFile(r).file.Bytes();
       },
       1},
      {"RecordOfYear2100",
       [](bool damaged) {
         SchRecord r = Item(2099, 12, 31);
         if (damaged) r.EndYear = 2100;
         return OneItemFile(r).file.Bytes();
       },
       1},
      {"RepeatOccurrenceEndingOnApr31",
       [](bool damaged) {
         FileBuilder f;
         SchRecord r = Item(2001, 4, 2);
         r.EndDay = static_cast<std::uint8_t>(damaged ? 31 : 30);
         r.EndMonth = 4;
         r.SubNo = 1;
         r.ParentSubNo = 1;
         r.ParentStamp = r.Stamp;
         r.RepeatKind = 0x1000 | 1 * 4;  // weekly on Mondays
         const std::int32_t first = f.Record(r);
         r.SubNo = 2;
         const std::int32_t second = f.Record(r);
         f.SetFirstYear(f.Year(2001, f.Month(4, {{2, first}, {9, second}})));
         return f.Bytes();
       },
       2},
      {"StartTime1440",
       [](bool damaged) {
         return OneItemFile(Item(1998, 7, 9, damaged ? 1440 : 1439, 1439)).file.Bytes();
       },
       1},
      {"StartTimeMinus2",
       [](bool damaged) {
         return OneItemFile(Item(1998, 7, 9, damaged ? -2 : -1, -1)).file.Bytes();
       },
       1},
      {"EndTime1440",
       [](bool damaged) {
         return OneItemFile(Item(1998, 7, 9, 0, damaged ? 1440 : 1439)).file.Bytes();
       },
       1},
      {"MultiDayItemStartingAt1440",
       [](bool damaged) {
         FileBuilder f;
         SchRecord r = MultiDayItem();
         r.StartTime = static_cast<std::int16_t>(damaged ? 1440 : 0);
         const std::int32_t record = f.Record(r);
         f.SetFirstYear(f.Year(1998, f.Month(7, {}, record)));
         return f.Bytes();
       },
       3},
      {"TruncatedHeader",
       [](bool damaged) { return damaged ? FileBuilder().Prefix(8) : FileBuilder().Bytes(); }, 0},
      {"EmptyFile",
       [](bool damaged) { return damaged ? std::vector<std::uint8_t>{} : FileBuilder().Bytes(); },
       0},
      {"ElevenBytes",
       [](bool damaged) { return damaged ? FileBuilder().Prefix(11) : FileBuilder().Bytes(); }, 0},
      {"RecordCutInItsFixedPart",
       [](bool damaged) {
         const RecordLast f = RecordLastFile(Item(1998, 7, 9));
         return damaged ? f.file.Prefix(static_cast<std::size_t>(f.record + 30)) : f.file.Bytes();
       },
       1},
  };
  return cases;
}

std::string CaseName(const testing::TestParamInfo<DamagedCase>& info) {
  return info.param.name;
}

void PrintTo(const DamagedCase& c, std::ostream* out) {
  *out << c.name;
}

// Everything a failed load must leave behind: an empty document, nothing changed.
void ExpectEmptyAfterFailure(const TestStore& s, bool loaded) {
  EXPECT_FALSE(loaded);
  EXPECT_EQ(s.doc.Tables.RowCount, 0);
  EXPECT_EQ(s.doc.Tables.YearCount, 0);
  EXPECT_EQ(s.doc.Tables.MonthCount, 0);
  EXPECT_TRUE(s.doc.Tables.SchDatList.IsEmpty());
  EXPECT_FALSE(s.doc.Dirty);
}

// A document with something in it, so that the failed load has something to throw away.
void FillWithAnItem(TestStore& s) {
  s.store.InsertRecord(MakeItem(2020, 5, 5, 600, 660, "Earlier"));
  s.doc.Dirty = true;
}

class DamagedFile : public testing::TestWithParam<DamagedCase> {};

TEST_P(DamagedFile, IsRefusedAndLeavesAnEmptyDocument) {
  TestStore s;
  FillWithAnItem(s);
  const std::string path = s.dir.File("damaged.scl");
  WriteBytes(path, GetParam().build(true));
  ExpectEmptyAfterFailure(s, s.LoadFrom(path));
}

TEST_P(DamagedFile, EndsTheSameWayForADeviceFile) {
  TestStore s;
  FillWithAnItem(s);
  const std::string path = s.dir.File("damaged.scl");
  WriteBytes(path, GetParam().build(true));
  ExpectEmptyAfterFailure(s, s.LoadFrom(path, 0));
}

// The twin of each damaged file loads without a message: the damaged file fails for its
// fault and not for the way the case builds it.
TEST_P(DamagedFile, WellFormedTwinLoadsQuietly) {
  TestStore s;
  const std::string path = s.dir.File("twin.scl");
  WriteBytes(path, GetParam().build(false));
  EXPECT_TRUE(s.LoadFrom(path));
  EXPECT_EQ(s.doc.Tables.RowCount, GetParam().twinRows);
}

INSTANTIATE_TEST_SUITE_P(Shapes, DamagedFile, testing::ValuesIn(DamagedCases()), CaseName);

TEST(UnreadableFile, AFileThatCannotBeOpenedIsRefused) {
  TestStore s;
  FillWithAnItem(s);
  ExpectEmptyAfterFailure(s, s.LoadFrom(s.dir.File("missing.scl")));
}

// Files that once broke the loader, kept as they were found.
TEST(KeptDamagedFiles, EachIsRefused) {
  const std::filesystem::path folder = SCHEDULER_TEST_DATA_DIR "/scl/damaged";
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  ASSERT_FALSE(files.empty()) << folder;
  for (const auto& file : files) {
    SCOPED_TRACE(file.filename().string());
    for (int onPc : {1, 0}) {
      TestStore s;
      ExpectEmptyAfterFailure(s, s.LoadFrom(file.string(), onPc));
    }
  }
}

}  // namespace
}  // namespace sched
