#include "core/codepage.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <vector>

#include "core/utf8.h"
#include "tests/support/run_command.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

constexpr CodePage kWest = CodePage::kWestern;
constexpr CodePage kJapan = CodePage::kJapanese;

std::string Bytes(unsigned first, unsigned second) {
  return {static_cast<char>(first), static_cast<char>(second)};
}

// The code points of UTF-8 text, in hexadecimal, separated by blanks.
std::string CodePoints(std::string_view text) {
  std::ostringstream out;
  for (std::size_t pos = 0; pos < text.size();) {
    out << (pos == 0 ? "" : " ") << std::hex << std::uppercase
        << static_cast<std::uint32_t>(NextCodePoint(text, pos));
  }
  return out.str();
}

// Every double-byte sequence of Shift-JIS's lead and trail ranges, and every single byte from
// 0x80 up that is no lead byte.
std::vector<std::string> ShiftJisSequences() {
  std::vector<std::string> all;
  for (unsigned lead = 0x80; lead <= 0xFF; ++lead) {
    const bool isLead = (lead >= 0x81 && lead <= 0x9F) || (lead >= 0xE0 && lead <= 0xFC);
    if (!isLead) all.push_back(std::string(1, static_cast<char>(lead)));
    for (unsigned trail = 0x40; isLead && trail <= 0xFC; ++trail) {
      if (trail != 0x7F) all.push_back(Bytes(lead, trail));
    }
  }
  return all;
}

TEST(Codepage, EveryWesternByteRoundTrips) {
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  const std::string utf8 = ToUtf8(all, kWest);
  EXPECT_EQ(ToCodePage(utf8, kWest), all);
  EXPECT_EQ(ByteLength(utf8, kWest), all.size());
  EXPECT_EQ(CodePoints(ToUtf8("\x80\x81\x8D\x8F\x90\x9D\x9F\xA0\xE9", kWest)),
            "20AC 81 8D 8F 90 9D 178 A0 E9");  // the euro, the five unassigned bytes as C1
}

// The reference: Python's codec of the Windows code page, run on a file of every sequence.
TEST(Codepage, ShiftJisDecodesEverySequenceAsTheReferenceDoes) {
  ASSERT_TRUE(ShiftJisAvailable());
  TempDir dir;
  std::string hexLines;
  const std::vector<std::string> sequences = ShiftJisSequences();
  for (const std::string& s : sequences) {
    for (const char c : s) {
      hexLines += "0123456789ABCDEF"[(c >> 4) & 15];
      hexLines += "0123456789ABCDEF"[c & 15];
    }
    hexLines += '\n';
  }
  const std::string input = dir.Write("pairs.txt", hexLines);
  const auto [status, out] = RunCommand(
      "/usr/bin/python3 -c 'import sys\n"
      "for line in open(sys.argv[1]):\n"
      "    try: print(\" \".join(\"%X\" % ord(c) for c in bytes.fromhex(line).decode(\"cp932\")))\n"
      "    except UnicodeDecodeError: print(\"FFFD\")' " +
      input);
  ASSERT_EQ(status, 0);
  std::istringstream reference(out);
  int assigned = 0;
  int otherPair = 0;
  for (const std::string& s : sequences) {
    std::string expected;
    std::getline(reference, expected);
    const std::string decoded = ToUtf8(s, kJapan);
    ASSERT_EQ(CodePoints(decoded), expected) << std::hex << CodePoints(s);
    if (expected == "FFFD") continue;
    ++assigned;
    EXPECT_EQ(ByteLength(decoded, kJapan), s.size());
    if (ToCodePage(decoded, kJapan) != s) ++otherPair;
  }
  EXPECT_EQ(assigned, 9604 + 63 + 5);  // the pairs, the half-width katakana, five other bytes
  EXPECT_EQ(otherPair, 398);           // the NEC and IBM duplicates
}

// The reference: the system's iconv, run on a file of every character the code page has.
TEST(Codepage, ShiftJisEncodesEveryCharacterAsTheReferenceDoes) {
  TempDir dir;
  std::vector<std::string> characters;
  std::string lines;
  for (const std::string& s : ShiftJisSequences()) {
    const std::string c = ToUtf8(s, kJapan);
    // iconv knows neither the one undefined byte 0x80 nor the four bytes of private use.
    const std::string cp = CodePoints(c);
    if (cp == "80" || cp.starts_with("F8F") || cp == "FFFD") continue;
    characters.push_back(c);
    lines += c + '\n';
  }
  const auto [status, out] = RunCommand("iconv -f UTF-8 -t CP932 " + dir.Write("chars.txt", lines));
  ASSERT_EQ(status, 0);
  std::istringstream reference(out);
  for (const std::string& c : characters) {
    std::string expected;
    std::getline(reference, expected);
    ASSERT_EQ(ToCodePage(c, kJapan), expected) << CodePoints(c);
  }
  EXPECT_EQ(characters.size(), 9604u + 63u);
}

TEST(Codepage, BrokenAndUnmappableTextNeverFails) {
  struct Case {
    std::string bytes;
    std::string utf8;  // as memory holds it
    std::string saved;
  };
  const Case cases[] = {
      {"\x89\xEF", "\u4F1A", "\x89\xEF"},             // a pair
      {"a\x89", "a\uFFFD", "a?"},                     // a lead byte at the end of a field
      {"\x89 b", "\uFFFD b", "? b"},                  // a trail byte out of range, read anew
      {"\x85\x40", "\uFFFD", "?"},                    // a pair the code page leaves unassigned
      {"\x5C\x7E\xB1", "\\~\uFF71", "\x5C\x7E\xB1"},  // single bytes
      {"\x80\xA0\xFD\xFE\xFF", "\u0080\uF8F0\uF8F1\uF8F2\uF8F3", "\x80\xA0\xFD\xFE\xFF"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ToUtf8(c.bytes, kJapan), c.utf8) << c.bytes;
    EXPECT_EQ(ToCodePage(c.utf8, kJapan), c.saved) << c.bytes;
  }
  for (CodePage page : {kWest, kJapan}) {
    EXPECT_EQ(ToCodePage("\u00E9\u65E5a\xC3", page), page == kWest ? "\xE9?a?"
                                                                   : "?\x93\xFA"
                                                                     "a?");
    EXPECT_EQ(ToCodePage("\xF0\x9F\x98\x80", page), "?");  // outside the BMP
  }
}

TEST(Codepage, CutsNeverSplitADoubleByteCharacter) {
  struct Case {
    std::string utf8;
    std::size_t limit;
    std::size_t length;  // in bytes of the 8-bit form
    std::size_t fitting;
  };
  const Case cases[] = {
      {"ALARM\u4F1A\u8B70", 8, 9, 7},  // a sound name: the second kanji would take bytes 8, 9
      {"ALARMS\u4F1A", 8, 8, 8},       // just fits
      {"AB\uFF71\uFF72CDEF\u4F1A", 8, 10, 8},         // half-width katakana take one byte
      {std::string(21, 'x') + "\u65E5", 22, 23, 21},  // a word of a word list
      {std::string(20, 'x') + "\u65E5", 22, 22, 22},
  };
  for (const Case& c : cases) {
    const std::string bytes = ToCodePage(c.utf8, kJapan);
    EXPECT_EQ(ByteLength(c.utf8, kJapan), c.length) << c.utf8;
    EXPECT_EQ(FittingBytes(bytes, c.limit, kJapan), c.fitting) << c.utf8;
    EXPECT_EQ(FittingBytes(bytes, c.limit, kWest), std::min(c.limit, bytes.size()));
  }
  EXPECT_EQ(FittingBytes("ab\x89", 3, kJapan), 3u);  // a half pair is a byte of its own
  EXPECT_EQ(ByteLength("\u4F1A\u00E9", kWest), 2u);
}

}  // namespace
}  // namespace sched
