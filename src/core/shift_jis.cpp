#include "core/shift_jis.h"

#include <iconv.h>

#include <array>
#include <cwchar>
#include <string>

#include "core/utf8.h"

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

// The character of a byte from 0x80 up that is no lead byte: the half-width katakana, and the
// five bytes left over, as the Windows code page reads them.
char32_t SingleByteCharacter(unsigned byte) {
  if (byte >= 0xA1 && byte <= 0xDF) return 0xFF61 + (byte - 0xA1u);
  if (byte == 0xA0) return 0xF8F0;
  if (byte >= 0xFD) return 0xF8F1 + (byte - 0xFDu);
  return byte;  // 0x80
}

}  // namespace

std::uint32_t PackUtf8(char32_t cp) {
  std::string bytes;
  AppendUtf8(bytes, cp);
  std::uint32_t packed = static_cast<std::uint32_t>(bytes.size()) << 24;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    packed |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  }
  return packed;
}

const ShiftJisTables& ShiftJisTables::Get() {
  static const ShiftJisTables tables;
  return tables;
}

ShiftJisTables::ShiftJisTables() : pairs_(kLeads * kTrails), encode_(0x10000) {
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    if (IsLead(static_cast<unsigned char>(byte))) continue;
    const char32_t cp = byte < 0x80 ? byte : SingleByteCharacter(byte);
    single_[byte] = PackUtf8(cp);
    if (byte >= 0x80) AddEncoding(cp, static_cast<std::uint16_t>(byte));
  }
  const iconv_t converter = iconv_open("WCHAR_T", "CP932");
  if (converter == reinterpret_cast<iconv_t>(-1)) return;
  available_ = true;
  for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
    if (!IsLead(static_cast<unsigned char>(lead))) continue;
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      const auto l = static_cast<unsigned char>(lead);
      const auto t = static_cast<unsigned char>(trail);
      if (!IsTrail(t)) continue;
      const char32_t cp = ConvertPair(converter, l, t);
      if (cp == 0) continue;
      pairs_[PairIndex(l, t)] = PackUtf8(cp);
      AddEncoding(cp, static_cast<std::uint16_t>(lead << 8 | trail));
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
