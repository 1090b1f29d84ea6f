#include "core/number_text.h"

#include <gtest/gtest.h>

#include <climits>
#include <optional>

namespace sched {
namespace {

// Every caller hands over the whole text of one number and wants nothing back for anything
// else, so that "12x" or " 12" is refused and not read as 12.
TEST(ParseInt, TakesAWholeNumberAndNothingElse) {
  const struct {
    const char* text;
    int base;
    int low;
    int high;
    std::optional<int> value;
  } cases[] = {
      {"0", 10, INT_MIN, INT_MAX, 0},
      {"0042", 10, INT_MIN, INT_MAX, 42},
      {"-17", 10, INT_MIN, INT_MAX, -17},
      {"2147483647", 10, INT_MIN, INT_MAX, INT_MAX},
      {"-2147483648", 10, INT_MIN, INT_MAX, INT_MIN},
      {"2147483648", 10, INT_MIN, INT_MAX, std::nullopt},
      {"", 10, INT_MIN, INT_MAX, std::nullopt},
      {"-", 10, INT_MIN, INT_MAX, std::nullopt},
      {"+5", 10, INT_MIN, INT_MAX, std::nullopt},
      {" 5", 10, INT_MIN, INT_MAX, std::nullopt},
      {"5 ", 10, INT_MIN, INT_MAX, std::nullopt},
      {"12x", 10, INT_MIN, INT_MAX, std::nullopt},
      {"1.5", 10, INT_MIN, INT_MAX, std::nullopt},
      {"ff", 16, INT_MIN, INT_MAX, 255},
      {"FF", 16, INT_MIN, INT_MAX, 255},
      {"0x10", 16, INT_MIN, INT_MAX, std::nullopt},
      {"ff", 10, INT_MIN, INT_MAX, std::nullopt},
      {"1901", 10, 1901, 2099, 1901},
      {"2099", 10, 1901, 2099, 2099},
      {"1900", 10, 1901, 2099, std::nullopt},
      {"2100", 10, 1901, 2099, std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ParseInt(c.text, c.base, c.low, c.high), c.value) << '"' << c.text << '"';
  }
}

}  // namespace
}  // namespace sched
