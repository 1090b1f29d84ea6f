#include "link/link_settings_model.h"

#include <gtest/gtest.h>

#include "link/link_settings.h"
#include "platform/fake/fake_file_dialogs.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_settings_store.h"
#include "shell/settings.h"
#include "tests/support/message_lines.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

struct Dialog {
  TempDir dir;
  FakeSettingsStore settings;
  FakeMessages messages;
  FakeFileDialogs dialogs;
  std::size_t seen = 0;
  LinkSettingsModel model{{settings, messages, dialogs, dir.File("PIMdata")}};
  std::string Stored() { return ReadLinkCalendar(settings); }
};

TEST(LinkSettingsModel, BrowsesInTheFolderOfTheFileShown) {
  Dialog d;
  SaveLinkCalendar(d.settings, "/home/me/cal/work.ics");
  d.model.Form_Load();
  d.model.Browse_Click();                    // cancelled: the file stays
  d.model.CalendarFile_Change("typed.ics");  // no folder of its own: the data folder
  d.model.Browse_Click();
  EXPECT_EQ(d.model.CalendarFile(), "typed.ics");
  const auto& shown = d.dialogs.ShownDialogs();
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[0].request.folder + " " + shown[0].request.proposal, "/home/me/cal work.ics");
  EXPECT_EQ(shown[1].request.folder, d.dir.File("PIMdata"));
}

TEST(LinkSettingsModel, OkStoresAFileInAFolderThatExistsAndRefusesTheRest) {
  struct Case {
    const char* typed;  // in the test's folder when it starts with "/"
    const char* refusal;
  };
  const Case cases[] = {
      {"/cal.ics", ""},
      {"", "Specify the calendar file with its full path."},
      {"cal.ics", "Specify the calendar file with its full path."},
      {"/", "Specify the calendar file with its full path."},
      {"/sub", "Specify the calendar file with its full path."},  // a folder
      {"/none/cal.ics", "The folder of the calendar file does not exist."},
  };
  for (const Case& c : cases) {
    Dialog d;
    std::filesystem::create_directory(d.dir.File("sub"));
    const std::string typed =
        c.typed[0] == '/' ? d.dir.Path().string() + c.typed : std::string(c.typed);
    d.model.Form_Load();
    d.model.CalendarFile_Change(typed);
    const bool taken = *c.refusal == 0;
    EXPECT_EQ(d.model.OK_Click(), taken) << c.typed;
    EXPECT_EQ(testing::NewMessageLines(d.messages, d.seen),
              taken ? "" : std::string("[Scheduler, Exclamation, Ok] ") + c.refusal)
        << c.typed;
    EXPECT_EQ(d.Stored(), taken ? typed : "") << c.typed;
  }
}

}  // namespace
}  // namespace sched
