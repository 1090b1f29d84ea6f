#include "commands/document_commands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <sstream>

#include "platform/fake/fake_file_dialogs.h"
#include "shell/texts.h"
#include "tests/support/case_file.h"
#include "tests/support/message_lines.h"
#include "tests/support/test_session.h"

namespace sched {
namespace {

// The document commands over a session, fake dialogs and a temporary folder.
struct Shell : TestSession {
  FakeFileDialogs dialogs;
  RecordingNotices notices;
  AppState state;
  DocumentCommands commands{DocumentServices{session, window, notices, messages, dialogs, device,
                                             state, dir.File("cache")}};

  std::string FirstTitle() const {
    return doc.Tables.RowCount > 0 ? doc.Tables.SchDatList.At(0).Title : "";
  }
};

// A schedule file on the PC, open and changed.
void OpenChangedPcFile(Shell& s) {
  s.doc.ScheduleFile = s.MakeFile("doc.scl", "before");
  s.doc.ScheduleOnPc = 1;
  s.session.LoadScheduleFile();
  s.store.InsertRecord(MakeItem(2026, 11, 22, 600, 660, "added"));
  s.doc.Dirty = true;
}

// A schedule file of the device (its cached copy), open and changed.
void OpenChangedDeviceFile(Shell& s) {
  std::filesystem::create_directories(s.dir.File("cache/PIM"));
  s.device.cacheRoot = s.dir.File("cache");
  s.doc.ScheduleFile = s.MakeFile("cache/PIM/doc.scl", "before");
  s.doc.ScheduleOnPc = 0;
  s.session.LoadScheduleFile();
  s.store.InsertRecord(MakeItem(2026, 11, 22, 600, 660, "added"));
  s.doc.Dirty = true;
}

void MakeReadOnly(const std::string& path) {
  std::filesystem::permissions(path, std::filesystem::perms::owner_read);
}

TEST(DocumentCommands, CheckInputFnameSCL) {
  Shell s;
  const std::string good = s.MakeFile("good.scl", "x");
  WriteBytes(s.dir.File("bad.scl"), {'Q', '3', '9', 'X', 0, 0});
  WriteBytes(s.dir.File("UPPER.SCL"), ReadBytes(good));
  struct Case {
    std::string path;
    bool ok;
  };
  for (const Case& c : {Case{good, true}, Case{s.dir.File("UPPER.SCL"), true},
                        Case{s.dir.File("bad.scl"), false}, Case{s.dir.File("gone.scl"), false},
                        Case{s.dir.File("data.CSV"), true}, Case{s.dir.File("notes.txt"), false}}) {
    const std::size_t before = s.messages.Shown().size();
    EXPECT_EQ(s.commands.CheckInputFnameSCL(c.path), c.ok) << c.path;
    EXPECT_EQ(s.messages.Shown().size(), before + (c.ok ? 0 : 1)) << c.path;
  }
  EXPECT_EQ(testing::MessageLine(s.messages.Shown().back()),
            "[Scheduler, Exclamation, Ok] This is not a Scheduler file.");
}

TEST(DocumentCommands, OpenOnPcLoadsTheChosenFileAndCancelKeepsTheDocument) {
  Shell s;
  s.dialogs.QueueAnswer(s.MakeFile("a.scl", "from a"));
  s.commands.OpenOnPc();
  EXPECT_EQ(s.FirstTitle(), "from a");
  EXPECT_EQ(s.window.title, "Scheduler - PC:a.scl");
  EXPECT_EQ(s.state.LastPcDir, s.dir.Path().string());
  EXPECT_FALSE(s.doc.Dirty);
  ASSERT_EQ(s.dialogs.ShownDialogs().size(), 1u);
  EXPECT_EQ(s.dialogs.ShownDialogs()[0].request.filter, "Scheduler Files(*.scl)|*.scl");
  EXPECT_FALSE(s.dialogs.ShownDialogs()[0].save);
  EXPECT_FALSE(s.state.NoticesHeld);

  s.commands.OpenOnPc();  // cancelled
  EXPECT_EQ(s.FirstTitle(), "from a");
  EXPECT_EQ(s.doc.ScheduleFile, s.dir.File("a.scl"));

  WriteBytes(s.dir.File("wrong.scl"), {'X', 'X', 'X', 'X'});
  s.dialogs.QueueAnswer(s.dir.File("wrong.scl"));
  s.commands.OpenOnPc();
  EXPECT_EQ(s.Texts().back(), "This is not a Scheduler file.");
  EXPECT_EQ(s.FirstTitle(), "from a");
  EXPECT_EQ(s.doc.ScheduleFile, s.dir.File("a.scl"));
}

TEST(DocumentCommands, TheQuestionForUnsavedChanges) {
  struct Case {
    MsgAnswer answer;
    bool goesOn;
    bool saved;
  };
  for (const Case& c : {Case{MsgAnswer::Yes, true, true}, Case{MsgAnswer::No, true, false},
                        Case{MsgAnswer::Cancel, false, false}}) {
    Shell s;
    s.dialogs.QueueAnswer(s.MakeFile("doc.scl", "before"));
    s.commands.OpenOnPc();
    s.store.InsertRecord(MakeItem(2026, 11, 22, 600, 660, "added"));
    s.doc.Dirty = true;
    s.messages.QueueAnswer(c.answer);
    EXPECT_EQ(s.commands.AskSaveChanges(), c.goesOn);
    EXPECT_EQ(testing::MessageLines(s.messages),
              std::vector<std::string>{
                  "[Scheduler, Exclamation, YesNoCancel] Do you want to save the changes?"});
    Shell check;
    check.dialogs.QueueAnswer(s.doc.ScheduleFile);
    check.commands.OpenOnPc();
    EXPECT_EQ(check.doc.Tables.RowCount, c.saved ? 2 : 1);
    EXPECT_EQ(s.doc.Dirty, !c.saved);
  }
}

TEST(DocumentCommands, NewAsksForChangesAndEmptiesTheDocument) {
  Shell s;
  s.dialogs.QueueAnswer(s.MakeFile("doc.scl", "old"));
  s.commands.OpenOnPc();
  s.doc.Dirty = true;
  s.messages.QueueAnswer(MsgAnswer::Cancel);
  s.commands.New();
  EXPECT_EQ(s.doc.Tables.RowCount, 1);  // cancelled: nothing changed

  s.messages.QueueAnswer(MsgAnswer::No);
  s.window.calls.clear();
  s.commands.New();
  EXPECT_EQ(s.doc.Tables.RowCount, 0);
  EXPECT_TRUE(s.doc.Tables.SchDatList.IsEmpty());
  EXPECT_EQ(s.doc.ScheduleFile, "");
  EXPECT_FALSE(s.doc.Dirty);
  EXPECT_EQ(s.window.title, "Scheduler - Untitled");
  EXPECT_EQ(s.doc.CurYear * 10000 + s.doc.CurMonth * 100 + s.doc.CurDay, 20261121);
  EXPECT_TRUE(s.window.Called("ShowFirstTab"));
  EXPECT_EQ(s.views.DateHelper, (CivilDate{2026, 11, 21}));
  EXPECT_EQ(s.views.Combo2Index, 2026 - 1901);
  EXPECT_FALSE(s.views.Menus().DelMonth);  // nothing left to delete
  EXPECT_EQ(s.window.calls.front(), "HideScheduleList");
  EXPECT_EQ(s.window.calls.back(), "SetTitle Scheduler - Untitled");
}

TEST(DocumentCommands, SaveAsOnPcProposesTheNameAndAddsTheExtension) {
  Shell s;
  s.store.InsertRecord(MakeItem(2026, 11, 21, 540, 600, "new item"));
  s.doc.Dirty = true;
  s.state.LastPcDir = s.dir.Path().string();
  s.dialogs.QueueAnswer(s.dir.File("Plans"));
  s.commands.SaveToPc();  // untitled: asks for a name
  ASSERT_EQ(s.dialogs.ShownDialogs().size(), 1u);
  const auto& shown = s.dialogs.ShownDialogs()[0];
  EXPECT_TRUE(shown.save);
  EXPECT_EQ(shown.request.proposal, "Untitled");
  EXPECT_EQ(shown.request.filter, "Scheduler(*.scl)|*.scl");
  EXPECT_EQ(shown.request.folder, s.dir.Path().string());
  EXPECT_EQ(s.doc.ScheduleFile, s.dir.File("Plans.scl"));
  EXPECT_EQ(s.window.title, "Scheduler - PC:Plans.scl");
  EXPECT_FALSE(s.doc.Dirty);
  EXPECT_EQ(ReadBytes(s.dir.File("Plans.scl")).size(), 12u + 38 + 16 + 134 + 106);

  s.dialogs.QueueAnswer(std::nullopt);
  s.doc.Dirty = true;
  s.commands.SaveAsOnPc();  // cancelled: the document stays as it was
  EXPECT_EQ(s.dialogs.ShownDialogs().back().request.proposal, "Plans");
  EXPECT_TRUE(s.doc.Dirty);
  EXPECT_EQ(s.doc.ScheduleFile, s.dir.File("Plans.scl"));
}

TEST(DocumentCommands, SaveToPcOfADeviceFileAsksForANameOnThePc) {
  Shell s;
  const std::string cached = s.MakeFile("device.scl", "on the device");
  const auto cachedBytes = ReadBytes(cached);
  s.doc.ScheduleFile = cached;
  s.doc.ScheduleOnPc = 0;
  s.session.LoadScheduleFile();
  s.store.InsertRecord(MakeItem(2026, 11, 23, 540, 600, "added"));
  s.dialogs.QueueAnswer(s.dir.File("copy.scl"));
  s.commands.SaveToPc();
  EXPECT_EQ(s.dialogs.ShownDialogs().size(), 1u);
  EXPECT_EQ(s.dialogs.ShownDialogs()[0].request.proposal, "device");
  EXPECT_EQ(ReadBytes(cached), cachedBytes);
  EXPECT_EQ(s.doc.ScheduleOnPc, 1);
  EXPECT_EQ(s.window.title, "Scheduler - PC:copy.scl");
}

TEST(DocumentCommands, ADroppedFileOpensAndABadOneLeavesTheDocument) {
  Shell s;
  EXPECT_EQ(s.commands.OpenFileByName(s.MakeFile("dropped.scl", "dropped")), 1);
  EXPECT_EQ(s.FirstTitle(), "dropped");
  EXPECT_EQ(s.window.title, "Scheduler - PC:dropped.scl");
  EXPECT_EQ(s.window.calls.front(), "BringToFront");

  WriteBytes(s.dir.File("fake.scl"), {'N', 'O', 'P', 'E', 0, 0, 0, 0, 0, 0, 0, 0});
  EXPECT_EQ(s.commands.OpenFileByName(s.dir.File("fake.scl")), 0);
  EXPECT_EQ(s.Texts().back(), "This is not a Scheduler file.");
  EXPECT_EQ(s.FirstTitle(), "dropped");

  s.doc.Dirty = true;
  s.messages.QueueAnswer(MsgAnswer::Cancel);
  EXPECT_EQ(s.commands.OpenFileByName(s.MakeFile("other.scl", "other")), 0);
  EXPECT_EQ(s.FirstTitle(), "dropped");
}

TEST(DocumentCommands, CsvDocumentsAreRefusedClearlyUntilTheyCanBeRead) {
  Shell s;
  WriteBytes(s.dir.File("list.csv"), {'a', ',', 'b'});
  s.dialogs.QueueAnswer(s.MakeFile("open.scl", "open"));
  s.commands.OpenOnPc();
  EXPECT_EQ(s.commands.OpenFileByName(s.dir.File("list.csv")), 0);
  EXPECT_EQ(s.Texts().back(), texts::kCsvNotAvailable);
  EXPECT_EQ(s.FirstTitle(), "open");  // the open document stays
  EXPECT_EQ(s.window.title, "Scheduler - PC:open.scl");
}

// Every save that fails keeps the changes marked unsaved and says why, and a question for the
// changes that ends in a failed save keeps the program where it is.
TEST(DocumentCommands, AFailedSaveKeepsTheChangesUnsaved) {
  for (const testing::CaseRow& row : testing::ReadCases("commands/failed-saves.txt", 4, 9)) {
    Shell s;
    const TempFolder temp(s.dir.Path().string());
    std::istringstream setup(row[1]);
    for (std::string word; setup >> word;) {
      if (word == "pc") OpenChangedPcFile(s);
      if (word == "device") OpenChangedDeviceFile(s);
      if (word == "untitled") s.store.InsertRecord(MakeItem(2026, 11, 22, 600, 660, "added"));
      if (word == "untitled") s.doc.Dirty = true;
      if (word == "read-only") MakeReadOnly(s.doc.ScheduleFile);
      if (word == "taken") MakeReadOnly(s.dir.Write("taken.scl", "someone's"));
      if (word == "taken") s.dialogs.QueueAnswer(s.dir.File("taken.scl"));
      if (word == "yes") s.messages.QueueAnswer(MsgAnswer::Yes);
      if (word == "refused") s.device.putResult = 7;
      if (word == "no-tmp") ::setenv("TMPDIR", s.dir.File("no such folder").c_str(), 1);
      if (word == "cache") s.device.cacheRoot = s.dir.File("cache");
      if (word.starts_with("device-name:")) s.device.saveDialogAnswer = word.substr(12);
    }
    // What the command gives; false for the commands that give nothing.
    const std::map<std::string, std::function<bool()>> commands = {
        {"save-pc", [&] { return s.commands.SaveToPc(), false; }},
        {"save-as-pc", [&] { return s.commands.SaveAsOnPc(), false; }},
        {"ask", [&] { return s.commands.AskSaveChanges(); }},
        {"save-tarvex", [&] { return s.commands.SaveToTarvex(); }},
        {"save-as-tarvex", [&] { return s.commands.SaveAsOnTarvex(); }}};
    EXPECT_FALSE(commands.at(row[2])()) << row.where;
    EXPECT_TRUE(s.doc.Dirty) << row.where;
    const std::vector<std::string> shown = testing::MessageLines(s.messages);
    EXPECT_EQ(shown.empty() ? "(none)" : shown.back(), row[3]) << row.where;
    EXPECT_TRUE(s.device.files.empty()) << row.where;
  }
}

TEST(DocumentCommands, ASaveToTheDeviceThatWorksClearsTheChanges) {
  for (const bool asked : {false, true}) {
    Shell s;
    const TempFolder temp(s.dir.Path().string());
    OpenChangedDeviceFile(s);
    if (asked) {
      s.messages.QueueAnswer(MsgAnswer::Yes);
      EXPECT_TRUE(s.commands.AskSaveChanges());
    } else {
      EXPECT_TRUE(s.commands.SaveToTarvex());
    }
    EXPECT_FALSE(s.doc.Dirty);
    ASSERT_EQ(s.device.files.count("\\PIM\\doc.scl"), 1u);
    EXPECT_EQ(s.device.files["\\PIM\\doc.scl"].substr(0, 4), "Q39E");
  }
}

TEST(DocumentCommands, ACancelledSaveToTheDeviceKeepsTheChanges) {
  Shell s;
  OpenChangedPcFile(s);
  s.device.cacheRoot = s.dir.File("cache");
  EXPECT_FALSE(s.commands.SaveToTarvex());  // the device's dialog is cancelled
  EXPECT_TRUE(s.doc.Dirty);
  EXPECT_EQ(s.doc.ScheduleOnPc, 1);
  EXPECT_TRUE(s.messages.Shown().empty());
}

}  // namespace
}  // namespace sched
