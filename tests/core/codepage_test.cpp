#include "core/codepage.h"

#include <gtest/gtest.h>

namespace sched {
namespace {

TEST(Codepage, EveryByteRoundTrips) {
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  const std::string utf8 = Cp1252ToUtf8(all);
  EXPECT_EQ(Utf8ToCp1252(utf8), all);
  EXPECT_EQ(Cp1252Length(utf8), all.size());
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
    EXPECT_EQ(Cp1252ToUtf8(c.bytes), c.utf8);
    EXPECT_EQ(Utf8ToCp1252(c.utf8), c.bytes);
  }
}

TEST(Codepage, UnmappableAndMalformedBecomeQuestionMarks) {
  EXPECT_EQ(Utf8ToCp1252("\u65E5\u672C"), "??");  // no 8-bit form
  EXPECT_EQ(Utf8ToCp1252("a\xC3"), "a?");         // cut sequence
  EXPECT_EQ(Utf8ToCp1252("\xFF"
                         "b"),
            "?b");
  EXPECT_EQ(Utf8ToCp1252("\xF0\x9F\x98\x80"), "?");  // one character outside the BMP
  EXPECT_EQ(Cp1252Length("\u00E9t\u00E9"), 3u);
}

}  // namespace
}  // namespace sched
