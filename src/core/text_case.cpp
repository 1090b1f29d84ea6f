#include "core/text_case.h"

#include <algorithm>

namespace sched {
namespace {

constexpr char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char UpperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerAscii);
  return lower;
}

std::string ToUpperAscii(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), UpperAscii);
  return upper;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

// Bytes compare unsigned, as std::string orders them.
bool LessIgnoringCase(std::string_view a, std::string_view b) {
  const bool less =
      std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return static_cast<unsigned char>(LowerAscii(x)) <
               static_cast<unsigned char>(LowerAscii(y));
      });
  if (less || !EqualsIgnoringCase(a, b)) return less;
  return a < b;
}

std::string_view Trim(std::string_view text, std::string_view blanks) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(blanks);
  return text.substr(first, last - first + 1);
}

}  // namespace sched
