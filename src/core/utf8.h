#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/byte_lanes.h"

namespace sched {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// Appends the UTF-8 form of a code point of the Basic Multilingual Plane.
inline void AppendUtf8(std::string& out, char32_t cp) {
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
char32_t NextCodePoint(std::string_view text, std::size_t& pos);

// The position of the first byte from 0x80 up at or after `pos`; the size when there is none.
inline std::size_t FirstHigh(std::string_view text, std::size_t pos) {
  // Eight bytes at a time while none is high, as most text is plain.
  for (; pos + sizeof(std::uint64_t) <= text.size(); pos += sizeof(std::uint64_t)) {
    if (High(WordAt(text.data() + pos)) != 0) break;
  }
  while (pos < text.size() && (static_cast<unsigned char>(text[pos]) & 0x80) == 0) ++pos;
  return pos;
}

}  // namespace sched
