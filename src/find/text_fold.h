#pragma once

#include <string>
#include <string_view>

namespace sched {

// The form in which texts are compared by the search: case folded, accents and other
// combining marks taken off ("Café" and "CAFE" both give "cafe", "Straße" gives "strasse"),
// full-width forms made plain ("ＣＡＦＥ" gives "cafe"), and the Latin letters with a stroke or
// ligature made plain ("Øresund" gives "oresund").
// The text is UTF-8; bytes that are no UTF-8 fold as the replacement character. Control
// characters, line breaks among them, stay as they are.
std::string FoldForSearch(std::string_view text);

}  // namespace sched
