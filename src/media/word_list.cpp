#include "media/word_list.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/std/safe_file.h"
#include "shell/folder_case.h"

namespace sched {
namespace {

constexpr const char* kWordListFolder = "userdata/ini";
constexpr const char* kDeviceLocation = "Tarvex:";

std::optional<WordListEntry> EntryOf(int number) {
  const int index = number >= kDeviceListBase ? number - kDeviceListBase : number;
  if (index < 0 || index >= kWordListCount) return std::nullopt;
  return WordListTable()[static_cast<std::size_t>(index)];
}

}  // namespace

const std::array<WordListEntry, kWordListCount>& WordListTable() {
  static const std::array<WordListEntry, kWordListCount> table{{
      {"SUBJECT.INI", "Word List of Standard"},
      {"SCHSBJC2.INI", "Word List of Scheduler(Title)"},
      {"OFCSBJC2.INI", "Word List of AddressBook(Company)"},
      {"SECSBJC2.INI", "Word List of AddressBook(Title)"},
      {"ADRSBJC2.INI", "Word List of AddressBook(Address)"},
      {"TDOSBJC2.INI", "Word List of To Do List(Title)"},
      {"DFMSBJC2.INI", "Word List of Notepad"},
      {"PLCSBJC2.INI", "Word List of Scheduler(Place)"},
      {"NAMSBJC2.INI", "Word List of AddressBook(Name)"},
      {"EMLSBJC2.INI", "Word List of AddressBook(E-mail)"},
      {"MEMSBJC2.INI", "Word List of Memo(Title)"},
  }};
  return table;
}

std::string WordListTitle(int number) {
  const std::optional<WordListEntry> entry = EntryOf(number);
  if (!entry) return {};
  return (number >= kDeviceListBase ? kDeviceLocation : "") + std::string(entry->title);
}

std::string WordListPath(const std::string& installDir, int number) {
  const std::optional<WordListEntry> entry = EntryOf(number);
  if (!entry) return {};
  return ResolveIgnoringCase(installDir, std::string(kWordListFolder) + "/" + entry->file).string();
}

std::vector<std::string> WordsOfBytes(std::string_view bytes, CodePage page) {
  std::vector<std::string> words;
  for (std::size_t at = 0; at < bytes.size(); at += kWordBytes) {
    std::string_view record = bytes.substr(at, kWordBytes);
    record = record.substr(0, record.find('\0'));
    words.push_back(ToUtf8(record, page));
  }
  return words;
}

std::optional<std::vector<std::string>> LoadWordList(const std::string& path, CodePage page) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return WordsOfBytes(bytes, page);
}

std::vector<std::uint8_t> WordListBytes(const std::vector<std::string>& words, CodePage page) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(words.size() * kWordBytes);
  for (const std::string& word : words) {
    const std::string record = ToCodePage(word, page);
    const std::size_t kept = FittingBytes(record, kWordBytes, page);
    bytes.insert(bytes.end(), record.begin(), record.begin() + static_cast<std::ptrdiff_t>(kept));
    bytes.insert(bytes.end(), kWordBytes - kept, 0);
  }
  return bytes;
}

bool SaveWordList(const std::string& path, const std::vector<std::string>& words, CodePage page) {
  return WriteFileSafely(path, WordListBytes(words, page));
}

}  // namespace sched
