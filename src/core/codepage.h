#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace sched {

// The 8-bit code page of the device's files; in memory text is UTF-8. Western is Windows-1252,
// Japanese is Shift-JIS as the Windows code page 932 has it, with the NEC and IBM extensions.
enum class CodePage { kWestern = 1252, kJapanese = 932 };

// The code page of that number (1252 or 932); nothing for another.
std::optional<CodePage> CodePageOfNumber(int number);

// False when the C library cannot convert Shift-JIS: its conversion modules are missing.
bool ShiftJisAvailable();

// True when every byte is below 0x80: such text reads the same in every code page.
bool IsAscii(std::string_view text);

// The 8-bit text as UTF-8. Every byte of Windows-1252 maps to a character, its five unassigned
// bytes to their C1 control code points. In Shift-JIS a lead byte without its trail byte, or a
// pair the code page does not assign, becomes U+FFFD.
std::string ToUtf8(std::string_view bytes, CodePage page);
// The same, added at the end of `text`.
void AppendToUtf8(std::string& text, std::string_view bytes, CodePage page);

// The 8-bit form of UTF-8 text; characters the code page lacks, and malformed UTF-8, become '?'.
std::string ToCodePage(std::string_view text, CodePage page);
// The same written at `to`, which has room for as many bytes as the text has, since no
// character takes more bytes in the 8-bit form than in UTF-8; gives the end of what it wrote.
char* WriteCodePage(std::string_view text, CodePage page, char* to);

// The character of UTF-8 `text` at `pos`, which is not ASCII, written at `to` in its 8-bit form
// as WriteCodePage writes it; moves `pos` behind it and gives the end of what it wrote.
char* WriteCodePageCharacter(std::string_view text, std::size_t& pos, CodePage page, char* to);

// Bytes that `text` takes in its 8-bit form: a double-byte character counts 2.
std::size_t ByteLength(std::string_view text, CodePage page);

// The length of the longest head of the 8-bit `bytes` that takes at most `limit` bytes and ends
// between two characters: a cut never splits a double-byte character.
std::size_t FittingBytes(std::string_view bytes, std::size_t limit, CodePage page);

}  // namespace sched
