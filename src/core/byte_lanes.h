#pragma once

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

}  // namespace sched
