#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace sched {

// The conversion tables of Shift-JIS as the Windows code page 932 has it, taken once from the
// C library's converter. A character is held for decoding as its UTF-8 bytes, packed: the bytes
// in the low three bytes, first byte lowest, and their count in the top byte.
class ShiftJisTables {
 public:
  static const ShiftJisTables& Get();

  bool Available() const { return available_; }

  static bool IsLead(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  }
  static bool IsTrail(unsigned char byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }

  // The character of a byte that is no lead byte, packed.
  std::uint32_t Single(unsigned char byte) const { return single_[byte]; }
  // The character of a lead and a trail byte, packed; 0 when the code page assigns none.
  std::uint32_t Pair(unsigned char lead, unsigned char trail) const {
    return pairs_[PairIndex(lead, trail)];
  }
  // The bytes of a character from U+0080 up: a single byte below 0x100, else lead * 256 +
  // trail; 0 when the code page has no form for it.
  std::uint16_t Encode(char32_t cp) const { return cp < encode_.size() ? encode_[cp] : 0; }

 private:
  ShiftJisTables();
  static std::size_t PairIndex(unsigned char lead, unsigned char trail) {
    const unsigned leadIndex = lead < 0xA0 ? lead - 0x81u : lead - 0xE0u + 31u;
    return leadIndex * kTrails + (trail - 0x40u);
  }
  void AddEncoding(char32_t cp, std::uint16_t bytes);

  static constexpr std::size_t kLeads = 60;
  static constexpr std::size_t kTrails = 0xFD - 0x40;

  bool available_ = false;
  std::array<std::uint32_t, 256> single_{};
  std::vector<std::uint32_t> pairs_;
  std::vector<std::uint16_t> encode_;
};

// A character of the Basic Multilingual Plane as its UTF-8 bytes, packed.
std::uint32_t PackUtf8(char32_t cp);

}  // namespace sched
