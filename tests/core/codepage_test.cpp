#include "core/codepage.h"

#include <gtest/gtest.h>

namespace sched {
namespace {

TEST(Codepage, EveryByteRoundTrips) {
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  const std::string utf8 = ToUtf8(all, CodePage::kWestern);
  EXPECT_EQ(ToCodePage(utf8, CodePage::kWestern), all);
  EXPECT_EQ(ByteLength(utf8, CodePage::kWestern), all.size());
}

TEST(Codepage, KnownCharacters) {
  struct Case {
    std::string bytes;
    std::string utf8;
  };
  const Case cases[] = {
      {"\x80", "\u20AC"},  // euro sign
      {"\x93quoted\x94", "\u201Cquoted\u201D"},
      {"caf\xE9", "caf\u00E9"},
      {"\x9F", "\u0178"},
      {"\xA0", "\u00A0"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ToUtf8(c.bytes, CodePage::kWestern), c.utf8);
    EXPECT_EQ(ToCodePage(c.utf8, CodePage::kWestern), c.bytes);
  }
}

TEST(Codepage, UnmappableAndMalformedBecomeQuestionMarks) {
  EXPECT_EQ(ToCodePage("\u65E5\u672C", CodePage::kWestern), "??");  // no 8-bit form
  EXPECT_EQ(ToCodePage("a\xC3", CodePage::kWestern), "a?");         // cut sequence
  EXPECT_EQ(ToCodePage("\xFF"
                       "b",
                       CodePage::kWestern),
            "?b");
  EXPECT_EQ(ToCodePage("\xF0\x9F\x98\x80", CodePage::kWestern), "?");  // one character outside the BMP
  EXPECT_EQ(ByteLength("\u00E9t\u00E9", CodePage::kWestern), 3u);
}

}  // namespace
}  // namespace sched
