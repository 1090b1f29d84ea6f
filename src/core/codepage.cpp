#include "core/codepage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "core/shift_jis.h"
#include "core/utf8.h"

namespace sched {
namespace {

// Code points of the bytes 0x80 to 0x9F of Windows-1252; the rest of the code page equals
// Latin-1.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t WesternCodePoint(unsigned char byte) {
  if (byte >= 0x80 && byte <= 0x9F) return kHighControls[byte - 0x80];
  return byte;
}

int WesternByte(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
  for (std::size_t i = 0; i < kHighControls.size(); ++i) {
    if (kHighControls[i] == cp) return static_cast<int>(0x80 + i);
  }
  return '?';
}

void AppendWesternUtf8(std::string& out, std::string_view bytes) {
  // A byte makes at most three bytes of UTF-8: the text is made in room for that, in place.
  const std::size_t start = out.size();
  out.resize(start + 3 * bytes.size());
  char* to = out.data() + start;
  for (std::size_t pos = 0; pos < bytes.size(); ++pos) {
    const std::size_t high = FirstHigh(bytes, pos);
    if (high > pos) to = std::copy(bytes.data() + pos, bytes.data() + high, to);
    if (high == bytes.size()) break;
    const char32_t cp = WesternCodePoint(static_cast<unsigned char>(bytes[high]));
    if (cp < 0x800) {
      *to++ = static_cast<char>(0xC0 | (cp >> 6));
    } else {
      *to++ = static_cast<char>(0xE0 | (cp >> 12));
      *to++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    }
    *to++ = static_cast<char>(0x80 | (cp & 0x3F));
    pos = high;
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
}

// The character at `pos` of Shift-JIS bytes, packed, moving `pos` behind it. A lead byte whose
// trail byte is missing or out of range gives U+FFFD alone, and the byte behind it is read anew;
// a well-formed pair that the code page leaves unassigned gives one U+FFFD.
std::uint32_t NextShiftJis(const ShiftJisTables& sjis, std::string_view bytes, std::size_t& pos) {
  static const std::uint32_t kReplacement = PackUtf8(kReplacementCharacter);
  const auto byte = static_cast<unsigned char>(bytes[pos++]);
  if (!ShiftJisTables::IsLead(byte)) return sjis.Single(byte);
  if (pos == bytes.size() || !ShiftJisTables::IsTrail(static_cast<unsigned char>(bytes[pos]))) {
    return kReplacement;
  }
  const std::uint32_t packed = sjis.Pair(byte, static_cast<unsigned char>(bytes[pos++]));
  return packed != 0 ? packed : kReplacement;
}

void AppendShiftJisUtf8(std::string& text, std::string_view bytes) {
  const ShiftJisTables& sjis = ShiftJisTables::Get();
  // A byte makes at most three bytes of UTF-8, and a character is stored with all three.
  const std::size_t start = text.size();
  text.resize(start + 3 * bytes.size() + 1);
  char* out = text.data() + start;
  for (std::size_t pos = 0; pos < bytes.size();) {
    if (static_cast<unsigned char>(bytes[pos]) < 0x80) {
      *out++ = bytes[pos++];
      continue;
    }
    const std::uint32_t packed = NextShiftJis(sjis, bytes, pos);
    out[0] = static_cast<char>(packed);
    out[1] = static_cast<char>(packed >> 8);
    out[2] = static_cast<char>(packed >> 16);
    out += packed >> 24;
  }
  text.resize(static_cast<std::size_t>(out - text.data()));
}

// The bytes of a character from U+0080 up: 0 for one the code page lacks.
std::uint16_t ShiftJisBytes(const ShiftJisTables& sjis, char32_t cp) {
  return cp == kReplacementCharacter ? 0 : sjis.Encode(cp);
}

}  // namespace

char32_t NextCodePoint(std::string_view text, std::size_t& pos) {
  const auto lead = static_cast<unsigned char>(text[pos]);
  int extra = 0;
  char32_t cp = 0;
  if (lead < 0x80) {
    ++pos;
    return lead;
  } else if ((lead & 0xE0) == 0xC0) {
    extra = 1;
    cp = lead & 0x1F;
  } else if ((lead & 0xF0) == 0xE0) {
    extra = 2;
    cp = lead & 0x0F;
  } else if ((lead & 0xF8) == 0xF0) {
    extra = 3;
    cp = lead & 0x07;
  } else {
    ++pos;
    return kReplacementCharacter;
  }
  if (pos + static_cast<std::size_t>(extra) >= text.size()) {
    ++pos;
    return kReplacementCharacter;
  }
  for (int i = 1; i <= extra; ++i) {
    const auto next = static_cast<unsigned char>(text[pos + static_cast<std::size_t>(i)]);
    if ((next & 0xC0) != 0x80) {
      ++pos;
      return kReplacementCharacter;
    }
    cp = (cp << 6) | (next & 0x3F);
  }
  pos += static_cast<std::size_t>(extra) + 1;
  return cp;
}

std::optional<CodePage> CodePageOfNumber(int number) {
  if (number == static_cast<int>(CodePage::kWestern)) return CodePage::kWestern;
  if (number == static_cast<int>(CodePage::kJapanese)) return CodePage::kJapanese;
  return std::nullopt;
}

bool ShiftJisAvailable() {
  return ShiftJisTables::Get().Available();
}

bool IsAscii(std::string_view text) {
  return FirstHigh(text, 0) == text.size();
}

void AppendToUtf8(std::string& text, std::string_view bytes, CodePage page) {
  if (page == CodePage::kJapanese) {
    AppendShiftJisUtf8(text, bytes);
  } else {
    AppendWesternUtf8(text, bytes);
  }
}

std::string ToUtf8(std::string_view bytes, CodePage page) {
  std::string text;
  AppendToUtf8(text, bytes, page);
  return text;
}

std::string ToCodePage(std::string_view text, CodePage page) {
  std::string out(text.size(), '\0');
  out.resize(static_cast<std::size_t>(WriteCodePage(text, page, out.data()) - out.data()));
  return out;
}

char* WriteCodePageCharacter(std::string_view text, std::size_t& pos, CodePage page, char* to) {
  const char32_t cp = NextCodePoint(text, pos);
  if (page != CodePage::kJapanese) {
    *to++ = static_cast<char>(WesternByte(cp));
  } else if (const std::uint16_t bytes = ShiftJisBytes(ShiftJisTables::Get(), cp); bytes == 0) {
    *to++ = '?';
  } else {
    if (bytes > 0xFF) *to++ = static_cast<char>(bytes >> 8);
    *to++ = static_cast<char>(bytes & 0xFF);
  }
  return to;
}

char* WriteCodePage(std::string_view text, CodePage page, char* to) {
  for (std::size_t pos = 0; pos < text.size();) {
    // A run of ASCII is copied as it stands; a copy forwards is safe over the text itself.
    const std::size_t high = FirstHigh(text, pos);
    to = std::copy(text.data() + pos, text.data() + high, to);
    pos = high;
    if (pos < text.size()) to = WriteCodePageCharacter(text, pos, page, to);
  }
  return to;
}

std::size_t ByteLength(std::string_view text, CodePage page) {
  const ShiftJisTables* sjis = page == CodePage::kJapanese ? &ShiftJisTables::Get() : nullptr;
  std::size_t count = 0;
  for (std::size_t pos = 0; pos < text.size();) {
    const std::size_t high = FirstHigh(text, pos);
    count += high - pos;
    pos = high;
    if (pos == text.size()) break;
    const char32_t cp = NextCodePoint(text, pos);
    count += sjis != nullptr && ShiftJisBytes(*sjis, cp) > 0xFF ? 2 : 1;
  }
  return count;
}

std::size_t FittingBytes(std::string_view bytes, std::size_t limit, CodePage page) {
  if (bytes.size() <= limit) return bytes.size();
  if (page == CodePage::kWestern) return limit;
  std::size_t pos = 0;
  while (pos < bytes.size()) {
    const bool pair = ShiftJisTables::IsLead(static_cast<unsigned char>(bytes[pos])) &&
                      pos + 1 < bytes.size() &&
                      ShiftJisTables::IsTrail(static_cast<unsigned char>(bytes[pos + 1]));
    const std::size_t next = pos + (pair ? 2 : 1);
    if (next > limit) break;
    pos = next;
  }
  return pos;
}

}  // namespace sched
