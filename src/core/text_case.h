#pragma once

#include <string>
#include <string_view>

namespace sched {

// Case folding of ASCII letters only: bytes of other scripts and code pages stay as they are,
// whatever the locale.

std::string ToLowerAscii(std::string_view text);
std::string ToUpperAscii(std::string_view text);

// The text without the blanks at its ends.
std::string_view Trim(std::string_view text, std::string_view blanks = " \t");

// True when the two texts are equal but for the case of ASCII letters.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// The order of a file list: by the texts' lower-case forms, and texts that differ only in case
// by their bytes, so that the order is total.
bool LessIgnoringCase(std::string_view a, std::string_view b);

}  // namespace sched
