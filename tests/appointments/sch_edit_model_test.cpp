#include "appointments/sch_edit_model.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <sstream>

#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "tests/support/date_text.h"
#include "tests/support/key_names.h"
#include "tests/support/message_lines.h"
#include "tests/support/row_looks.h"
#include "tests/support/test_store.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::YesNo;

// Shows the repeat dialog by running what the trace tells the user to do in it.
class ScriptedRepeatHost : public SchEditHost {
 public:
  std::function<void(RepeatModel&)> user = [](RepeatModel&) {};
  int shown = 0;
  void ShowRepeatDialog(RepeatModel& repeat) override {
    ++shown;
    user(repeat);
  }
};

std::string Text(const std::optional<CivilDate>& d) {
  return d ? DateText(*d) : "none";
}
std::string Text(const std::optional<int>& minutes) {
  return minutes ? std::to_string(*minutes) : "none";
}

TEST(TimeCombo, HoldsTheHalfHoursAndTheDaysLastMinute) {
  const std::vector<TimeComboItem>& items = TimeComboItems();
  ASSERT_EQ(items.size(), 49u);
  for (int i = 0; i < 48; ++i) EXPECT_EQ(items[i].minutes, 30 * i) << i;
  EXPECT_EQ(items[48].minutes, 1439);
  for (const auto& [i, text] : {std::pair{0, "12:00 AM"},
                                {1, "12:30 AM"},
                                {24, "12:00 PM"},
                                {47, "11:30 PM"},
                                {48, "11:59 PM"}}) {
    EXPECT_EQ(items[i].text, text);
  }
}

TEST(TimeCombo, TypedTimesReadAsTheirMinute) {
  for (const CaseRow& row : testing::ReadCases("appointments/typed-times.txt", 2, 16)) {
    EXPECT_EQ(Text(ParseTimeText(row[0])), row[1]) << row.where;
  }
}

// The edit dialog over a store, as tests/data/appointments/edit-dialog.txt drives it. Today is
// 2026/11/23, 10:00, and the shown date the same.
struct Edit {
  FakeStore fake;
  FakeMessages messages;
  std::size_t seen = 0;
  FakeDateFormatter dates;
  ScriptedRepeatHost host;
  std::vector<std::string> sounds{"SCHALARM", "BELL"};
  std::unique_ptr<SchEditModel> model;
  std::int32_t stamp = 0;  // a row's stamp, kept to compare with what a change writes

  Edit() {
    fake.clock.Set({2026, 11, 23, 10, 0, 0});
    fake.doc.SetShownDate({2026, 11, 23});
  }
  SchEditModel& Open() {
    model = std::make_unique<SchEditModel>(
        SchEditServices{fake.store, messages, fake.clock, dates, host, sounds});
    return *model;
  }
  RowWithTexts Row(const std::string& index) const {
    const std::vector<RowWithTexts> rows = LiveRows(fake.doc.Tables);
    const auto i = static_cast<std::size_t>(std::stoi(index));
    EXPECT_LT(i, rows.size()) << "no live row " << index;
    return i < rows.size() ? rows[i] : RowWithTexts{};
  }
};

// A text field of a step: TEXT, or TEXT repeated TIMES times and followed by TAIL.
std::string TextOf(const CaseRow& row) {
  std::string text;
  const int times = row[2].empty() ? 1 : row.Int(2);
  for (int i = 0; i < times; ++i) text += testing::Unescaped(row[1]);
  return text + testing::Unescaped(row[3]);
}

std::optional<CivilDate> DateOf(const CaseRow& row, std::size_t i) {
  return row[i] == "none" ? std::nullopt : std::optional<CivilDate>(row.Date(i));
}

// The state and the line of a step, short for the many steps and looks below.
using S = Edit&;
using R = const CaseRow&;

testing::Trace<Edit> EditDialogTrace() {
  testing::Trace<Edit> t;
  testing::AddMessageWords(t);
  const auto n = [](int value) { return std::to_string(value); };
  t.steps["clock"] = [](S e, R row) {
    const CivilDate d = row.Date(1);
    int hour = 0, minute = 0;
    EXPECT_EQ(std::sscanf(row[2].c_str(), "%d:%d", &hour, &minute), 2) << row.where;
    e.fake.clock.Set({d.year, d.month, d.day, hour, minute, 0});
  };
  t.steps["show"] = [](S e, R row) { e.fake.doc.SetShownDate(row.Date(1)); };
  t.steps["sounds"] = [](S e, R row) {
    e.sounds.clear();
    std::istringstream names(row[1]);
    for (std::string name; names >> name;) e.sounds.push_back(name);
  };
  t.steps["insert"] = [](S e, R row) {
    const CivilDate d = row.Date(1);
    SchRecord r = MakeItem(d.year, d.month, d.day, row.Int(2), row.Int(3), row[4]);
    r.AlarmOn = row[5].empty() ? 0 : 1;
    r.AlarmSound = row[5];
    r.AlarmLead = static_cast<std::int16_t>(row[6].empty() ? 0 : row.Int(6));
    e.fake.store.InsertRecord(r);
  };
  t.steps["add"] = [](S e, R row) {
    SchEditModel& model = e.Open();
    model.OpenNew();
    model.Text1_Change(row[1]);
    model.ImDate1_Change(0, row.Date(2));
    model.ImDate1_Change(1, row.Date(3));
    EXPECT_TRUE(model.SchEditOK_Click()) << row.where;
  };
  t.steps["new"] = [](S e, R) { e.Open().OpenNew(); };
  t.steps["modify"] = [](S e, R row) { e.Open().OpenModify(row.Int(1)); };
  t.steps["title"] = [](S e, R row) { e.model->Text1_Change(TextOf(row)); };
  t.steps["place"] = [](S e, R row) { e.model->Text3_Change(TextOf(row)); };
  t.steps["memo"] = [](S e, R row) { e.model->Text2_Change(TextOf(row)); };
  t.steps["date"] = [](S e, R row) { e.model->ImDate1_Change(row.Int(1), DateOf(row, 2)); };
  t.steps["pick"] = [](S e, R row) { e.model->Combo1_Click(row.Int(1), row.Int(2)); };
  t.steps["time"] = [](S e, R row) { e.model->Combo1_Text(row.Int(1), row[2]); };
  t.steps["allday"] = [](S e, R row) { e.model->Check3_Click(row.YesNo(1)); };
  t.steps["alarm"] = [](S e, R row) { e.model->Check1_Click(row.YesNo(1)); };
  t.steps["private"] = [](S e, R row) { e.model->Check2_Click(row.YesNo(1)); };
  t.steps["minutes"] = [](S e, R row) { e.model->ImNumber1_Change(row.Int(1)); };
  t.steps["key"] = [](S e, R row) {
    EXPECT_EQ(e.model->ImNumber1_KeyDown(testing::KeyNamed(row[1])), row.YesNo(2)) << row.where;
  };
  t.steps["sound"] = [](S e, R row) { e.model->Sound_Change(testing::Unescaped(row[1])); };
  t.steps["code-page"] = [](S e, R row) {
    e.fake.doc.FileCodePage = CodePageOfNumber(row.Int(1)).value();
  };
  t.steps["leave-sound"] = [](S e, R row) {
    EXPECT_EQ(e.model->Sound_LostFocus(), row.YesNo(1)) << row.where;
  };
  t.steps["repeat"] = [](S e, R row) {
    const int option = row.Int(1), interval = row.Int(2), count = row.Int(3);
    e.host.user = [=](RepeatModel& repeat) {
      repeat.Option1_Click(option);
      repeat.ImNumber_Change(RepeatNumberField::ImNumber2, interval);
      repeat.ImNumber_Change(RepeatNumberField::ImNumber1, count);
      EXPECT_TRUE(repeat.OKButton_Click());
    };
    e.model->Command1_Click();
  };
  t.steps["ok"] = [](S e, R row) {
    EXPECT_EQ(e.model->SchEditOK_Click(), row.YesNo(1)) << row.where << ": whether OK closes";
  };
  t.steps["cancel"] = [](S e, R row) {
    EXPECT_EQ(e.model->SchEditCAN_Click(), row.YesNo(1)) << row.where << ": whether it closes";
  };
  t.steps["keep-stamp"] = [](S e, R row) { e.stamp = e.Row(row[1]).Stamp; };

  // What the dialog shows.
  const auto c = [](Edit& e) -> const SchEditControls& { return e.model->Controls(); };
  t.looks["caption"] = [c](S e, auto&) { return c(e).Caption; };
  t.looks["title"] = [c](S e, auto&) { return c(e).Text1; };
  t.looks["title.size"] = [c, n](S e, auto&) { return n(int(c(e).Text1.size())); };
  t.looks["place.size"] = [c, n](S e, auto&) { return n(int(c(e).Text3.size())); };
  t.looks["memo.size"] = [c, n](S e, auto&) { return n(int(c(e).Text2.size())); };
  t.looks["dates"] = [c](S e, auto&) {
    return Text(c(e).ImDate1[0]) + " " + Text(c(e).ImDate1[1]);
  };
  t.looks["times"] = [c](S e, auto&) {
    return Text(c(e).DTPicker2[0]) + " " + Text(c(e).DTPicker2[1]);
  };
  t.looks["time-list"] = [c, n](S e, auto& i) { return n(c(e).Combo1.at(std::stoul(i))); };
  t.looks["time-text"] = [](S e, auto& i) { return e.model->TimeText(std::stoi(i)); };
  t.looks["times-enabled"] = [c](S e, auto&) { return YesNo(c(e).TimesEnabled); };
  t.looks["end-date-enabled"] = [c](S e, auto&) { return YesNo(c(e).EndDateEnabled); };
  t.looks["alarm"] = [c](S e, auto&) { return YesNo(c(e).Check1); };
  t.looks["alarm-enabled"] = [c](S e, auto&) { return YesNo(c(e).Check1Enabled); };
  t.looks["minutes"] = [c, n](S e, auto&) { return n(c(e).ImNumber1); };
  t.looks["minutes-enabled"] = [c](S e, auto&) { return YesNo(c(e).ImNumber1Enabled); };
  t.looks["sound"] = [c](S e, auto&) { return c(e).SoundName; };
  t.looks["sound-enabled"] = [c](S e, auto&) { return YesNo(c(e).SoundEnabled); };
  t.looks["preview-enabled"] = [c](S e, auto&) { return YesNo(c(e).PreviewEnabled); };
  t.looks["repeat-enabled"] = [c](S e, auto&) { return YesNo(c(e).Command1Enabled); };
  t.looks["repeat-shown"] = [n](S e, auto&) { return n(e.host.shown); };
  // The box that asks for the focus, once.
  t.looks["focus"] = [](S e, auto&) -> std::string {
    static const char* const kNames[] = {"title",      "place",    "memo",
                                         "start-date", "end-date", "start-time",
                                         "end-time",   "minutes",  "sound"};
    const std::optional<EditFocus> focus = e.model->TakeFocus();
    return focus ? kNames[static_cast<int>(*focus)] : "none";
  };

  // The dialog's session and the schedule.
  t.looks["changed"] = [n](S e, auto&) { return n(e.model->ChangedFlag); };
  t.looks["new-item"] = [n](S e, auto&) { return n(e.model->IsNewItem); };
  t.looks["record.alarm"] = [n](S e, auto&) { return n(e.model->Record.AlarmOn); };
  // The rule's count and step (interval - 1) as the session holds them.
  t.looks["rule"] = [n](S e, auto&) {
    return n(e.model->Work.RepeatCount) + " " + n(e.model->Work.RepeatStep);
  };
  t.looks["written"] = [](S e, auto&) { return YesNo(e.model->Written()); };
  t.looks["new-row"] = [n](S e, auto&) { return n(e.model->NewRow()); };
  t.looks["shown"] = [](S e, auto&) {
    return DateText(e.fake.doc.CurYear, e.fake.doc.CurMonth, e.fake.doc.CurDay);
  };
  // Whether the row carries the kept stamp, marked as written anew.
  t.looks["row.kept-stamp"] = [](S e, auto& i) {
    return YesNo(static_cast<std::uint32_t>(e.Row(i).Stamp) ==
                 (static_cast<std::uint32_t>(e.stamp) | 0xC0000000u));
  };
  testing::AddRowLooks(t, [](S e) -> const SchDatCTL& { return e.fake.doc.Tables; });
  return t;
}

TEST(SchEditModel, FollowsTheTraces) {
  EditDialogTrace().Run("appointments/edit-dialog.txt", 7, 250);
}

}  // namespace
}  // namespace sched

namespace sched {
namespace {

// The sound preview and word lists as the edit dialog reaches them.
class RecordingMedia : public SchEditMedia {
 public:
  bool output = true;
  std::optional<std::string> answer;  // what the word list dialog gives back
  std::vector<std::string> calls;
  bool HasSoundOutput() override { return output; }
  void PreviewAlarmSound(const std::string& name) override { calls.push_back("play " + name); }
  std::optional<std::string> SelectWords(WordField field, const std::string& text,
                                         CodePage) override {
    calls.push_back((field == WordField::Place ? "place " : "title ") + text);
    return answer;
  }
};

TEST(SchEditMedia, ListenAndTheWordListButtons) {
  FakeStore fake;
  FakeMessages messages;
  FakeDateFormatter dates;
  ScriptedRepeatHost host;
  RecordingMedia media;
  const auto open = [&] {
    auto model = std::make_unique<SchEditModel>(
        SchEditServices{fake.store, messages, fake.clock, dates, host, {"SCHALARM"}, &media});
    model->OpenNew();
    return model;
  };
  // Listen comes with the alarm, and only when the machine can play a sound.
  for (const bool output : {true, false}) {
    media.output = output;
    const auto model = open();
    EXPECT_FALSE(model->Controls().PreviewEnabled);
    EXPECT_TRUE(model->Controls().SelSubjectEnabled);
    model->Check1_Click(true);
    EXPECT_EQ(model->Controls().PreviewEnabled, output);
  }
  const auto model = open();
  model->Check1_Click(true);
  model->cbtSNDprev_Click();
  model->Text1_Change("Lunch");
  media.answer = "Lunch Meeting";
  model->SelSubject_Click(0);
  media.answer.reset();
  model->SelSubject_Click(1);
  EXPECT_EQ(model->Controls().Text1, "Lunch Meeting");
  EXPECT_EQ(model->Controls().Text3, "");
  EXPECT_EQ(media.calls, (std::vector<std::string>{"play SCHALARM", "title Lunch", "place "}));
}

}  // namespace
}  // namespace sched
