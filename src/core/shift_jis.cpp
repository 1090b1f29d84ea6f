#include "core/shift_jis.h"

#include <iconv.h>

#include <array>
#include <cwchar>

namespace sched {
namespace {

// Leads of the NEC selection of IBM extensions: each of their characters also has a pair in
// the IBM extensions, and the code page writes that pair.
bool IsNecSelectedIbm(unsigned lead) {
  return lead == 0xED || lead == 0xEE;
}

// The one character that the converter makes of a pair; 0 when it refuses the pair.
char32_t ConvertPair(iconv_t converter, unsigned char lead, unsigned char trail) {
  std::array<char, 2> in{static_cast<char>(lead), static_cast<char>(trail)};
  std::array<wchar_t, 2> out{};
  char* inPos = in.data();
  std::size_t inLeft = in.size();
  char* outPos = reinterpret_cast<char*>(out.data());
  std::size_t outLeft = sizeof(out);
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  if (iconv(converter, &inPos, &inLeft, &outPos, &outLeft) == static_cast<std::size_t>(-1) ||
      inLeft != 0 || outLeft != sizeof(out) - sizeof(wchar_t) || out[0] > 0xFFFF) {
    return 0;
  }
  return static_cast<char32_t>(out[0]);
}

}  // namespace

char32_t ShiftJisTables::SingleByte(unsigned char byte) {
  if (byte >= 0xA1 && byte <= 0xDF) return 0xFF61 + (byte - 0xA1u);  // half-width katakana
  if (byte == 0xA0) return 0xF8F0;
  if (byte >= 0xFD) return 0xF8F1 + (byte - 0xFDu);
  return byte;  // 0x80
}

const ShiftJisTables& ShiftJisTables::Get() {
  static const ShiftJisTables tables;
  return tables;
}

ShiftJisTables::ShiftJisTables() : decode_(kLeads * kTrails), encode_(0x10000) {
  for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
    if (!IsLead(static_cast<unsigned char>(byte))) {
      AddEncoding(SingleByte(static_cast<unsigned char>(byte)), static_cast<std::uint16_t>(byte));
    }
  }
  const iconv_t converter = iconv_open("WCHAR_T", "CP932");
  if (converter == reinterpret_cast<iconv_t>(-1)) return;
  available_ = true;
  for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
    if (!IsLead(static_cast<unsigned char>(lead))) continue;
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      if (!IsTrail(static_cast<unsigned char>(trail))) continue;
      const auto l = static_cast<unsigned char>(lead);
      const auto t = static_cast<unsigned char>(trail);
      const char32_t cp = ConvertPair(converter, l, t);
      decode_[PairIndex(l, t)] = static_cast<char16_t>(cp);
      if (cp != 0) AddEncoding(cp, static_cast<std::uint16_t>(lead << 8 | trail));
    }
  }
  iconv_close(converter);
}

// A character with several pairs is written with the first, in the order of the bytes, that
// is not of the NEC selection of IBM extensions.
void ShiftJisTables::AddEncoding(char32_t cp, std::uint16_t bytes) {
  std::uint16_t& known = encode_[cp];
  if (known == 0 || (IsNecSelectedIbm(known >> 8) && !IsNecSelectedIbm(bytes >> 8u))) {
    known = bytes;
  }
}

}  // namespace sched
