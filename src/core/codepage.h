#pragma once

#include <string>
#include <string_view>

namespace sched {

// The 8-bit text of the device's files is Windows-1252; in memory text is UTF-8.

// True when every byte is below 0x80: such text reads the same in both encodings.
bool IsAscii(std::string_view text);

// Every byte maps to a character; the five unassigned bytes keep their C1 control code points.
std::string Cp1252ToUtf8(std::string_view bytes);

// Characters without a Windows-1252 byte, and malformed UTF-8, become '?'.
std::string Utf8ToCp1252(std::string_view text);

// Bytes that `text` takes in its 8-bit form.
std::size_t Cp1252Length(std::string_view text);

}  // namespace sched
