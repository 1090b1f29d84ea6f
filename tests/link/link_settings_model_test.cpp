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
  CalDavCollection::Summary found;
  std::string asked;  // the URL and user of the last probe
  LinkSettingsModel model{{settings, messages, dialogs, dir.File("PIMdata"),
                           [this](const std::string& url, const std::string& user) {
                             asked = url + " " + user;
                             return found;
                           }}};
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

TEST(LinkSettingsModel, TestConnectionSaysWhatTheServerHoldsOrWhatWentWrong) {
  struct Case {
    const char* url;
    CalDavProblem problem;
    const char* said;
  };
  const Case cases[] = {
      {"https://dav.test/me/work/", CalDavProblem::kNone,
       "[Scheduler, Information, Ok] Connected. The calendar \"Work\" holds 3 events."},
      {"https://dav.test/me/", CalDavProblem::kNotACalendar,
       "[Scheduler, Exclamation, Ok] The URL names no calendar on the server. Give the address "
       "of a calendar collection."},
      {"https://dav.test/me/work/", CalDavProblem::kUntrustedCertificate,
       "[Scheduler, Exclamation, Ok] The calendar server's certificate is not trusted, so the "
       "connection was refused.\nSHA-256 fingerprint: AB:CD"},
      {"dav.test/me/work/", CalDavProblem::kNone,
       "[Scheduler, Exclamation, Ok] Specify the calendar's web address, beginning with "
       "https:// or http://."},
  };
  for (const Case& c : cases) {
    Dialog d;
    d.found = {{c.problem, "AB:CD", ""}, "Work", 3};
    d.model.Form_Load();
    d.model.Kind_Change(LinkKind::kServer);
    d.model.ServerUrl_Change(c.url);
    d.model.ServerUser_Change("me");
    d.model.TestConnection_Click();
    EXPECT_EQ(testing::NewMessageLines(d.messages, d.seen), c.said) << c.url;
    const bool good = c.url[0] == 'h';
    EXPECT_EQ(d.asked, good ? std::string(c.url) + " me" : "");
    EXPECT_EQ(d.model.OK_Click(), good);
    EXPECT_EQ(ReadLinkKind(d.settings), good ? LinkKind::kServer : LinkKind::kFile);
    EXPECT_EQ(ReadLinkServerUrl(d.settings), good ? c.url : "");
  }
}

}  // namespace
}  // namespace sched
