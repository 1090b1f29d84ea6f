#include "core/time_text.h"

#include <gtest/gtest.h>

namespace sched {
namespace {

TEST(TwelveHourTime, HoursAroundMidnightAndNoonInBothStyles) {
  struct Case {
    int hour, minute;
    const char* plain;   // no padding, "am"/"pm" right after the minutes
    const char* padded;  // padded hour, " AM"/" PM"
  };
  const Case cases[] = {
      {0, 0, "12:00am", "12:00 AM"},   {0, 5, "12:05am", "12:05 AM"},
      {1, 59, "1:59am", "01:59 AM"},   {9, 30, "9:30am", "09:30 AM"},
      {11, 59, "11:59am", "11:59 AM"}, {12, 0, "12:00pm", "12:00 PM"},
      {13, 1, "1:01pm", "01:01 PM"},   {23, 59, "11:59pm", "11:59 PM"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(TwelveHourTime(c.hour, c.minute, false, "am", "pm"), c.plain) << c.hour;
    EXPECT_EQ(TwelveHourTime(c.hour, c.minute, true, " AM", " PM"), c.padded) << c.hour;
  }
}

}  // namespace
}  // namespace sched
