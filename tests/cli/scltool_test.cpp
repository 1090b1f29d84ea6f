#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <sstream>

#include "store/row_order.h"
#include "tests/support/case_file.h"
#include "tests/support/run_command.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

struct Result {
  int status;
  std::string out;
};

// Which of scltool's output streams a run collects.
enum class Stream { Both, Out, Err };

// Runs scltool with the arguments and collects the streams asked for.
Result Scltool(const std::string& args, Stream stream = Stream::Both) {
  const char* const redirect[] = {" 2>&1", " 2>/dev/null", " 2>&1 >/dev/null"};
  const auto [status, out] =
      RunCommand(std::string(SCLTOOL_PATH) + " " + args + redirect[static_cast<int>(stream)]);
  return {status, out};
}

std::string Quoted(const std::string& path) {
  return "'" + path + "'";
}

TEST(Scltool, DumpGivesTheLoadedScheduleAsJson) {
  TestStore s;
  s.doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  SchRecord later = MakeItem(1999, 1, 2, 540, 600, "Say \"hi\"\\");
  later.Stamp = -1073741823;
  later.Memo = "one\r\ntwo";
  SchRecord first = MakeItem(1998, 12, 31, -1, -1, "Caf\u00E9");
  first.Stamp = -1073741822;
  first.Private = 1;
  first.AlarmOn = 1;
  first.AlarmSound = "SCHALARM";
  first.AlarmLead = 15;
  s.store.InsertRecord(later);  // 1999 comes first in the tables, last in the dump
  s.store.InsertRecord(first);
  s.doc.Tables.AncYY.At(0).HolidayOn[0] = 2;
  s.SaveTo("dump.scl");

  const Result r = Scltool("dump " + Quoted(s.dir.File("dump.scl")));
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(
      r.out,
      "{\"weekHoliday\":[1,0,0,0,0,0,1],\"years\":["
      "{\"year\":1999,\"holidayOn\":[2,0,0,0,0,0,0,0,0,0,0,0],\"holidayOff\":[0,0,0,0,0,0,0,0,0,0,"
      "0,0]},"
      "{\"year\":1998,\"holidayOn\":[0,0,0,0,0,0,0,0,0,0,0,0],\"holidayOff\":[0,0,0,0,0,0,0,0,0,0,"
      "0,0]}],"
      "\"rows\":["
      "{\"Day\":31,\"Month\":12,\"Year\":1998,\"EndDay\":31,\"EndMonth\":12,\"EndYear\":1998,"
      "\"StartTime\":-1,\"EndTime\":-1,\"SubNo\":0,\"Stamp\":-1073741822,\"ParentSubNo\":0,"
      "\"ParentStamp\":0,\"RepeatKind\":0,\"Private\":1,\"Title\":\"Caf\u00E9\",\"Place\":\"\","
      "\"Memo\":\"\",\"AlarmOn\":1,\"AlarmSound\":\"SCHALARM\",\"AlarmLead\":15},"
      "{\"Day\":2,\"Month\":1,\"Year\":1999,\"EndDay\":2,\"EndMonth\":1,\"EndYear\":1999,"
      "\"StartTime\":540,\"EndTime\":600,\"SubNo\":0,\"Stamp\":-1073741823,\"ParentSubNo\":0,"
      "\"ParentStamp\":0,\"RepeatKind\":0,\"Private\":0,\"Title\":\"Say \\\"hi\\\"\\\\\","
      "\"Place\":\"\",\"Memo\":\"one\\r\\ntwo\",\"AlarmOn\":0,\"AlarmSound\":\"\",\"AlarmLead\":0}"
      "]}\n");
}

TEST(Scltool, InfoSampleAndResave) {
  TempDir dir;
  const std::string sample = Quoted(dir.File("sample.scl"));
  ASSERT_EQ(Scltool("sample " + sample + " 2026 11 21").status, 0);
  const Result info = Scltool("info " + sample);
  EXPECT_EQ(info.status, 0);
  EXPECT_NE(info.out.find("Weekly holidays: Sun Sat\n"), std::string::npos) << info.out;
  EXPECT_NE(info.out.find("Items over multiple days: 1\n"), std::string::npos) << info.out;
  EXPECT_NE(info.out.find("Private rows: 1\n"), std::string::npos) << info.out;
  EXPECT_NE(info.out.find("Holiday days set: 2 (1 as holidays, 1 as workdays)\n"),
            std::string::npos)
      << info.out;

  const std::string copy = Quoted(dir.File("copy.scl"));
  EXPECT_EQ(Scltool("resave " + sample + " " + copy).status, 0);
  EXPECT_EQ(Scltool("dump " + copy).out, Scltool("dump " + sample).out);
}

// The runs of tests/data/cli/scltool-runs.txt.
TEST(Scltool, RunsGiveTheirStatusOutputAndFiles) {
  const std::map<std::string, Stream> streams = {
      {"both", Stream::Both}, {"out", Stream::Out}, {"err", Stream::Err}};
  for (const testing::CaseRow& row : testing::ReadCases("cli/scltool-runs.txt", 6, 60)) {
    TempDir dir;
    WriteBytes(dir.File("bad.scl"), {'Q', '3', '9', 'E', 0, 0, 1, 0, 100, 0, 0, 0});
    WriteBytes(dir.File("text.scl"), {'D', 'a', 'y', ',', 'T', 'i', 't', 'l', 'e', '\n'});
    WriteBytes(dir.File("short.scl"), {'Q', '3', '9'});
    WriteBytes(dir.File("empty.scl"), {});
    std::istringstream words(row[2]);
    std::string args;
    for (std::string word; words >> word;) {
      if (word.starts_with("$DIR/")) word = Quoted(dir.File(word.substr(5)));
      args += (args.empty() ? "" : " ") + word;
    }
    std::string expected = testing::Unescaped(row[4]);
    if (const auto at = expected.find("$VERSION"); at != std::string::npos) {
      expected.replace(at, 8, SCHEDULER_VERSION);
    }
    const Result r = Scltool(args, streams.at(row[0]));
    EXPECT_EQ(r.status, row.Int(1)) << row.where;
    if (row[3] == "starts") {
      EXPECT_TRUE(r.out.starts_with(expected)) << row.where << ": " << r.out;
    } else if (row[3] == "ends") {
      EXPECT_TRUE(r.out.ends_with(expected)) << row.where << ": " << r.out;
    } else {
      EXPECT_EQ(r.out, expected) << row.where;
    }
    if (row[5].empty()) continue;
    const std::string file = dir.File(row[5].substr(0, row[5].find(' ')));
    const std::string rows = row[5].substr(row[5].find(' ') + 1);
    TestStore s;
    if (rows == "-") {
      EXPECT_FALSE(std::filesystem::exists(file)) << row.where;
    } else {
      EXPECT_TRUE(s.LoadFrom(file)) << row.where;
      EXPECT_EQ(s.doc.Tables.RowCount, std::stoi(rows)) << row.where;
    }
  }
}

TEST(Scltool, AddKeepsWhatTheFileHeld) {
  TestStore s;
  s.store.InsertRecord(MakeItem(2026, 11, 24, 540, 600, "Kept"));
  const std::vector<std::uint8_t> before = s.SaveTo("kept.scl");
  ASSERT_FALSE(before.empty());
  const std::string file = s.dir.File("kept.scl");
  const Result added = Scltool("add " + Quoted(file) +
                               " --title Lunch --date 2026/11/24 --time 12:00-13:00 --alarm 10"
                               " --private --memo 'two lines'");
  ASSERT_EQ(added.status, 0) << added.out;
  ASSERT_TRUE(s.LoadFrom(file));
  ASSERT_EQ(s.doc.Tables.RowCount, 2);
  const SchDatRow& lunch = s.doc.Tables.SchDatList.At(1);
  EXPECT_EQ(lunch.Title, "Lunch");
  EXPECT_EQ(lunch.StartTime, 720);
  EXPECT_EQ(lunch.AlarmLead, 10);
  EXPECT_EQ(lunch.AlarmSound, "SCHALARM");
  EXPECT_EQ(lunch.Private, 1);
  EXPECT_EQ(s.doc.Tables.SchDatList.At(0).Title, "Kept");
}

// scltool alarms lists a day's alarms in ringing order, those reaching back from the next day
// included, and none of a deleted row or of an item without an alarm.
TEST(Scltool, AlarmsListsTheDaysAlarmsInRingingOrder) {
  TestStore s;
  const auto alarmed = [&](SchRecord item, int lead, const std::string& place) {
    item.AlarmOn = 1;
    item.AlarmSound = kDefaultAlarmSound;
    item.AlarmLead = static_cast<std::int16_t>(lead);
    item.Place = place;
    s.store.InsertRecord(item);
  };
  alarmed(MakeItem(2026, 11, 24, 600, 660, "Review"), 0, "Hall");
  alarmed(MakeItem(2026, 11, 24, 540, 570, "Standup"), 15, "Room 1");
  alarmed(MakeItem(2026, 11, 25, 10, 60, "Night shift"), 15, "");
  alarmed(MakeItem(2026, 11, 24, 1439, 1439, "Late"), 999, "");
  alarmed(MakeItem(2026, 11, 24, 720, 780, "Cancelled"), 5, "");
  s.store.InsertRecord(MakeItem(2026, 11, 24, 480, 500, "Quiet"));
  s.store.RemoveRow(4);
  ASSERT_FALSE(s.SaveTo("alarms.scl").empty());
  const std::string file = Quoted(s.dir.File("alarms.scl"));

  EXPECT_EQ(Scltool("alarms " + file + " 2026/11/24", Stream::Out).out,
            "7:20 AM\t11:59pm - 11:59pm\tLate\t\n"
            "8:45 AM\t9:00am - 9:30am\tStandup\tRoom 1\n"
            "10:00 AM\t10:00am - 11:00am\tReview\tHall\n"
            "11:55 PM\t12:10am - 1:00am\tNight shift\t\n");
  EXPECT_EQ(Scltool("alarms " + file + " 2026/11/25").out, "");
  EXPECT_EQ(Scltool("alarms " + file).status, 0);
  for (const char* bad : {" 2026/11/31", " 24.11.2026", " 2026/11/24 x"}) {
    const Result r = Scltool("alarms " + file + bad);
    EXPECT_EQ(r.status, 2) << bad;
    EXPECT_EQ(r.out, "usage: scltool alarms FILE.scl [YYYY/MM/DD]\n") << bad;
  }
  EXPECT_EQ(Scltool("alarms " + Quoted(s.dir.File("none.scl"))).out, "Read error!\n");
}

// scltool delete, case by case on one file: the arguments, the exit status, the questions (or
// how the usage begins) and the live rows left by date, "" when the file is as it was.
TEST(Scltool, DeleteAsksAndRemovesAsTheWindowDoes) {
  TestStore s;
  s.store.InsertRecord(MakeItem(2026, 2, 5, 540, 600, "Early"));
  SchRecord gym = MakeItem(2026, 2, 24, 1080, 1140, "Gym");
  gym.RepeatKind = 0x1008;  // weekly on Tuesdays, to March 17
  InsertSeries(s.store, gym, 4, 7);
  s.store.InsertRecord(MakeItem(2026, 3, 10, 480, 540, "Dentist"));
  s.store.InsertRecord(MakeItem(2026, 4, 1, -1, -1, "Late"));
  const std::vector<std::uint8_t> before = s.SaveTo("before.scl");
  ASSERT_FALSE(before.empty());
  const std::string repeats =
      "Repeat schedules have been detected.\r\nDo you want to leave these schedules?\n";
  const struct {
    const char* args;
    int status;
    std::string messages;
    const char* rows;
  } cases[] = {
      {"--date 2026/03/10 --index 2", 0, "Do you want to delete Weekly repeat schedule\r\nGym?\n",
       "Early 2-5, Dentist 3-10, Late 4-1"},
      {"--date 2026/03/10 --index 3", 1, "", ""},
      {"--month 2026/03", 0, "Delete schedule in 2026/3.\r\nAre you sure?\n" + repeats,
       "Early 2-5, Gym 2-24, Late 4-1"},
      {"--month 2026/03 --keep-repeats", 0,
       "Delete schedule in 2026/3.\r\nAre you sure?\n" + repeats,
       "Early 2-5, Gym 2-24, Gym 3-3, Gym 3-10, Gym 3-17, Late 4-1"},
      {"--older-than 2026/03/10", 0,
       "Delete the schedule data older than 2026/03/10. Are you sure?\n" + repeats,
       "Dentist 3-10, Gym 3-10, Gym 3-17, Late 4-1"},
      {"--newer-than 2026/03/10 --keep-repeats", 0,
       "Delete the Schedule data newer than 2026/03/10.\r\nAre you sure?\n" + repeats,
       "Early 2-5, Gym 2-24, Gym 3-3, Dentist 3-10, Gym 3-10, Gym 3-17"},
      {"--year 2025", 1, "", ""},
      {"--year 2026 --index 1", 2, "usage: scltool delete", ""},
      {"--date 2026/03/10 --index 1 --keep-repeats", 2, "usage: scltool delete", ""},
      {"--month 2026/13", 2, "usage: scltool delete", ""},
  };
  for (const auto& c : cases) {
    const std::string file = s.dir.File("case.scl");
    WriteBytes(file, before);
    const Result r = Scltool("delete " + Quoted(file) + " " + c.args, Stream::Err);
    EXPECT_EQ(r.status, c.status) << c.args;
    EXPECT_EQ(r.out.substr(0, c.status == 2 ? c.messages.size() : std::string::npos), c.messages)
        << c.args;
    if (*c.rows == '\0') {
      EXPECT_EQ(ReadBytes(file), before) << c.args;
      continue;
    }
    ASSERT_TRUE(s.LoadFrom(file)) << c.args;
    std::string rows;
    for (int row : LiveRowsInDateOrder(s.doc.Tables)) {
      const SchDatRow& l = s.doc.Tables.SchDatList.At(row);
      rows += (rows.empty() ? "" : ", ") + l.Title + " " + std::to_string(l.Month) + "-" +
              std::to_string(l.Day);
    }
    EXPECT_EQ(rows, c.rows) << c.args;
  }
}

// scltool paste on a day of two items, "Early" at 08:00 and then a series of five: which item
// the index takes, the messages, and the live rows of the file afterwards.
TEST(Scltool, PasteCopiesTheDaysItemByIndex) {
  const struct {
    const char* args;
    int status;
    const char* messages;
    int rows;
  } cases[] = {
      {"--from 2026/11/24 --index 2 --to 2099/11/26", 0,
       "Do you want to keep regular information?\nCannot paste schedules beyond 12/31/2099.\n", 9},
      {"--from 2026/11/24 --index 2 --to 2026/11/25 --single", 0,
       "Do you want to keep regular information?\n", 7},
      {"--from 2026/11/24 --index 1 --to 2026/11/25", 0, "", 7},
      {"--from 2026/11/24 --index 3 --to 2026/11/25", 1, "Cannot copy this day that no schedule.\n",
       6},
      {"--from 2026/11/25 --index 1 --to 2026/11/25", 1, "Cannot copy this day that no schedule.\n",
       6},
      {"--from 2026/11/24 --index 0 --to 2026/11/25", 2, nullptr, 6},
      {"--from 2026/11/24 --index 1", 2, nullptr, 6},
  };
  TempDir dir;
  const std::string day = dir.File("day.scl");
  const std::string file = Quoted(dir.File("pasted.scl"));
  ASSERT_EQ(Scltool("add " + Quoted(day) +
                    " --title Team --date 2026/11/24 --time 09:00-10:00 --repeat weekly --every 2"
                    " --count 5")
                .status,
            0);
  ASSERT_EQ(
      Scltool("add " + Quoted(day) + " --title Early --date 2026/11/24 --time 08:00-08:30").status,
      0);
  for (const auto& c : cases) {
    std::filesystem::copy_file(day, dir.File("pasted.scl"),
                               std::filesystem::copy_options::overwrite_existing);
    const Result pasted = Scltool("paste " + file + " " + c.args, Stream::Err);
    EXPECT_EQ(pasted.status, c.status) << c.args;
    if (c.messages != nullptr) {
      EXPECT_EQ(pasted.out, c.messages) << c.args;
    } else {
      EXPECT_EQ(pasted.out.rfind("usage: scltool paste", 0), 0u) << c.args << ": " << pasted.out;
    }
    TestStore s;
    ASSERT_TRUE(s.LoadFrom(dir.File("pasted.scl")));
    EXPECT_EQ(s.doc.Tables.RowCount, c.rows) << c.args;
  }
}

}  // namespace
}  // namespace sched
