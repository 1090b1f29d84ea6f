#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/codepage.h"

namespace sched {

// A word list file is a row of records of 22 bytes, one word each in the 8-bit code page,
// padded with bytes of 0; it has no header and no count.
inline constexpr std::size_t kWordBytes = 22;
inline constexpr int kWordListCount = 11;
// Numbers from 100 on name the same lists as kept on the organiser.
inline constexpr int kDeviceListBase = 100;
inline constexpr int kTitleWordList = 1;
inline constexpr int kPlaceWordList = 7;

struct WordListEntry {
  const char* file;
  const char* title;
};

// The lists by number: each one's file in the install folder's "userdata/ini" and its title.
const std::array<WordListEntry, kWordListCount>& WordListTable();

// The list's title, with "Tarvex:" in front for numbers of 100 and above; "" for a number that
// names no list.
std::string WordListTitle(int number);
// The list's file in the installation; "" for a number that names no list.
std::string WordListPath(const std::string& installDir, int number);

// The words of a list's bytes: every 22 bytes make one word, a shorter last record as it is.
// A word ends at its first byte of 0; blanks stay as they are.
std::vector<std::string> WordsOfBytes(std::string_view bytes, CodePage page);
// The words of the file at `path`; nothing when it does not exist or cannot be read.
std::optional<std::vector<std::string>> LoadWordList(const std::string& path, CodePage page);

// The file's bytes for `words`, each cut to 22 bytes between two characters.
std::vector<std::uint8_t> WordListBytes(const std::vector<std::string>& words, CodePage page);
// Writes the list so that the old file stays whole until the new one is; false on failure.
bool SaveWordList(const std::string& path, const std::vector<std::string>& words, CodePage page);

}  // namespace sched
