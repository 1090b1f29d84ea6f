#include "find/text_fold.h"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <string>

namespace sched {
namespace {

bool IsAsciiText(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Runs one of ICU's string conversions, with room enough the second time when the first was
// too small.
template <typename Out, typename Convert>
Out Converted(std::size_t guess, Convert convert) {
  Out out(guess, typename Out::value_type{});
  UErrorCode status = U_ZERO_ERROR;
  int32_t length = convert(out.data(), static_cast<int32_t>(out.size()), &status);
  if (status == U_BUFFER_OVERFLOW_ERROR) {
    out.assign(static_cast<std::size_t>(length), typename Out::value_type{});
    status = U_ZERO_ERROR;
    length = convert(out.data(), static_cast<int32_t>(out.size()), &status);
  }
  out.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
  return out;
}

// Letters of Latin scripts that carry their stroke or ligature within them, so that no
// decomposition takes it off: what a user types for them.
const char16_t* PlainLetters(UChar32 c) {
  switch (c) {
    case u'ø': return u"o";
    case u'æ': return u"ae";
    case u'œ': return u"oe";
    case u'ł': return u"l";
    case u'đ': return u"d";
    case u'ħ': return u"h";
    case u'ı': return u"i";
    case u'ŧ': return u"t";
    case u'þ': return u"th";
    default: return nullptr;
  }
}

}  // namespace

std::string FoldForSearch(std::string_view text) {
  if (IsAsciiText(text)) {
    std::string folded(text);
    for (char& c : folded) {
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return folded;
  }
  const auto utf16 =
      Converted<std::u16string>(text.size(), [&](UChar* to, int32_t room, UErrorCode* status) {
        int32_t length = 0;
        u_strFromUTF8WithSub(to, room, &length, text.data(), static_cast<int32_t>(text.size()),
                             0xFFFD, nullptr, status);
        return length;
      });
  const auto length = static_cast<int32_t>(utf16.size());
  const auto cased =
      Converted<std::u16string>(utf16.size() + 8, [&](UChar* to, int32_t room, UErrorCode* status) {
        return u_strFoldCase(to, room, utf16.data(), length, U_FOLD_CASE_DEFAULT, status);
      });
  UErrorCode status = U_ZERO_ERROR;
  // The compatibility decomposition also makes full-width and half-width forms and ligatures
  // ("ﬁ") the letters they stand for.
  const UNormalizer2* nfkd = unorm2_getNFKDInstance(&status);
  if (U_FAILURE(status)) return std::string(text);
  const auto decomposed = Converted<std::u16string>(
      cased.size() * 2 + 8, [&](UChar* to, int32_t room, UErrorCode* error) {
        return unorm2_normalize(nfkd, cased.data(), static_cast<int32_t>(cased.size()), to, room,
                                error);
      });
  // Off with the marks that the decomposition took off their letters.
  std::u16string bare;
  bare.reserve(decomposed.size());
  const auto size = static_cast<int32_t>(decomposed.size());
  for (int32_t at = 0; at < size;) {
    const int32_t start = at;
    UChar32 c = 0;
    U16_NEXT(decomposed.data(), at, size, c);
    if (u_charType(c) == U_NON_SPACING_MARK) continue;
    if (const char16_t* plain = PlainLetters(c)) {
      bare += plain;
    } else {
      bare.append(decomposed, start, at - start);
    }
  }
  return Converted<std::string>(bare.size() * 3, [&](char* to, int32_t room, UErrorCode* error) {
    int32_t written = 0;
    u_strToUTF8(to, room, &written, bare.data(), static_cast<int32_t>(bare.size()), error);
    return written;
  });
}

}  // namespace sched
