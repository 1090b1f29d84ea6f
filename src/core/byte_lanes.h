#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace sched {

// Text looked at eight bytes at a time, each byte a lane of a 64-bit word. The marks are the
// high bits of the lanes; a lane above a marked one may be marked wrongly, so a word's marks
// tell whether any lane matches, and the lowest mark tells which lane matches first.
inline constexpr std::uint64_t kLanes = 0x0101010101010101;
inline constexpr std::uint64_t kHighBits = 0x8080808080808080;

// The word's bytes from `at` on, as they lie in memory.
inline std::uint64_t WordAt(const char* at) {
  std::uint64_t word = 0;
  std::memcpy(&word, at, sizeof word);
  return word;
}

// Marks the lanes that hold `byte`.
inline std::uint64_t Matches(std::uint64_t word, char byte) {
  const std::uint64_t x = word ^ (kLanes * static_cast<unsigned char>(byte));
  return (x - kLanes) & ~x & kHighBits;
}

// Marks the lanes below `limit`, which is at most 0x80.
inline std::uint64_t Below(std::uint64_t word, unsigned char limit) {
  return (word - kLanes * limit) & ~word & kHighBits;
}

// Marks the lanes from 0x80 up, exactly.
inline std::uint64_t High(std::uint64_t word) {
  return word & kHighBits;
}

// The position of the first byte at or after `pos` that is `a` or `b`; the size when there is
// none.
inline std::size_t FirstOf(std::string_view text, std::size_t pos, char a, char b) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  const auto first = [&](std::size_t at) {
    const std::uint64_t word = WordAt(text.data() + at);
    return Matches(word, a) | Matches(word, b);
  };
  for (; pos + kWord <= text.size(); pos += kWord) {
    if (const std::uint64_t found = first(pos); found != 0) {
      return pos + static_cast<std::size_t>(std::countr_zero(found)) / kWord;
    }
  }
  // The last word ends with the text: when it holds neither byte, the bytes left hold none.
  if (pos < text.size() && text.size() >= kWord && first(text.size() - kWord) == 0) {
    return text.size();
  }
  for (; pos < text.size(); ++pos) {
    if (text[pos] == a || text[pos] == b) return pos;
  }
  return text.size();
}

}  // namespace sched
