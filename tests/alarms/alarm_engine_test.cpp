#include "alarms/alarm_engine.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "alarms/held_messages.h"
#include "platform/fake/fake_alarm_check_mark.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_clock_alarm.h"
#include "platform/fake/fake_progress.h"
#include "tests/support/test_store.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::Join;

// What rang, in order: "beep", "desktop [SUMMARY] [BODY]", "window [TITLE] [DATE] [TIME]
// [PLACE] [MEMO]" (after "window (missed at 9:00 AM)" for a missed alarm), "closed [TITLE]".
// While `windowsFail` is set, a notice window cannot be opened.
struct Rings : Beep, DesktopNotices, NoticeHost {
  std::vector<std::string> events;
  bool windowsFail = false;
  std::map<int, std::string> titles;     // of every notice rung, by its number
  std::map<std::string, int> lastIdOf;   // the number of a title's last ring
  std::function<void(int, int)> answer;  // of the notice windows

  void Sound() override { events.push_back("beep"); }
  void Post(const DesktopNotice& n) override {
    events.push_back("desktop [" + n.summary + "] [" + n.body + "]");
    titles[n.id] = n.summary;
    lastIdOf[n.summary] = n.id;
    const std::string actions =
        Join(n.actions, ",", [](const auto& a) { return a.first + "=" + a.second; });
    if (actions != "snooze=Snooze 5 minutes,dismiss=Dismiss") ADD_FAILURE() << actions;
  }
  void OpenNoticeWindow(const PendingNotice& n) override {
    if (windowsFail) throw std::runtime_error("no window for " + n.Title);
    const std::string missed = n.MissedAt.empty() ? "" : "(missed at " + n.MissedAt + ") ";
    events.push_back("window " + missed + "[" + n.Title + "] [" + n.DateText + "] [" + n.TimeText +
                     "] [" + n.Place + "] [" + n.Memo + "]");
  }
  void CloseNoticeWindow(int id) override { events.push_back("closed [" + titles[id] + "]"); }
  void SetAnswerEvent(std::function<void(int, int)> event) override { answer = std::move(event); }
  void SetActionEvent(std::function<void(int, const std::string&)>) override {}
};

// A day of the program with today's alarms, run on a fake clock as the window's timer runs it.
// The clock, the settings and what rang outlive a run of the program.
struct AlarmDay {
  FakeProgress progress;
  FakeClock clock{{2026, 11, 23, 8, 0, 0}};
  FakeClockAlarm clockAlarm;
  Rings rings;
  FakeAlarmCheckMark mark;
  std::ostringstream errors;

  // One run of the program: its document, alarms and store.
  struct Program {
    ScheduleDocument doc;
    AlarmEngine engine;
    ScheduleStore store;
    explicit Program(AlarmDay& d)
        : engine{AlarmServices{doc.Tables, d.clock, d.clockAlarm, d.rings, d.rings, d.rings, d.mark,
                               d.errors}},
          store{doc, StoreServices{engine, d.progress, d.clock}} {
      store.ClearIndex();
      store.ResetHeader();
    }
  };
  std::unique_ptr<Program> program = std::make_unique<Program>(*this);
  AlarmEngine& engine() { return program->engine; }
  ScheduleStore& store() { return program->store; }

  // Every ring of a case is looked at.
  void End() {
    EXPECT_EQ(Join(rings.events), "") << "rings not looked at";
    EXPECT_EQ(errors.str(), "") << "errors not looked at";
  }

  DateTime Now() const { return clock.Now(); }

  // Runs the clock on, a second at a time, to `until`.
  void RunTo(const DateTime& until) {
    while (Before(Now(), until)) {
      clock.MoveOn(1);
      const DateTime at = Now();
      const int minute = at.hour * 60 + at.minute;
      if (at.second == 0 && clockAlarm.ArmedMinute() == minute) clockAlarm.Ring();
      const bool lastMinute = at.hour == 23 && at.minute == 59;
      if (at.second % (lastMinute ? 3 : 10) == 0) engine().WatchDayChange();
    }
  }

  // The clock jumps on to `until`, as after a sleep or when it is put forward: the clock alarm
  // rings when its moment went by, then the day watch looks.
  void JumpTo(const DateTime& until) {
    const RingMoment from = MomentOf(Now());
    const RingMoment to = MomentOf(until);
    clock.Set(until);
    if (const auto armed = clockAlarm.ArmedMinute()) {
      const RingMoment dayStart = from - from % (24 * 60);
      RingMoment next = dayStart + *armed;
      if (next <= from) next += 24 * 60;
      if (next <= to) clockAlarm.Ring();
    }
    engine().WatchDayChange();
  }

  // The program ends and starts again at `at` on the same file, as a user starts it.
  void Restart(const DateTime& at) {
    const std::vector<std::uint8_t> bytes = store().BuildScheduleBytes();
    engine().SaveLastChecked();
    program.reset();
    clock.Set(at);
    program = std::make_unique<Program>(*this);
    ASSERT_TRUE(store().LoadSchedule(bytes));
    engine().SortTodayAlarms();
    engine().ArmNextAlarm();
    engine().ShowAlarmsMissedWhileClosed();
    engine().WatchDayChange();
    engine().ArmNextAlarm();
  }

  static bool Before(const DateTime& a, const DateTime& b) {
    const auto key = [](const DateTime& t) {
      return std::vector<int>{t.year, t.month, t.day, t.hour, t.minute, t.second};
    };
    return key(a) < key(b);
  }

  int RowOf(const std::string& title) const {
    const auto& list = program->doc.Tables.SchDatList;
    for (int row = 0; row < list.Rows(); ++row) {
      if (list.At(row).IsLive() && list.Texts(row).Title == title) return row;
    }
    ADD_FAILURE() << "no live row " << title;
    return 0;
  }
};

using S = AlarmDay&;
using R = const CaseRow&;

// "2026-11-23 08:30:00", or "08:30:00" on the clock's day.
DateTime ReadMoment(const DateTime& today, const std::string& text) {
  DateTime t = today;
  const bool read = text.size() > 8
                        ? std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &t.year, &t.month, &t.day,
                                      &t.hour, &t.minute, &t.second) == 6
                        : std::sscanf(text.c_str(), "%d:%d:%d", &t.hour, &t.minute, &t.second) == 3;
  if (!read) ADD_FAILURE() << "'" << text << "' is no moment";
  return t;
}

// "09:30" as minutes, "-" for none.
int ReadTime(const std::string& text) {
  int hour = 0, minute = 0;
  if (text == "-") return -1;
  if (std::sscanf(text.c_str(), "%d:%d", &hour, &minute) != 2) ADD_FAILURE() << text;
  return hour * 60 + minute;
}

std::string Clock24(int minute) {
  char text[8];
  std::snprintf(text, sizeof text, "%02d:%02d", minute / 60 % 100, minute % 60);
  return text;
}

testing::Trace<AlarmDay> AlarmTrace() {
  testing::Trace<AlarmDay> t;
  t.steps["clock"] = [](S d, R r) { d.clock.Set(ReadMoment(d.Now(), r[1])); };
  t.steps["run-to"] = [](S d, R r) { d.RunTo(ReadMoment(d.Now(), r[1])); };
  // Entered as the appointment dialog writes it: today's list put in order, the next alarm armed.
  t.steps["item"] = [](S d, R r) {
    const CivilDate date = r.Date(1);
    SchRecord item = MakeItem(date.year, date.month, date.day, ReadTime(r[2]), ReadTime(r[3]),
                              testing::Unescaped(r[5]));
    item.Place = testing::Unescaped(r[6]);
    item.Memo = testing::Unescaped(r[7]);
    if (r[4] != "-") {
      item.AlarmOn = 1;
      item.AlarmSound = kDefaultAlarmSound;
      item.AlarmLead = static_cast<std::int16_t>(r.Int(4));
    }
    d.store().InsertRecord(item);
    d.engine().SortTodayAlarms();
    d.engine().ArmNextAlarm();
  };
  t.steps["delete"] = [](S d, R r) { d.store().RemoveRow(d.RowOf(r[1])); };
  t.steps["reopen"] = [](S d, R) {
    const std::vector<std::uint8_t> bytes = d.store().BuildScheduleBytes();
    d.store().ClearIndex();
    d.store().ResetHeader();
    ASSERT_TRUE(d.store().LoadSchedule(bytes));
    d.engine().SortTodayAlarms();
    d.engine().ArmNextAlarm();
  };
  t.steps["new-document"] = [](S d, R) { d.store().ClearIndex(); };
  t.steps["rebuild"] = [](S d, R) { d.engine().RebuildTodayAlarms(); };
  t.steps["watch"] = [](S d, R) { d.engine().WatchDayChange(); };
  t.steps["hold"] = [](S d, R) { d.engine().HoldNotices(); };
  t.steps["release"] = [](S d, R) { d.engine().ReleaseNotices(); };
  t.steps["jump-to"] = [](S d, R r) { d.JumpTo(ReadMoment(d.Now(), r[1])); };
  t.steps["restart"] = [](S d, R r) { d.Restart(ReadMoment(d.Now(), r[1])); };
  // As the notice window's Snooze does.
  t.steps["snooze"] = [](S d, R r) { d.rings.answer(d.rings.lastIdOf.at(r[1]), r.Int(2)); };
  t.steps["windows-fail"] = [](S d, R r) { d.rings.windowsFail = r.YesNo(1); };
  t.steps["message-open-until"] = [](S d, R r) {
    struct Open : Messages {
      AlarmDay& day;
      DateTime until;
      Open(AlarmDay& d, DateTime u) : day(d), until(u) {}
      MsgAnswer Show(const MessageRequest&) override {
        day.rings.events.push_back(std::string("message opens, held ") +
                                   (day.engine().NoticesHeld() ? "yes" : "no"));
        day.RunTo(until);
        day.rings.events.push_back("message closes");
        return MsgAnswer::Ok;
      }
    } open(d, ReadMoment(d.Now(), r[1]));
    HeldMessages(open, d.engine()).Show({"Saved.", "Scheduler"});
  };

  t.looks["rings"] = [](S d, auto&) {
    const std::string rings = Join(d.rings.events, " ; ");
    d.rings.events.clear();
    return rings;
  };
  t.looks["list"] = [](S d, auto&) {
    return Join(d.engine().TodayAlarms(), " | ",
                [](const AlarmEntry& e) { return Clock24(e.AlarmMinute) + " " + e.Title; });
  };
  t.looks["entry"] = [](S d, auto& index) {
    const AlarmEntry& e = d.engine().TodayAlarms().at(std::stoul(index));
    return std::to_string(e.AlarmMinute) + " | " + e.Title + " | " + e.Place + " | " + e.DateText +
           " | " + e.TimeText + " | " + e.Memo + " | " + std::to_string(e.StartTime) + " " +
           std::to_string(e.EndTime) + " | " + std::to_string(e.Year) + " " +
           std::to_string(e.Month) + " " + std::to_string(e.Day) + " | " + std::to_string(e.Lead);
  };
  t.looks["armed"] = [](S d, auto&) {
    const auto minute = d.clockAlarm.ArmedMinute();
    return minute ? Clock24(*minute) : "off";
  };
  t.looks["next"] = [](S d, auto&) { return std::to_string(d.engine().NextAlarmIndex()); };
  t.looks["today"] = [](S d, auto&) { return std::to_string(d.engine().TodayCode()); };
  t.looks["errors"] = [](S d, auto&) {
    const std::string errors = d.errors.str();
    d.errors.str("");
    return errors;
  };
  t.looks["snoozed"] = [](S d, auto&) {
    return Join(d.engine().SnoozedNotices(), " | ", [](const SnoozedNotice& n) {
      const DateTime due = DateTimeOf(n.due);
      return Clock24(due.hour * 60 + due.minute) + " " + n.rung.notice.Title;
    });
  };
  t.looks["mark"] = [](S d, auto&) {
    const DateTime& m = d.mark.stored.value();
    return SlashedDate({m.year, m.month, m.day}) + " " + Clock24(m.hour * 60 + m.minute);
  };
  t.looks["held"] = [](S d, auto&) { return testing::YesNo(d.engine().NoticesHeld()); };
  t.looks["pending"] = [](S d, auto&) {
    return Join(d.engine().PendingNotices(), " | ", [](const PendingNotice& n) { return n.Title; });
  };
  return t;
}

TEST(AlarmEngine, FollowsTheDays) {
  AlarmTrace().Run("alarms/days.txt", 8, 60);
}

TEST(AlarmEngine, ShowsWhatWentByUnseenAndSnoozes) {
  AlarmTrace().Run("alarms/missed.txt", 8, 40);
}

}  // namespace
}  // namespace sched
