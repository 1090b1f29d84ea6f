#include "core/codepage.h"

#include <array>
#include <cstdint>

namespace sched {
namespace {

// Code points of the bytes 0x80 to 0x9F; the rest of the code page equals Latin-1.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t ByteToCodePoint(unsigned char byte) {
  if (byte >= 0x80 && byte <= 0x9F) return kHighControls[byte - 0x80];
  return byte;
}

int CodePointToByte(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
  for (std::size_t i = 0; i < kHighControls.size(); ++i) {
    if (kHighControls[i] == cp) return static_cast<int>(0x80 + i);
  }
  return '?';
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Decodes one UTF-8 sequence at `pos`, moving `pos` behind it; a malformed sequence gives
// U+FFFD and moves one byte on.
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
    return 0xFFFD;
  }
  if (pos + static_cast<std::size_t>(extra) >= text.size()) {
    ++pos;
    return 0xFFFD;
  }
  for (int i = 1; i <= extra; ++i) {
    const auto next = static_cast<unsigned char>(text[pos + static_cast<std::size_t>(i)]);
    if ((next & 0xC0) != 0x80) {
      ++pos;
      return 0xFFFD;
    }
    cp = (cp << 6) | (next & 0x3F);
  }
  pos += static_cast<std::size_t>(extra) + 1;
  return cp;
}

// The position of the first byte from 0x80 up at or after `pos`; the size when there is none.
std::size_t FirstHigh(std::string_view text, std::size_t pos) {
  while (pos < text.size() && (static_cast<unsigned char>(text[pos]) & 0x80) == 0) ++pos;
  return pos;
}

}  // namespace

bool IsAscii(std::string_view text) {
  return FirstHigh(text, 0) == text.size();
}

std::string Cp1252ToUtf8(std::string_view bytes) {
  std::size_t length = bytes.size();
  for (char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) length += ByteToCodePoint(byte) < 0x800 ? 1 : 2;
  }
  std::string out;
  out.reserve(length);
  for (std::size_t pos = 0; pos < bytes.size(); ++pos) {
    const std::size_t high = FirstHigh(bytes, pos);
    out.append(bytes.substr(pos, high - pos));
    if (high == bytes.size()) break;
    AppendUtf8(out, ByteToCodePoint(static_cast<unsigned char>(bytes[high])));
    pos = high;
  }
  return out;
}

std::string Utf8ToCp1252(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t pos = 0; pos < text.size();) {
    const std::size_t high = FirstHigh(text, pos);
    out.append(text.substr(pos, high - pos));
    pos = high;
    if (pos < text.size()) out += static_cast<char>(CodePointToByte(NextCodePoint(text, pos)));
  }
  return out;
}

std::size_t Cp1252Length(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t pos = 0; pos < text.size(); ++count) NextCodePoint(text, pos);
  return count;
}

}  // namespace sched
