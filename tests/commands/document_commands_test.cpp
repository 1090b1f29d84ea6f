#include "commands/document_commands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/fake/fake_file_dialogs.h"
#include "shell/texts.h"
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
  EXPECT_EQ(s.messages.Shown().back().text, "This is not a Scheduler file.");
  EXPECT_EQ(s.messages.Shown().back().title, "Scheduler");
  EXPECT_EQ(s.messages.Shown().back().icon, MsgIcon::Exclamation);
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
    const MessageRequest& asked = s.messages.Shown().back();
    EXPECT_EQ(asked.text, "Do you want to save the changes?");
    EXPECT_EQ(asked.title, "Scheduler");
    EXPECT_EQ(asked.buttons, MsgButtons::YesNoCancel);
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
  s.doc.CopiedRow = 0;
  s.messages.QueueAnswer(MsgAnswer::Cancel);
  s.commands.New();
  EXPECT_EQ(s.doc.Tables.RowCount, 1);  // cancelled: nothing changed
  EXPECT_EQ(s.doc.CopiedRow, 0);

  s.messages.QueueAnswer(MsgAnswer::No);
  s.window.calls.clear();
  s.commands.New();
  EXPECT_EQ(s.doc.Tables.RowCount, 0);
  EXPECT_TRUE(s.doc.Tables.SchDatList.IsEmpty());
  EXPECT_EQ(s.doc.ScheduleFile, "");
  EXPECT_FALSE(s.doc.Dirty);
  EXPECT_EQ(s.doc.CopiedRow, -1);  // nothing left to paste
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

// Every save that fails keeps the changes marked unsaved, says why, and a question for the
// changes that ends in a failed save keeps the program where it is.
TEST(DocumentCommands, AFailedSaveKeepsTheChangesUnsaved) {
  const std::string writeError = "Write error!";
  const std::string uploadError = "File translate error when upload to Tarvex!";
  struct Case {
    std::string name;
    void (*prepare)(Shell&);
    bool (*run)(Shell&);  // what the command gives; false for the commands that give nothing
    std::string message;
  };
  const std::vector<Case> cases = {
      {"Save to PC of a read-only file",
       [](Shell& s) {
         OpenChangedPcFile(s);
         MakeReadOnly(s.doc.ScheduleFile);
       },
       [](Shell& s) {
         s.commands.SaveToPc();
         return false;
       },
       writeError},
      {"Save as on PC onto a read-only file",
       [](Shell& s) {
         OpenChangedPcFile(s);
         MakeReadOnly(s.dir.Write("taken.scl", "someone's"));
         s.dialogs.QueueAnswer(s.dir.File("taken.scl"));
       },
       [](Shell& s) {
         s.commands.SaveAsOnPc();
         return false;
       },
       writeError},
      {"the question for a read-only PC file",
       [](Shell& s) {
         OpenChangedPcFile(s);
         MakeReadOnly(s.doc.ScheduleFile);
         s.messages.QueueAnswer(MsgAnswer::Yes);
       },
       [](Shell& s) { return s.commands.AskSaveChanges(); }, writeError},
      {"the question for an untitled document saved onto a read-only file",
       [](Shell& s) {
         s.store.InsertRecord(MakeItem(2026, 11, 22, 600, 660, "added"));
         s.doc.Dirty = true;
         MakeReadOnly(s.dir.Write("taken.scl", "someone's"));
         s.messages.QueueAnswer(MsgAnswer::Yes);
         s.dialogs.QueueAnswer(s.dir.File("taken.scl"));
       },
       [](Shell& s) { return s.commands.AskSaveChanges(); }, writeError},
      {"Save to Tarvex refused by the device",
       [](Shell& s) {
         OpenChangedDeviceFile(s);
         s.device.putResult = 7;
       },
       [](Shell& s) { return s.commands.SaveToTarvex(); }, uploadError},
      {"Save to Tarvex without a temporary folder",
       [](Shell& s) {
         OpenChangedDeviceFile(s);
         ::setenv("TMPDIR", s.dir.File("no such folder").c_str(), 1);
       },
       [](Shell& s) { return s.commands.SaveToTarvex(); }, writeError},
      {"Save as on Tarvex refused by the device",
       [](Shell& s) {
         OpenChangedDeviceFile(s);
         s.device.putResult = 7;
         s.device.saveDialogAnswer = "\\PIM\\other.scl";
       },
       [](Shell& s) { return s.commands.SaveAsOnTarvex(); }, uploadError},
      {"Save to Tarvex of a PC file refused by the device",
       [](Shell& s) {
         OpenChangedPcFile(s);
         s.device.cacheRoot = s.dir.File("cache");
         s.device.putResult = 7;
         s.device.saveDialogAnswer = "\\PIM\\doc.scl";
       },
       [](Shell& s) { return s.commands.SaveToTarvex(); }, uploadError},
      {"the question for a device file refused by the device",
       [](Shell& s) {
         OpenChangedDeviceFile(s);
         s.device.putResult = 7;
         s.messages.QueueAnswer(MsgAnswer::Yes);
       },
       [](Shell& s) { return s.commands.AskSaveChanges(); }, uploadError},
  };
  for (const Case& c : cases) {
    Shell s;
    const TempFolder temp(s.dir.Path().string());
    c.prepare(s);
    EXPECT_FALSE(c.run(s)) << c.name;
    EXPECT_TRUE(s.doc.Dirty) << c.name;
    ASSERT_FALSE(s.messages.Shown().empty()) << c.name;
    const MessageRequest& shown = s.messages.Shown().back();
    EXPECT_EQ(shown.text, c.message) << c.name;
    EXPECT_EQ(shown.title, "Scheduler") << c.name;
    EXPECT_EQ(shown.icon, MsgIcon::Exclamation) << c.name;
    EXPECT_TRUE(s.device.files.empty()) << c.name;
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
