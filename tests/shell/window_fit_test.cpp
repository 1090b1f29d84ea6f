#include "shell/window_fit.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/case_file.h"

namespace sched {
namespace {

ScreenRect Rect(const std::string& text) {
  ScreenRect rect;
  std::istringstream(text) >> rect.left >> rect.top >> rect.width >> rect.height;
  return rect;
}

TEST(FitToArea, KeepsTheWindowWhollyInTheArea) {
  for (const testing::CaseRow& row : testing::ReadCases("shell/window-fits.txt", 3, 8)) {
    const ScreenRect fitted = FitToArea(Rect(row[0]), Rect(row[1]));
    const ScreenRect expected = Rect(row[2]);
    EXPECT_EQ(fitted, expected) << row.where << ": " << fitted.left << " " << fitted.top << " "
                                << fitted.width << " " << fitted.height;
  }
}

}  // namespace
}  // namespace sched
