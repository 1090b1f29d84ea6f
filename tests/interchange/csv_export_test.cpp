#include "interchange/csv_export.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "core/codepage.h"
#include "interchange/csv_date_time.h"
#include "interchange/csv_import.h"
#include "store/chains.h"
#include "store/row_order.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

constexpr const char* kHeader =
    "\"Title\",\"Start Date\",\"Start Time\",\"End Date\",\"End Time\",\"All Day Event\","
    "\"Alarm On/Off\",\"Alarm Date\",\"Alarm Time\",\"Place\",\"Memo\",\"Private\"\r\n";

// The export's pieces joined.
class TextSink : public FileSink {
 public:
  bool Append(std::span<const std::uint8_t> bytes) override {
    text.append(bytes.begin(), bytes.end());
    return true;
  }
  bool WriteAt(std::uint64_t, std::span<const std::uint8_t>) override { return false; }
  std::string text;
};

// Takes the first pieces it is given, and refuses the next and every one after it.
class RefusingSink : public FileSink {
 public:
  explicit RefusingSink(int taken) : taken_(taken) {}
  bool Append(std::span<const std::uint8_t>) override { return ++calls <= taken_; }
  bool WriteAt(std::uint64_t, std::span<const std::uint8_t>) override { return false; }
  int calls = 0;

 private:
  int taken_;
};

std::string Exported(FakeStore& maker, const CsvSettings& settings) {
  TextSink sink;
  EXPECT_TRUE(ExportCsvFile(maker.doc, settings, maker.progress, sink));
  return sink.text;
}

std::string Import(FakeStore& maker, const std::string& file) {
  EXPECT_TRUE(ImportCsvFile({maker.store, maker.progress, maker.clock}, file, {{}, false}));
  return Exported(maker, {{}, false});
}

TEST(CsvExport, RowsAsTheyAreWritten) {
  const struct {
    const char* name;
    std::string file;      // imported into an empty store
    std::string exported;  // without the header
  } cases[] = {
      {"a three-day all-day span is one row", "s,2001/5/1,0:00,2001/5/3,0:00\r\n",
       "\"s\",\"2001/05/01\",\"12:00 AM\",\"2001/05/03\",\"12:00 AM\",\"0\",\"0\",\"\",\"\",\"\","
       "\"\",\"0\"\r\n"},
      {"a one-day all-day item ends the next day", "d,2001/5/1,0:00,2001/5/2,0:00,1\r\n",
       "\"d\",\"2001/05/01\",\"12:00 AM\",\"2001/05/02\",\"12:00 AM\",\"1\",\"0\",\"\",\"\",\"\","
       "\"\",\"0\"\r\n"},
      {"on the last day it ends at its last minute", "d,2099/12/31,0:00,,,1\r\n",
       "\"d\",\"2099/12/31\",\"12:00 AM\",\"2099/12/31\",\"11:59 PM\",\"0\",\"0\",\"\",\"\",\"\","
       "\"\",\"0\"\r\n"},
      {"a timed span is one row with its alarm, quotes and line feeds as they stand",
       "\"a \"\"b\"\"\",2001/5/1,13:05,2001/5/3,14:00,0,1,2001/4/30,23:50,P,\"m\r\nn\",1\r\n",
       "\"a \"b\"\",\"2001/05/01\",\"1:05 PM\",\"2001/05/03\",\"2:00 "
       "PM\",\"0\",\"1\",\"2001/04/30\","
       "\"11:50 PM\",\"P\",\"m\nn\",\"1\"\r\n"},
      {"an alarm at the start is off", "t,2001/5/1,10:00,,,0,1,2001/5/1,10:00\r\n",
       "\"t\",\"2001/05/01\",\"10:00 AM\",\"2001/05/01\",\"10:00 AM\",\"0\",\"0\",\"\",\"\",\"\","
       "\"\",\"0\"\r\n"},
  };
  for (const auto& c : cases) {
    FakeStore maker;
    EXPECT_EQ(Import(maker, c.file), c.exported) << c.name;
  }
}

// A span is written once, from its first live day to the end its days carry, whichever of its
// days are gone.
// Every time of day has its text, which the import reads back as the same minute.
TEST(CsvExport, TimesOfDayReadBackAsWritten) {
  EXPECT_EQ(CsvTimeText(0), "12:00 AM");
  EXPECT_EQ(CsvTimeText(9 * 60 + 5), "9:05 AM");
  EXPECT_EQ(CsvTimeText(11 * 60 + 59), "11:59 AM");
  EXPECT_EQ(CsvTimeText(12 * 60), "12:00 PM");
  EXPECT_EQ(CsvTimeText(13 * 60 + 30), "1:30 PM");
  EXPECT_EQ(CsvTimeText(23 * 60 + 59), "11:59 PM");
  for (int minutes = 0; minutes < 24 * 60; ++minutes) {
    ASSERT_EQ(ParseCsvTime(CsvTimeText(minutes)), minutes) << CsvTimeText(minutes);
  }
}

// Texts are copied a word at a time and byte by byte around CRs and characters beyond ASCII:
// wherever those fall in a text of any length, the item is the text without its CRs in the
// code page, as the conversion of the whole text gives it. The table's texts are UTF-8.
TEST(CsvExport, TextsLoseTheirReturnsAndTakeTheCodePage) {
  const std::string pieces[] = {"a",
                                "b",
                                "\r",
                                "\n",
                                "\xC3\xA9",
                                "\xE2\x82\xAC",
                                "\xE6\x97\xA5",
                                "\xE2\x84\xA2",
                                "\xEF\xBD\xB1",
                                "\""};
  std::mt19937 random(19);
  for (const CodePage page : {CodePage::kWestern, CodePage::kJapanese}) {
    for (int round = 0; round < 3000; ++round) {
      std::string text;
      for (int length = round % 41; length > 0; --length) {
        // Plain letters mostly, so that words of them lie between the rest.
        const std::size_t piece = random() % 3 == 0 ? random() % std::size(pieces) : random() % 2;
        text += pieces[piece];
      }
      CsvRowFields row;
      row[kCsvTitle] = text;
      row[kCsvMemo] = text;
      CsvLines lines;
      WriteCsvRow(lines, row, {kCsvTitle, -1, kCsvMemo}, page);
      const std::string item = '"' + ToCodePage(StripCR(text), page) + '"';
      ASSERT_EQ(std::string(lines.Bytes().begin(), lines.Bytes().end()),
                item + ",\"\"," + item + "\r\n")
          << "text of " << text.size() << " bytes in code page " << static_cast<int>(page);
    }
  }
}

TEST(CsvExport, SpansRunFromTheirFirstLiveDay) {
  const struct {
    int deleted;  // the day deleted, -1 for none
    const char* first;
  } cases[] = {{-1, "2001/05/01"}, {0, "2001/05/02"}, {2, "2001/05/01"}};
  for (const auto& c : cases) {
    FakeStore maker;
    ASSERT_TRUE(ImportCsvFile({maker.store, maker.progress, maker.clock},
                              "s,2001/5/1,0:00,2001/5/3,0:00\r\n", {{}, false}));
    if (c.deleted >= 0) {
      maker.store.RemoveRow(LiveRowsInDateOrder(maker.doc.Tables)[std::size_t(c.deleted)]);
    }
    EXPECT_EQ(
        Exported(maker, {{}, false}),
        "\"s\",\"" + std::string(c.first) +
            "\",\"12:00 AM\",\"2001/05/03\",\"12:00 AM\",\"0\",\"0\",\"\",\"\",\"\",\"\",\"0\"\r\n")
        << c.deleted;
  }
}

TEST(CsvExport, HeaderAndColumnsOfTheMapping) {
  FakeStore maker;
  maker.store.InsertRecord(MakeItem(2001, 5, 1, 600, 660, "t"));
  const auto exported = [&](const char* columns, bool header) {
    return Exported(maker, {SplitCsvColumnNames(columns), header});
  };
  EXPECT_EQ(exported("", true), kHeader + std::string("\"t\",\"2001/05/01\",\"10:00 AM\","
                                                      "\"2001/05/01\",\"11:00 AM\",\"0\",\"0\","
                                                      "\"\",\"\",\"\",\"\",\"0\"\r\n"));
  // A second column of a field is empty; columns behind the last field are not written.
  EXPECT_EQ(exported("Title,Not Used,Title,Start Time,Not Used,Title", true),
            "\"Title\",\"\",\"\",\"Start Time\"\r\n\"t\",\"\",\"\",\"10:00 AM\"\r\n");
  EXPECT_EQ(exported("Not Used", true), "");
}

TEST(CsvExport, SeriesComeOutOneRowAnOccurrence) {
  FakeStore maker;
  SchRecord item = MakeItem(2001, 5, 1, 600, 660, "w");
  item.RepeatKind = 0x1000 | 1 << 2;  // weekly on Monday
  InsertSeries(maker.store, item, 10, 7);
  const std::string text = Exported(maker, {{}, false});
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 10);
}

// The live rows as the file can carry them: all but the numbers that tie rows together.
std::vector<std::string> CarriedRows(const SchDatCTL& t) {
  std::vector<std::string> rows;
  for (const int at : LiveRowsInDateOrder(t)) {
    std::string text;
    for (int col = kColDay; col <= kColDeleted; ++col) {
      if (col < kColSubNo || col > kColParentStamp) text += t.SchDatList.Cell(at, col) + "|";
    }
    rows.push_back(text);
  }
  return rows;
}

// What survives export and import: each occurrence's title, place, memo, days, times, alarm,
// private flag and span. Series come back as plain items (the file has no repeat fields); the
// alarm of an all-day item, and the span of an item over several days flagged all-day, do not
// come back, since the file writes neither.
TEST(CsvExport, RoundTripKeepsWhatTheFileHolds) {
  std::string file;
  for (int i = 0; i < 60; ++i) {
    const bool span = i % 7 == 0;
    const bool allDay = !span && i % 11 == 0;
    const bool alarm = !allDay && i % 3 == 0 && i % 24 != 0;  // a lead of 0 is no alarm
    char row[200];
    std::snprintf(row, sizeof row,
                  "item %d,%d/%d/%d,%d:%02d,%d/%d/%d,23:00,%d,%d,,%d:00,room %d,\"a\r\nb\",%d\r\n",
                  i, 2001 + i % 5, 1 + i % 12, 1 + i % 28, allDay ? 0 : i % 24, i % 60,
                  2001 + i % 5, 1 + i % 12, 1 + i % 28 + (span ? 2 : 0), allDay ? 1 : 0,
                  alarm ? 1 : 0, i % 24 == 0 ? 0 : i % 24 - 1, i, i % 2);
    file += row;
  }
  FakeStore first;
  const std::string exported = Import(first, file);
  FakeStore second;
  EXPECT_EQ(Import(second, exported), exported);
  EXPECT_EQ(CarriedRows(second.doc.Tables), CarriedRows(first.doc.Tables));
}

// A large schedule is written in runs of years side by side: the lines come in the order of
// the years table, and an item over several days whose days lie in two runs, or in a year whose
// rows came in after a later year's, is written once, by its first year.
TEST(CsvExport, ItemsOverTheYearsOfALargeScheduleComeOutOnceInOrder) {
  std::string file;
  // Years in the table in the order 2004, 2001, 2002, 2003, with some 6,000 rows each.
  const int years[] = {2004, 2001, 2002, 2003};
  for (const int year : years) {
    for (int i = 0; i < 6000; ++i) {
      file += "r" + std::to_string(year) + "," + std::to_string(year) + "/" +
              std::to_string(1 + i % 12) + "/" + std::to_string(1 + i / 12 % 28) + "," +
              std::to_string(i % 24) + ":00\r\n";
    }
    // An item from the end of the year into the next, and one from the year before into it.
    file += "into " + std::to_string(year + 1) + "," + std::to_string(year) + "/12/30,9:00," +
            std::to_string(year + 1) + "/1/2,10:00\r\n";
  }
  FakeStore maker;
  const std::string exported = Import(maker, file);
  // The lines one by one, as a plain walk through the years table writes them.
  std::vector<std::string> expected;
  const SchDatCTL& t = maker.doc.Tables;
  std::set<std::string> spansSeen;
  for (int i = 0; i < t.YearCount; ++i) {
    for (const int month : MonthChain(t.AncMM, t.AncYY.At(i).FirstMonth)) {
      for (const int head : t.AncMM.At(month).DayHead) {
        for (const int r : DayChain(t.SchDatList, head)) {
          const std::string title(t.SchDatList.Texts(r).Title);
          if (title.starts_with("into") && !spansSeen.insert(title).second) continue;
          expected.push_back(title);
        }
      }
    }
  }
  std::vector<std::string> titles;
  for (std::size_t at = 0; at < exported.size();) {
    const std::size_t end = exported.find("\r\n", at);
    titles.push_back(exported.substr(at + 1, exported.find('"', at + 1) - at - 1));
    at = end + 2;
  }
  ASSERT_EQ(titles.size(), expected.size());
  EXPECT_EQ(titles, expected);
  EXPECT_NE(exported.find("\"into 2002\",\"2001/12/30\",\"9:00 AM\",\"2002/01/02\""),
            std::string::npos);
  EXPECT_NE(exported.find("\"into 2005\",\"2004/12/30\",\"9:00 AM\",\"2005/01/02\""),
            std::string::npos);
  // Whichever run comes first to a day of such an item, only its first year writes it, so runs
  // side by side never write it twice.
  SpanGroups spans(t);
  std::vector<int> days;  // of the item into 2002, in its years' order in the table
  for (int r = 0; r < t.SchDatList.Rows(); ++r) {
    if (t.SchDatList.Texts(r).Title == "into 2002") days.push_back(r);
  }
  ASSERT_EQ(days.size(), 4U);
  const int group = spans.Of(days.front());
  const SchDatRow& last = t.SchDatList.At(days.back());
  const SchDatRow& first = t.SchDatList.At(days.front());
  EXPECT_EQ(last.Year, 2002);
  EXPECT_FALSE(spans.TakeWrite(group, last));
  EXPECT_TRUE(spans.TakeWrite(group, first));
  EXPECT_FALSE(spans.TakeWrite(group, first));

  // A file that takes no more after some runs fails the export at once, whichever thread's
  // run it refuses, and nothing is written after it.
  for (int taken = 0; taken < 3; ++taken) {
    RefusingSink refusing(taken);
    EXPECT_FALSE(ExportCsvFile(maker.doc, {{}, false}, maker.progress, refusing)) << taken;
    EXPECT_EQ(refusing.calls, taken + 1) << taken;
  }
}

}  // namespace
}  // namespace sched
