#include "interchange/form_csv_model.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/fake/fake_file_dialogs.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_settings_store.h"
#include "platform/fake/fake_timer.h"
#include "shell/settings.h"
#include "tests/support/message_lines.h"
#include "tests/support/recording_document_view.h"
#include "tests/support/test_store.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::YesNo;

// The mapping dialog over fakes, with its reference files in a temporary folder.
struct Dialog : WithTempDir {
  FakeMessages messages;
  std::size_t seen = 0;
  FakeFileDialogs dialogs;
  RecordingNotices notices;
  FakeSettingsStore settings;
  FakeTimer timer;
  FormCsvModel model{
      {messages, dialogs, notices, settings, timer, CodePage::kWestern, dir.File("")}};
  std::optional<bool> closed;

  std::string Stored(const char* key) {
    return settings.Has(kSettingsApp, kDayviewSection, key)
               ? settings.GetSetting(kSettingsApp, kDayviewSection, key, "")
               : "(none)";
  }
};

using S = Dialog&;
using R = const CaseRow&;

testing::Trace<Dialog> FormCsvTrace() {
  testing::Trace<Dialog> t;
  testing::AddMessageWords(t);
  FormCsvModel& (*m)(S) = [](S d) -> FormCsvModel& { return d.model; };
  t.steps["stored"] = [](S d, R row) {
    d.settings.SaveSetting(kSettingsApp, kDayviewSection, "CSVfields", row[1]);
    if (!row[2].empty()) d.settings.SaveSetting(kSettingsApp, kDayviewSection, "CSV1line", row[2]);
  };
  t.steps["load"] = [m](S d, R) { m(d).Form_Load(); };
  t.steps["field"] = [m](S d, R row) { m(d).FieldList_Click(row.Int(1)); };
  t.steps["pick"] = [m](S d, R row) { m(d).CsvList_Click(row.Int(1)); };
  t.steps["pick-reference"] = [m](S d, R row) { m(d).FileField_Click(row.Int(1)); };
  t.steps["scroll"] = [m](S d, R row) { m(d).CsvList_Scroll(row.Int(1)); };
  t.steps["scroll-reference"] = [m](S d, R row) { m(d).FileField_Scroll(row.Int(1)); };
  t.steps["header"] = [m](S d, R row) { m(d).ChkL1isField_Click(row.YesNo(1)); };
  t.steps["add"] = [m](S d, R) { m(d).cbtAdd_Click(); };
  t.steps["update"] = [m](S d, R) { m(d).cbtMod_Click(); };
  t.steps["delete"] = [m](S d, R) { m(d).cbtDelete_Click(); };
  t.steps["default"] = [m](S d, R) { m(d).cbtAllAdd_Click(); };
  t.steps["delete-all"] = [m](S d, R) { m(d).cbtAllDel_Click(); };
  t.steps["press-up"] = [m](S d, R) { m(d).CbtUp_MouseDown(); };
  t.steps["press-down"] = [m](S d, R) { m(d).cbtDown_MouseDown(); };
  t.steps["release"] = [m](S d, R) { m(d).MoveButton_MouseUp(); };
  t.steps["tick"] = [](S d, R row) {
    for (int i = 0; i < row.Int(1); ++i) d.timer.Tick();
  };
  t.steps["read"] = [m](S d, R row) {
    if (row[1] == "(cancel)") {
      d.dialogs.QueueAnswer(std::nullopt);
    } else {
      std::ofstream(d.dir.File(row[1]), std::ios::binary) << testing::Unescaped(row[2]);
      d.dialogs.QueueAnswer(d.dir.File(row[1]));
    }
    m(d).CbtRead_Click();
  };
  t.steps["clear-reference"] = [m](S d, R) { m(d).CbtReadClr_Click(); };
  t.steps["ok"] = [m](S d, R row) { EXPECT_EQ(m(d).cbtEnd_Click(), row.YesNo(1)) << row.where; };
  t.steps["close"] = [m](S d, R row) { EXPECT_EQ(m(d).QueryUnload(), row.YesNo(1)) << row.where; };

  t.looks["columns"] = [](S d, auto&) {
    std::string text;
    for (const auto& entry : d.model.Controls().CsvList) {
      text += (text.empty() ? "" : ",") + entry.text + "=" + std::to_string(entry.data);
    }
    return text;
  };
  t.looks["reference"] = [](S d, auto&) { return testing::Join(d.model.Controls().FileField); };
  t.looks["selected"] = [](S d, auto&) {
    const FormCsvControls& c = d.model.Controls();
    return std::to_string(c.CsvListIndex) + " " + std::to_string(c.FileFieldIndex);
  };
  t.looks["tops"] = [](S d, auto&) {
    const FormCsvControls& c = d.model.Controls();
    return std::to_string(c.CsvListTop) + " " + std::to_string(c.FileFieldTop);
  };
  t.looks["header"] = [](S d, auto&) { return YesNo(d.model.Controls().ChkL1isField); };
  t.looks["timer"] = [](S d, auto&) {
    return d.timer.enabled ? "on " + std::to_string(d.timer.interval) : std::string("off");
  };
  t.looks["stored"] = [](S d, auto&) { return d.Stored("CSVfields") + " " + d.Stored("CSV1line"); };
  t.looks["notices-held"] = [](S d, auto&) { return std::to_string(d.notices.holds); };
  t.looks["filter"] = [](S d, auto&) { return d.dialogs.ShownDialogs().back().request.filter; };
  return t;
}

TEST(FormCsvModel, FollowsTheTraces) {
  FormCsvTrace().Run("interchange/form-csv.txt", 3, 60);
}

}  // namespace
}  // namespace sched
