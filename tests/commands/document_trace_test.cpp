#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "shell/settings.h"
#include "tests/support/message_lines.h"
#include "tests/support/test_session.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

namespace fs = std::filesystem;
using testing::CaseRow;
using testing::YesNo;

// The document commands over a session, as tests/data/commands/documents.txt drives them.
struct Documents : TestCommands {
  std::optional<TempFolder> temp{dir.Path().string()};
  std::size_t seen = 0, dialogsSeen = 0;
  std::map<std::string, std::vector<std::uint8_t>> kept;

  // A path of the folder: "$dir/NAME" or "NAME" as dir/NAME; an absolute path as it is.
  std::string Path(std::string name) const {
    if (name.starts_with("$dir")) name = name.substr(std::min<std::size_t>(name.size(), 5));
    return name.empty() ? dir.Path().string() : dir.File(name);
  }
  // A text as a case writes it, the folder as $dir.
  std::string Shown(std::string text) const {
    const std::string folder = dir.Path().string();
    for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
      text.replace(at, folder.size(), "$dir");
    }
    return text;
  }
};

using S = Documents&;
using R = const CaseRow&;

testing::Trace<Documents> DocumentsTrace() {
  testing::Trace<Documents> t;
  testing::AddMessageWords(t);
  const auto n = [](int value) { return std::to_string(value); };
  // Files.
  t.steps["make"] = [](S d, R r) { d.MakeFile(r[1], r[2]); };
  t.steps["bytes"] = [](S d, R r) { d.dir.Write(r[1], testing::Unescaped(r[2])); };
  t.steps["copy"] = [](S d, R r) { fs::copy_file(d.Path(r[1]), d.Path(r[2])); };
  t.steps["folder"] = [](S d, R r) { fs::create_directories(d.Path(r[1])); };
  t.steps["link"] = [](S d, R r) { fs::create_symlink(d.Path(r[2]), d.Path(r[1])); };
  t.steps["read-only"] = [](S d, R r) { fs::permissions(d.Path(r[1]), fs::perms::owner_read); };
  t.steps["system-ini"] = [](S d, R r) {
    d.dir.Write("System.ini", std::string("SYSTEM") + char(r.Int(1)) + '\0');
  };
  t.steps["tmp"] = [](S d, R r) { d.temp.emplace(d.Path(r[1])); };
  // The document.
  t.steps["file"] = [](S d, R r) {
    d.doc.ScheduleFile = d.Path(r[1]);
    d.doc.ScheduleOnPc = r[2].empty() ? 1 : r.Int(2);
  };
  t.steps["add"] = [](S d, R r) {
    const CivilDate date = r.Date(2);
    SchRecord item = MakeItem(date.year, date.month, date.day, 600, 660, r[1]);
    item.Private = r[3] == "private" ? 1 : 0;
    d.store.InsertRecord(item);
  };
  t.steps["dirty"] = [](S d, R r) { d.doc.Dirty = r.YesNo(1); };
  t.steps["copied-row"] = [](S d, R r) { d.doc.CopiedRow = r.Int(1); };
  t.steps["current"] = [](S d, R r) {
    const CivilDate date = r.Date(1);
    d.doc.CurYear = date.year;
    d.doc.CurMonth = date.month;
  };
  t.steps["last-pc-folder"] = [](S d, R r) { d.state.LastPcDir = d.Path(r[1]); };
  t.steps["device-save"] = [](S d, R r) {
    d.doc.SaveToDevice = true;
    d.doc.DevicePath = r[1];
  };
  // What the user answers, and what the device does.
  t.steps["dialog"] = [](S d, R r) {
    d.dialogs.QueueAnswer(r[1] == "(cancel)" ? std::nullopt : std::optional(d.Path(r[1])));
  };
  t.steps["device-cache"] = [](S d, R) { d.device.cacheRoot = d.dir.File("cache"); };
  t.steps["device-refuses"] = [](S d, R) { d.device.putResult = 7; };
  t.steps["device-clear"] = [](S d, R) { d.device.files.clear(); };
  // A file's bytes kept, to see later whether they changed.
  t.steps["keep"] = [](S d, R r) { d.kept[r[1]] = ReadBytes(d.Path(r[1])); };
  // The commands, and what they give when they give something.
  t.steps["load"] = [](S d, R) { d.session.LoadScheduleFile(); };
  t.steps["save"] = [](S d, R r) {
    EXPECT_EQ(d.session.SaveScheduleFile(), r.YesNo(1)) << r.where;
  };
  t.steps["open-pc"] = [](S d, R) { d.commands.OpenOnPc(); };
  t.steps["new"] = [](S d, R) { d.commands.New(); };
  t.steps["save-pc"] = [](S d, R) { d.commands.SaveToPc(); };
  t.steps["save-as-pc"] = [](S d, R) { d.commands.SaveAsOnPc(); };
  t.steps["save-tarvex"] = [](S d, R r) {
    EXPECT_EQ(d.commands.SaveToTarvex(), r.YesNo(1)) << r.where;
  };
  t.steps["ask"] = [](S d, R r) { EXPECT_EQ(d.commands.AskSaveChanges(), r.YesNo(1)) << r.where; };
  t.steps["drop"] = [](S d, R r) {
    EXPECT_EQ(d.commands.OpenFileByName(d.Path(r[1])), r.Int(2)) << r.where;
  };
  t.steps["check"] = [](S d, R r) {
    EXPECT_EQ(d.commands.CheckInputFnameSCL(d.Path(r[1])), r.YesNo(2)) << r.where;
  };

  // The document and the window.
  t.looks["first-title"] = [](S d, auto&) {
    return std::string(d.doc.Tables.RowCount > 0 ? d.doc.Tables.SchDatList.Texts(0).Title : "");
  };
  t.looks["rows"] = [n](S d, auto&) { return n(d.doc.Tables.RowCount); };
  t.looks["title"] = [](S d, auto&) { return d.window.title; };
  t.looks["file"] = [](S d, auto&) { return d.Shown(d.doc.ScheduleFile); };
  t.looks["on-pc"] = [n](S d, auto&) { return n(d.doc.ScheduleOnPc); };
  t.looks["dirty"] = [](S d, auto&) { return YesNo(d.doc.Dirty); };
  t.looks["copied-row"] = [](S d, auto&) { return std::to_string(d.doc.CopiedRow); };
  t.looks["device-save"] = [](S d, auto&) { return YesNo(d.doc.SaveToDevice); };
  t.looks["current"] = [n](S d, auto&) {
    return n(d.doc.CurYear * 10000 + d.doc.CurMonth * 100 + d.doc.CurDay);
  };
  // The month view's date helper and year list; the delete menus on.
  t.looks["views"] = [n](S d, auto&) {
    const CivilDate h = d.views.DateHelper;
    return n(h.year * 10000 + h.month * 100 + h.day) + " year " + n(d.views.Combo2Index);
  };
  t.looks["delete-menus"] = [](S d, auto&) {
    return std::string(d.views.Menus().DelMonth ? "month " : "") +
           (d.views.Menus().ToolbarDelete ? "item" : "");
  };
  t.looks["calls"] = [](S d, auto&) { return testing::Join(std::exchange(d.window.calls, {})); };
  // The file dialogs shown since the last look, "open" or "save" and the filter; the name the
  // last one proposed and its folder.
  t.looks["dialogs"] = [](S d, auto&) {
    std::string shown;
    for (; d.dialogsSeen < d.dialogs.ShownDialogs().size(); ++d.dialogsSeen) {
      const auto& dialog = d.dialogs.ShownDialogs()[d.dialogsSeen];
      shown += (shown.empty() ? "" : " | ") + std::string(dialog.save ? "save " : "open ") +
               dialog.request.filter;
    }
    return shown;
  };
  t.looks["proposal"] = [](S d, auto&) { return d.dialogs.ShownDialogs().back().request.proposal; };
  t.looks["folder"] = [](S d, auto&) {
    return d.Shown(d.dialogs.ShownDialogs().back().request.folder);
  };
  t.looks["last-pc-folder"] = [](S d, auto&) { return d.Shown(d.state.LastPcDir); };
  t.looks["notices-held"] = [](S d, auto&) { return YesNo(d.notices.holds > 0); };
  t.looks["last-file"] = [](S d, auto&) {
    return d.Shown(d.settings.GetSetting(kSettingsApp, kDayviewSection, kLastFileKey, ""));
  };
  // The progress display: its values, its first and last events, whether it shows.
  t.looks["progress"] = [](S d, auto&) {
    return testing::Join(d.progress.values, " ", [](int v) { return std::to_string(v); });
  };
  t.looks["progress.first"] = [](S d, auto&) { return d.progress.events.front(); };
  t.looks["progress.last"] = [](S d, auto&) { return d.progress.events.back(); };
  t.looks["progress.shown"] = [](S d, auto&) { return YesNo(d.progress.visible); };
  t.looks["alarm-calls"] = [](S d, auto&) { return testing::Join(d.alarms.calls); };

  // Files: the text of a file; whether it is as kept; its size, a byte of it; whether it is what a
  // save writes now; the entries of a folder.
  t.looks["text"] = [](S d, auto& name) {
    const std::vector<std::uint8_t> bytes = ReadBytes(d.Path(name));
    return std::string(bytes.begin(), bytes.end());
  };
  t.looks["unchanged"] = [](S d, auto& name) {
    return YesNo(ReadBytes(d.Path(name)) == d.kept[name]);
  };
  // The rows a file holds, loaded apart from the document.
  t.looks["rows-in"] = [n](S d, auto& name) {
    TestStore other;
    EXPECT_TRUE(other.LoadFrom(d.Path(name))) << name;
    return n(other.doc.Tables.RowCount);
  };
  t.looks["size"] = [](S d, auto& name) {
    return fs::exists(d.Path(name)) ? std::to_string(fs::file_size(d.Path(name))) : "(none)";
  };
  t.looks["byte-46"] = [n](S d, auto& name) { return n(ReadBytes(d.Path(name)).at(46)); };
  t.looks["as-saved"] = [](S d, auto& name) {
    return YesNo(ReadBytes(d.Path(name)) == d.store.BuildScheduleBytes());
  };
  t.looks["entries"] = [](S d, auto& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(d.Path(folder))) {
      names.insert(entry.path().filename().string());
    }
    return testing::Join(std::vector<std::string>(names.begin(), names.end()), " ");
  };
  // The device: its files (and the head of each), and the files it was told to update alarms of.
  t.looks["device"] = [](S d, auto&) {
    return testing::Join(d.device.files, " ",
                         [](auto& file) { return file.first + ":" + file.second.substr(0, 4); });
  };
  t.looks["device-alarms"] = [](S d, auto&) {
    return testing::Join(d.device.alarmInfoUpdates, " ");
  };
  return t;
}

TEST(Documents, FollowTheTraces) {
  DocumentsTrace().Run("commands/documents.txt", 4, 200);
}

}  // namespace
}  // namespace sched
