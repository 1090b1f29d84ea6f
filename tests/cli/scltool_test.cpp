#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>

#include "store/row_order.h"
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
  const std::string command =
      std::string(SCLTOOL_PATH) + " " + args + redirect[static_cast<int>(stream)];
  FILE* pipe = popen(command.c_str(), "r");
  Result result{-1, ""};
  std::array<char, 4096> buffer;
  while (std::size_t n = fread(buffer.data(), 1, buffer.size(), pipe))
    result.out.append(buffer.data(), n);
  const int status = pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
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

TEST(Scltool, ExitStatusAndMessages) {
  TempDir dir;
  WriteBytes(dir.File("bad.scl"), {'Q', '3', '9', 'E', 0, 0, 1, 0, 100, 0, 0, 0});
  WriteBytes(dir.File("text.scl"), {'D', 'a', 'y', ',', 'T', 'i', 't', 'l', 'e', '\n'});
  WriteBytes(dir.File("short.scl"), {'Q', '3', '9'});
  WriteBytes(dir.File("empty.scl"), {});
  const std::string bad = Quoted(dir.File("bad.scl"));
  const std::string text = Quoted(dir.File("text.scl"));
  const std::string out = Quoted(dir.File("out.scl"));
  const std::string notScheduler = "This is not a Scheduler file.\n";
  struct Case {
    std::string args;
    int status;
    Stream stream;
    std::string out;  // the whole output, or for bad usage how it begins
  };
  const Case cases[] = {
      {"info " + bad, 1, Stream::Err, "Read error!\n"},
      {"dump " + Quoted(dir.File("missing.scl")), 1, Stream::Err, "Read error!\n"},
      {"resave " + bad + " " + out, 1, Stream::Err, "Read error!\n"},
      {"info " + text, 1, Stream::Err, notScheduler},
      {"dump " + Quoted(dir.File("short.scl")), 1, Stream::Err, notScheduler},
      {"resave " + Quoted(dir.File("empty.scl")) + " " + out, 1, Stream::Err, notScheduler},
      {"month " + text + " 2024 5", 1, Stream::Err, notScheduler},
      {"info " + text, 1, Stream::Out, ""},
      {"--help", 0, Stream::Out, "usage: scltool"},
      {"-h", 0, Stream::Out, "usage: scltool"},
      {"--version", 0, Stream::Out, "scltool " SCHEDULER_VERSION "\n"},
      {"--version extra", 2, Stream::Err, "usage: scltool"},
      {"", 2, Stream::Err, "usage: scltool"},
      {"info", 2, Stream::Err, "usage: scltool"},
      {"frobnicate x.scl", 2, Stream::Err, "usage: scltool"},
      {"sample x.scl 2026 2 30", 2, Stream::Err, "usage: scltool"},
  };
  for (const Case& c : cases) {
    const Result r = Scltool(c.args, c.stream);
    EXPECT_EQ(r.status, c.status) << c.args;
    if (c.out.rfind("usage: ", 0) == 0) {
      EXPECT_EQ(r.out.rfind(c.out, 0), 0u) << c.args << ": " << r.out;
    } else {
      EXPECT_EQ(r.out, c.out) << c.args;
    }
  }
  EXPECT_FALSE(std::filesystem::exists(dir.File("out.scl")));
}

TEST(Scltool, RuleTellsWhatAWordHolds) {
  const std::string none =
      R"("ordinal":null,"isLast":null,"weekday":null,"day":null,"month":null})";
  const struct {
    const char* word;
    std::string json;
  } cases[] = {
      {"0", R"({"code":0,"option":0,"intervalField":null,)" + none},
      {"-32768", R"({"code":16,"option":null,"intervalField":null,)" + none},
      {"1", R"({"code":8,"option":1,"intervalField":0,)" + none},
      {"0x102c", R"({"code":4,"option":2,"intervalField":1,)" + none},
      {"0x203E", R"({"code":2,"option":3,"intervalField":0,"ordinal":null,"isLast":null,)"
                 R"("weekday":null,"day":31,"month":null})"},
      {"16570", R"({"code":1,"option":4,"intervalField":0,"ordinal":null,"isLast":null,)"
                R"("weekday":null,"day":29,"month":2})"},
      {"0x207D", R"({"code":22,"option":5,"intervalField":0,"ordinal":7,"isLast":true,)"
                 R"("weekday":5,"day":null,"month":null})"},
      {"0x773E", R"({"code":50,"option":6,"intervalField":6,"ordinal":7,"isLast":true,)"
                 R"("weekday":6,"day":null,"month":12})"},
      {"0x4449", R"({"code":50,"option":6,"intervalField":0,"ordinal":1,"isLast":false,)"
                 R"("weekday":1,"day":null,"month":1})"},
  };
  for (const auto& c : cases) {
    const Result r = Scltool(std::string("rule ") + c.word);
    EXPECT_EQ(r.status, 0) << c.word;
    EXPECT_EQ(r.out, c.json + "\n") << c.word;
  }
}

TEST(Scltool, RuleSaysTheSentenceOfTheDialogOpenedOnIt) {
  const struct {
    const char* args;
    const char* sentence;
    const char* message;
  } cases[] = {
      {"0x207D 2026/11/27 3",
       R"( The item repeats on Last Friday every 1 month(s)\rfrom 2026/11/27(Fri) to )"
       R"(2027/01/29(Fri).)",
       ""},
      {"0x4449 2027/01/04 2",
       R"( The item repeats on 1st Monday in December every 1 month(s)\rfrom 2027/01/04(Mon) )"
       R"(to 2028/01/03(Mon).)",
       ""},
      {"0x0840 2099/12/20 10",  // the count falls to 6
       R"( The item repeats every 2 day(s)\rfrom 2099/12/20(Sun) to 2099/12/30(Wed).)", ""},
      {"0x0800 2099/12/31 3", " No Repeat ", "No more setting!.\n"},
      {"0x2014 2099/12/10 2", " No Repeat ", "No more setting\n"},
      {"0x8000 2026/11/21 2", " No Repeat ", ""},
  };
  for (const auto& c : cases) {
    const Result out = Scltool(std::string("rule ") + c.args, Stream::Out);
    EXPECT_EQ(out.status, 0) << c.args;
    const std::size_t at = out.out.find(R"(,"sentence":")");
    ASSERT_NE(at, std::string::npos) << out.out;
    EXPECT_EQ(out.out.substr(at), std::string(R"(,"sentence":")") + c.sentence + "\"}\n") << c.args;
    EXPECT_EQ(Scltool(std::string("rule ") + c.args, Stream::Err).out, c.message) << c.args;
  }
}

TEST(Scltool, RuleRefusesWhatIsNoWordDateOrCount) {
  for (const char* args :
       {"", "0x10000", "65536", "-32769", "0x", "0x-1", "0x+1", "12x", "abc", "12 2026/11/21",
        "12 2026/11/21 2 9", "12 2026/02/29 2", "12 2100/01/01 2", "12 2026-11-21 2",
        "12 2026/11/21 0", "12 2026/11/21 x"}) {
    const Result r = Scltool(std::string("rule ") + args, Stream::Err);
    EXPECT_EQ(r.status, 2) << args;
    EXPECT_EQ(r.out, "usage: scltool rule WORD [YYYY/MM/DD COUNT]\n") << args;
  }
}

// scltool add, case by case: the arguments, the exit status, the messages and what the file
// then holds.
TEST(Scltool, AddFillsTheDialogsAsAUserDoes) {
  const struct {
    const char* args;
    int status;
    const char* messages;
    int rows;  // live rows of the file afterwards, -1 when it was not written
  } cases[] = {
      {"--title Team --date 2026/11/24 --time 09:00-10:00 --repeat weekly --every 2 --count 5", 0,
       "", 5},
      {"--title Late --date 2099/12/20 --rule-date 2099/11/01 --repeat daily --every 1 --count 31",
       0, "Cannot set schedules beyond 2099/12/31.\n", 12},
      {"--title Y --date 2099/05/01 --rule-date 2026/05/01 --repeat yearly --every 1 --count 5", 0,
       "Removing regular information.\n", 1},
      {"--title Late --date 2099/12/20 --repeat daily --every 1 --count 31", 1, "Invalid input.\n",
       -1},
      {"--title Trip --date 2026/01/01 --end-date 2026/01/30 --place Alps", 0, "", 30},
      {"--title Trip --date 2026/01/01 --end-date 2026/01/31", 1,
       "A schedule can overlap 30 days at most.\n", -1},
      {"--title A --date 2026/11/25 --alarm 15 --sound LONGMELODY", 1,
       "Input string is too long.\r\nMaximum string length is 8 chacters\n", -1},
      {"--title A --date 2026/11/25 --all-day --time 10:00-11:00", 2, nullptr, -1},
      {"--title A --date 2026/02/30", 2, nullptr, -1},
      {"--title A --date 2026/11/25 --every 2", 2, nullptr, -1},
      {"--date 2026/11/25", 2, nullptr, -1},
  };
  for (const auto& c : cases) {
    TempDir dir;
    const std::string file = dir.File("new.scl");
    const Result added = Scltool("add " + Quoted(file) + " " + c.args, Stream::Err);
    EXPECT_EQ(added.status, c.status) << c.args;
    if (c.messages != nullptr) {
      EXPECT_EQ(added.out, c.messages) << c.args;
    }
    TestStore s;
    if (c.rows == -1) {
      EXPECT_FALSE(std::filesystem::exists(file)) << c.args;
      continue;
    }
    ASSERT_TRUE(s.LoadFrom(file)) << c.args;
    EXPECT_EQ(s.doc.Tables.RowCount, c.rows) << c.args;
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
