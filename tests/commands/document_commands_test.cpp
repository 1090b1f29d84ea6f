#include "commands/document_commands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <sstream>

#include "shell/texts.h"
#include "tests/support/case_file.h"
#include "tests/support/message_lines.h"
#include "tests/support/test_session.h"

namespace sched {
namespace {

using Shell = TestCommands;

// A document with a change: a schedule file on the PC ("pc"), of the device (its cached copy,
// "device"), or a new one ("untitled").
void OpenChanged(Shell& s, const std::string& where) {
  if (where == "device") {
    std::filesystem::create_directories(s.dir.File("cache/PIM"));
    s.device.cacheRoot = s.dir.File("cache");
  }
  if (where != "untitled") {
    s.doc.ScheduleFile = s.MakeFile(where == "pc" ? "doc.scl" : "cache/PIM/doc.scl", "before");
    s.doc.ScheduleOnPc = where == "pc" ? 1 : 0;
    s.session.LoadScheduleFile();
  }
  s.store.InsertRecord(MakeItem(2026, 11, 22, 600, 660, "added"));
  s.doc.Dirty = true;
}

void MakeReadOnly(const std::string& path) {
  std::filesystem::permissions(path, std::filesystem::perms::owner_read);
}

// Every save that fails keeps the changes marked unsaved and says why, and a question for the
// changes that ends in a failed save keeps the program where it is.
TEST(DocumentCommands, AFailedSaveKeepsTheChangesUnsaved) {
  for (const testing::CaseRow& row : testing::ReadCases("commands/failed-saves.txt", 4, 9)) {
    Shell s;
    const TempFolder temp(s.dir.Path().string());
    std::istringstream setup(row[1]);
    for (std::string word; setup >> word;) {
      if (word == "pc" || word == "device" || word == "untitled") OpenChanged(s, word);
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

}  // namespace
}  // namespace sched
