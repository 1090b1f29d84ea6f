#include "link/ics_link_component.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "link/ics_export.h"
#include "link/ics_import.h"
#include "link/link_records.h"
#include "platform/std/safe_file.h"
#include "store/scl_format.h"
#include "store/stamp.h"

namespace sched {
namespace {

std::optional<std::string> ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

bool WriteText(const std::string& path, std::string_view text) {
  return WriteFileSafely(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

}  // namespace

DateTime UtcNow() {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
  gmtime_r(&now, &utc);
  return {utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec};
}

bool IcsLinkComponent::Export(std::span<const std::uint8_t> linkFile) {
  const std::string calendarPath = s_.calendarPath();
  std::error_code error;
  const std::optional<std::string> existing =
      std::filesystem::exists(calendarPath, error) ? ReadText(calendarPath) : std::string();
  if (!existing) return false;
  const std::optional<std::string> calendar =
      MergeIntoCalendar(ReadExportRecords(linkFile, s_.codePage()).records, *existing, UtcNow());
  return calendar && WriteText(calendarPath, *calendar);
}

std::optional<std::vector<std::uint8_t>> ImportFileOfCalendar(std::string_view ics,
                                                              const Clock& clock, CodePage page) {
  const DateTime now = clock.Now();
  const auto records = RecordsOfCalendar(ics, {now.year, now.month, now.day}, StampOf(now));
  if (!records) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  for (const SchRecord& r : *records) {
    const std::vector<std::uint8_t> record = ImportRecordBytes(r, page);
    bytes.insert(bytes.end(), record.begin(), record.end());
  }
  return bytes;
}

std::optional<std::vector<std::uint8_t>> IcsLinkComponent::Import() {
  const std::optional<std::string> text = ReadText(s_.calendarPath());
  if (!text) return std::nullopt;
  return ImportFileOfCalendar(*text, s_.clock, s_.codePage());
}

}  // namespace sched
