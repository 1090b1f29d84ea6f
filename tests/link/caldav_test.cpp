#include <gtest/gtest.h>

#include <map>

#include "link/caldav_etags.h"
#include "link/caldav_link_component.h"
#include "link/caldav_multistatus.h"
#include "link/caldav_password.h"
#include "link/link_records.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_secret_store.h"
#include "tests/support/message_lines.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

constexpr const char* kCalendarUrl = "https://dav.test/me/work/";

std::string Header(const HttpRequest& r, const std::string& name) {
  for (const auto& [key, value] : r.headers) {
    if (key == name) return value;
  }
  return "";
}

// A calendar collection that keeps its resources and their ETags as a server does, and takes
// PUT only as the If-Match and If-None-Match headers allow. `down` answers nothing at all.
class FakeCalendarServer : public HttpClient {
 public:
  std::map<std::string, std::pair<std::string, std::string>> resources;  // URL: ETag, body
  std::vector<std::string> conditions;  // the condition of each PUT, "new" or the ETag
  std::string password = "pw";
  bool down = false;

  HttpResponse Send(const HttpRequest& r) override {
    if (down) return {HttpFailure::kUnreachable, 0, "", "", "", "Connection refused"};
    if (Header(r, "Authorization") != "Basic bWU6" + std::string(password == "pw" ? "cHc=" : "")) {
      return {HttpFailure::kNone, 401, "", "", "", ""};
    }
    if (r.method == "PROPFIND" && r.url == kCalendarUrl) {
      return {HttpFailure::kNone,
              207,
              "",
              "<multistatus xmlns='DAV:'><response><href>/me/work/</href><propstat><prop>"
              "<resourcetype><collection/><C:calendar xmlns:C='urn:ietf:params:xml:ns:caldav'/>"
              "</resourcetype></prop><status>HTTP/1.1 200 OK</status></propstat></response>"
              "</multistatus>",
              "",
              ""};
    }
    if (r.method != "PUT") return {HttpFailure::kNone, 404, "", "", "", ""};
    const auto it = resources.find(r.url);
    const std::string ifMatch = Header(r, "If-Match");
    conditions.push_back(ifMatch.empty() ? "new" : ifMatch);
    if (ifMatch.empty() ? it != resources.end()
                        : it == resources.end() || it->second.first != ifMatch) {
      return {HttpFailure::kNone, 412, "", "", "", ""};
    }
    const std::string etag = "\"" + std::to_string(++edits_) + "\"";
    resources[r.url] = {etag, r.body};
    return {HttpFailure::kNone, 201, etag, "", "", ""};
  }

 private:
  int edits_ = 0;
};

SchRecord Item(const char* title, int day, std::int32_t stamp) {
  SchRecord r;
  r.Year = r.EndYear = 2036, r.Month = r.EndMonth = 3,
  r.Day = r.EndDay = static_cast<std::uint8_t>(day);
  r.StartTime = 540, r.EndTime = 600, r.SubNo = 1, r.Stamp = stamp;
  r.Title = title;
  return r;
}

std::vector<std::uint8_t> ExportFile(const std::vector<SchRecord>& records) {
  std::vector<std::uint8_t> bytes;
  for (const SchRecord& r : records) {
    const auto record = ExportRecordBytes(r, CodePage::kWestern);
    bytes.insert(bytes.end(), record.begin(), record.end());
  }
  return bytes;
}

struct Link {
  TempDir dir;
  FakeCalendarServer server;
  FakeMessages messages;
  std::size_t seen = 0;
  FakeClock clock;
  std::string password = "pw";
  int refusals = 0;
  CalDavLinkComponent link{{server, messages, clock, [] { return kCalendarUrl; },
                            [] { return "me"; }, [this] { return std::optional(password); },
                            [this] { ++refusals; }, [] { return CodePage::kWestern; },
                            [] { return ImportPeriod{}; }, dir.Path().string()}};
  std::string Said() { return testing::NewMessageLines(messages, seen); }
};

TEST(CalDavLink, ExportPutsOverItsOwnVersionOnlyAndReportsTheOthers) {
  Link l;
  const auto file =
      ExportFile({Item("Dentist", 3, 1000), Item("Gym", 4, 2000), Item("Talk", 5, 3000)});
  ASSERT_TRUE(l.link.Export(file));
  EXPECT_EQ(l.Said(), "");
  // Someone edits Gym on the server and takes Talk away; a new machine knows no ETags at all.
  auto& gym = l.server.resources.at(std::string(kCalendarUrl) + "scheduler-item-1-2000.ics");
  gym = {"\"edited\"", "theirs"};
  l.server.resources.erase(std::string(kCalendarUrl) + "scheduler-item-1-3000.ics");
  ASSERT_TRUE(l.link.Export(file));
  EXPECT_EQ(l.Said(),
            "[Scheduler, Exclamation, Ok] 2 appointments were changed on the server and were "
            "not replaced:\nGym\nTalk");
  EXPECT_EQ(gym.second, "theirs");
  const std::vector<std::string> conditions{"new", "new", "new", "\"1\"", "\"2\"", "\"3\""};
  EXPECT_EQ(l.server.conditions, conditions);
  // The ETags are the collection's: another URL starts afresh.
  EXPECT_EQ(CalDavEtags(l.dir.Path().string(), kCalendarUrl).Of("scheduler-item-1-3000"), "\"3\"");
  EXPECT_EQ(
      CalDavEtags(l.dir.Path().string(), "https://dav.test/other/").Of("scheduler-item-1-3000"),
      "");
}

TEST(CalDavLink, FailuresAreSaidInWordsAndARefusedPasswordIsForgotten) {
  struct Case {
    bool down;
    const char* password;
    const char* said;
    int refusals;
  };
  const Case cases[] = {
      {false, "wrong",
       "The calendar server refused the login. Check the user name and the password.", 1},
      {true, "pw",
       "The calendar server cannot be reached. Check the URL and the network.\n(Connection "
       "refused)",
       0},
  };
  for (const Case& c : cases) {
    Link l;
    l.server.down = c.down;
    l.password = c.password;
    EXPECT_FALSE(l.link.Export(ExportFile({Item("Dentist", 3, 1000)})));
    EXPECT_FALSE(l.link.Import());
    const std::string line = std::string("[Scheduler, Exclamation, Ok] ") + c.said;
    EXPECT_EQ(l.Said(), line + " | " + line);
    EXPECT_EQ(l.refusals, 2 * c.refusals);
    EXPECT_TRUE(l.server.resources.empty());
  }
}

TEST(CalDavMultistatus, ReadsWhatServersAnswer) {
  struct Case {
    const char* xml;
    const char* read;  // href|name|etag|calendar|data per resource, or "none"
  };
  const Case cases[] = {
      {"<d:multistatus xmlns:d='DAV:' xmlns:c='urn:ietf:params:xml:ns:caldav'><d:response>"
       "<d:href>/a/</d:href><d:propstat><d:prop><d:displayname>Work &amp; home</d:displayname>"
       "<d:resourcetype><d:collection/><c:calendar/></d:resourcetype></d:prop>"
       "<d:status>HTTP/1.1 200 OK</d:status></d:propstat><d:propstat><d:prop><d:getetag/>"
       "</d:prop><d:status>HTTP/1.1 404 Not Found</d:status></d:propstat></d:response>"
       "</d:multistatus>",
       "/a/|Work & home||1|;"},
      {"<multistatus xmlns='DAV:'><response><href>/a/x.ics</href><propstat><prop>"
       "<getetag>\"7\"</getetag><C:calendar-data xmlns:C='urn:ietf:params:xml:ns:caldav'>"
       "BEGIN:VCALENDAR&#13;\n</C:calendar-data></prop><status>HTTP/1.1 200 OK</status>"
       "</propstat></response><response><href>/a/y.ics</href><status>HTTP/1.1 404</status>"
       "</response></multistatus>",
       "/a/x.ics||\"7\"|0|BEGIN:VCALENDAR\r\n;/a/y.ics|||0|;"},
      {"<d:propfind xmlns:d='DAV:'/>", "none"},
      {"<multistatus xmlns='DAV:'><response>", "none"},
      {"", "none"},
  };
  for (const Case& c : cases) {
    const auto resources = ParseMultistatus(c.xml);
    std::string read = resources ? "" : "none";
    for (const DavResource& r : resources.value_or(std::vector<DavResource>{})) {
      read += r.href + "|" + r.displayName + "|" + r.etag + "|" + (r.isCalendar ? "1" : "0") + "|" +
              r.calendarData + ";";
    }
    EXPECT_EQ(read, c.read) << c.xml;
  }
}

TEST(CalDavPassword, AskedOncePerSessionUnlessTheStoreKeepsItAndAgainAfterARefusal) {
  for (const bool present : {true, false}) {
    FakeSecretStore secrets(present);
    int asked = 0;
    CalDavPassword password(secrets, [&](const std::string&) {
      return std::optional(std::string(++asked == 1 ? "first" : "second"));
    });
    EXPECT_EQ(password.Of("a").value_or(""), "first");
    EXPECT_EQ(password.Of("a").value_or(""), "first");
    EXPECT_EQ(asked, 1);
    password.Refused("a");
    EXPECT_EQ(password.Of("a").value_or(""), "second");
    EXPECT_EQ(secrets.ReadPassword("a").value_or("none"), present ? "second" : "none");
    CalDavPassword nextSession(secrets, [](const std::string&) { return std::nullopt; });
    EXPECT_EQ(nextSession.Of("a").value_or("none"), present ? "second" : "none");
  }
}

}  // namespace
}  // namespace sched
