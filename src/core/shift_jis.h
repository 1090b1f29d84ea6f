#pragma once

#include <cstdint>
#include <vector>

namespace sched {

// The conversion tables of Shift-JIS as the Windows code page 932 has it, taken once from the
// C library's converter.
class ShiftJisTables {
 public:
  static const ShiftJisTables& Get();

  bool Available() const { return available_; }

  static bool IsLead(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  }
  static bool IsTrail(unsigned char byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }
  // The character of a single byte from 0x80 up that is no lead byte.
  static char32_t SingleByte(unsigned char byte);

  // The character of a lead and a trail byte; 0 when the code page assigns the pair none.
  char32_t Pair(unsigned char lead, unsigned char trail) const {
    return decode_[PairIndex(lead, trail)];
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
  std::vector<char16_t> decode_;
  std::vector<std::uint16_t> encode_;
};

}  // namespace sched
