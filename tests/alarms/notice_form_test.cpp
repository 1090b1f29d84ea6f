#include "alarms/notice_form.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_date_formatter.h"

namespace sched {
namespace {

TEST(NoticeForm, ShowsTheAlarmWithTheDateInTheShortForm) {
  const FakeDateFormatter dates;
  const NoticeForm form = MakeNoticeForm(
      {"Dentist", "2026/11/3", "x-ray\r\nfasting", "9:00am - 9:30am", "Main St", "", 7}, dates);
  EXPECT_EQ(form.Id, 7);
  EXPECT_EQ(form.Caption, "Scheduler - Matching with Schedule alarm");
  EXPECT_EQ(form.Missed, "");
  EXPECT_EQ(form.Label1, "Dentist");
  EXPECT_EQ(form.Label2[0], "2026/11/03");
  EXPECT_EQ(form.Label2[1], "9:00am - 9:30am");
  EXPECT_EQ(form.Label2[2], "Main St");
  EXPECT_EQ(form.Text1, "x-ray\r\nfasting");
}

TEST(NoticeForm, ADateTextThatIsNoDateStaysAsItIs) {
  const FakeDateFormatter dates;
  const struct {
    const char* text;
    const char* shown;
  } cases[] = {
      {"2099/12/31", "2099/12/31"},
      {"1901/1/1", "1901/01/01"},
      {"2028/2/29", "2028/02/29"},
      {"2026/2/29", ""},
      {"2026/13/1", ""},
      {"2026/11", ""},
      {"2026/11/3/", ""},
      {"2026/11/3x", ""},
      {"/11/3", ""},
      {"", ""},
  };
  for (const auto& c : cases) {
    const std::string expected = *c.shown != '\0' ? c.shown : c.text;
    EXPECT_EQ(MakeNoticeForm({"t", c.text, "", "", "", "", 0}, dates).Label2[0], expected)
        << c.text;
  }
}

}  // namespace
}  // namespace sched
