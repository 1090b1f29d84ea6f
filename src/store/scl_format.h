#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/codepage.h"
#include "platform/std/safe_file.h"
#include "store/sch_record.h"
#include "store/text_arena.h"

namespace sched {

// The bytes of a schedule file: little-endian, packed, offsets from the start of the file,
// -1 for none, 8-bit text behind a 16-bit byte count.
inline constexpr std::array<char, 4> kSclMagic = {'Q', '3', '9', 'E'};
// Whether the bytes begin as a schedule file does.
inline bool HasSclMagic(std::span<const std::uint8_t> bytes) {
  return bytes.size() >= kSclMagic.size() &&
         std::equal(kSclMagic.begin(), kSclMagic.end(), bytes.begin(),
                    [](char magic, std::uint8_t byte) {
                      return static_cast<std::uint8_t>(magic) == byte;
                    });
}
inline constexpr std::int32_t kHeaderSize = 12;
inline constexpr std::int32_t kYearSize = 106;
inline constexpr std::int32_t kMonthSize = 134;
inline constexpr std::int32_t kRecordFixedSize = 38;
inline constexpr std::size_t kAlarmSoundBytes = 8;

struct SclHeader {
  std::array<char, 4> Magic = kSclMagic;
  std::uint16_t PrivateCount = 0;
  std::uint16_t WeekHolidayMask = 1;
  std::int32_t FirstYear = -1;
  bool operator==(const SclHeader&) const = default;
};

struct SclYear {
  std::uint16_t Year = 0;
  std::int32_t Next = -1;
  std::int32_t FirstMonth = -1;
  std::array<std::int32_t, 12> HolidayOn{};
  std::array<std::int32_t, 12> HolidayOff{};
};

struct SclMonth {
  std::uint16_t Month = 0;
  std::int32_t Next = -1;
  std::array<std::int32_t, 31> DayHead{};
  std::int32_t MultiDayHead = -1;
};

// Thrown by the reader at anything a schedule file cannot hold, with the byte of the file where
// the fault was found; the loader turns it into its one failure path.
class SclFormatError : public std::runtime_error {
 public:
  SclFormatError(std::int64_t offset, const std::string& what)
      : std::runtime_error(what), offset_(offset) {}
  std::int64_t Offset() const { return offset_; }

 private:
  std::int64_t offset_;
};

// Why a schedule file did not load: the byte where the fault was found and what it was, or -1
// and the system's words when the file could not be read at all.
struct SclLoadError {
  std::int64_t offset = -1;
  std::string what;
};

// What a load gives: true, or false with the reason.
struct [[nodiscard]] SclLoadResult {
  std::optional<SclLoadError> error;
  explicit operator bool() const { return !error; }
};

// Reads little-endian values from a file held in memory; every read is checked against the end.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  void Seek(std::int64_t offset);
  std::int64_t Position() const { return pos_; }
  std::int64_t Size() const { return static_cast<std::int64_t>(bytes_.size()); }
  // The readers are inline: a load reads some twenty values a record.
  std::uint8_t U8() {
    Need(1);
    return bytes_[static_cast<std::size_t>(pos_++)];
  }
  std::uint16_t U16() {
    Need(2);
    const auto at = static_cast<std::size_t>(pos_);
    pos_ += 2;
    return static_cast<std::uint16_t>(bytes_[at] | bytes_[at + 1] << 8);
  }
  std::int16_t I16() { return static_cast<std::int16_t>(U16()); }
  std::int32_t I32() {
    Need(4);
    const auto at = static_cast<std::size_t>(pos_);
    pos_ += 4;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(bytes_[at]) |
                                     static_cast<std::uint32_t>(bytes_[at + 1]) << 8 |
                                     static_cast<std::uint32_t>(bytes_[at + 2]) << 16 |
                                     static_cast<std::uint32_t>(bytes_[at + 3]) << 24);
  }
  // The next `count` bytes, valid while the file's bytes are.
  std::string_view Bytes(std::size_t count) {
    Need(count);
    const auto* at = reinterpret_cast<const char*>(bytes_.data()) + pos_;
    pos_ += static_cast<std::int64_t>(count);
    return {at, count};
  }

 private:
  void Need(std::size_t count) const {
    if (pos_ < 0 || static_cast<std::uint64_t>(pos_) + count > bytes_.size()) PastTheEnd();
  }
  [[noreturn]] void PastTheEnd() const;
  std::span<const std::uint8_t> bytes_;
  std::int64_t pos_ = 0;
};

// Builds a file in memory, or hands it on to a sink in pieces; links are patched in place once
// their target is known.
class ByteWriter {
 public:
  ByteWriter() = default;
  // The bytes go on to `sink` whenever a piece is full and the writer is told to Spill.
  explicit ByteWriter(FileSink& sink) : sink_(&sink) {}

  // Room for `size` bytes, so that the buffer is placed once.
  void Reserve(std::size_t size) { bytes_.reserve(size); }
  std::int32_t Position() const { return handed_ + static_cast<std::int32_t>(bytes_.size()); }
  void U8(std::uint8_t value) { bytes_.push_back(value); }
  void U16(std::uint16_t value);
  void I16(std::int16_t value) { U16(static_cast<std::uint16_t>(value)); }
  void I32(std::int32_t value);
  void Bytes(std::string_view bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }
  // Room for `count` more bytes at the end, for the caller to fill.
  std::uint8_t* Extend(std::size_t count);
  void PatchI32(std::int32_t offset, std::int32_t value);
  void Patch(std::int32_t offset, std::span<const std::uint8_t> bytes);
  const std::vector<std::uint8_t>& Data() const { return bytes_; }
  // Hands the bytes over, leaving the writer empty.
  std::vector<std::uint8_t> Take() { return std::move(bytes_); }

  // With a sink, hands on the bytes made so far once they fill a piece. Called between parts,
  // so that a part patched later lies either wholly handed on or wholly in memory.
  void Spill();
  // With a sink, hands on the rest; false when the sink refused any bytes.
  [[nodiscard]] bool Finish();

 private:
  void HandOn();

  std::vector<std::uint8_t> bytes_;
  FileSink* sink_ = nullptr;
  std::int32_t handed_ = 0;  // bytes handed on to the sink
  bool refused_ = false;
};

SclHeader ReadHeader(ByteReader& in);
SclYear ReadYear(ByteReader& in);
SclMonth ReadMonth(ByteReader& in);
// The fixed part (kRecordFixedSize bytes) into the fixed fields of `record`.
void ReadRecordFixed(ByteReader& in, SchRecord& record);

void WriteHeader(ByteWriter& out, const SclHeader& header);
// Writes the header over the first kHeaderSize bytes.
void PatchHeader(ByteWriter& out, const SclHeader& header);
void WriteYear(ByteWriter& out, const SclYear& year);
void WriteMonth(ByteWriter& out, const SclMonth& month);
// The fixed part and the variable part; the texts of `record` are already 8-bit and their
// line ends LF alone.
void WriteRecord(ByteWriter& out, const SchRecord& record);
// The same with the texts in that form given apart, the texts of `record` unused; a sound
// name is cut to its field.
void WriteRecord(ByteWriter& out, const SchRecord& record, const RowTexts& texts);

// VarLen: the bytes of a record's variable part, that is its three texts' bytes, 8 for their
// counts and the alarm flag, and 10 more for the sound and the lead when the alarm is 1.
std::int16_t VariablePartLength(std::size_t textBytes, int alarmOn);
// The same for a record as memory holds it: the texts counted in their 8-bit form of `page`,
// the memo without the carriage returns the file leaves out.
std::int16_t VarLenOf(const SchRecord& record, CodePage page);
// The same for the texts of a record given apart, and its alarm flag.
std::int16_t VarLenOf(const RowTexts& texts, int alarmOn, CodePage page);

// Offsets of the links inside the parts, for patching.
inline constexpr std::int32_t kYearNextOffset = 2;
inline constexpr std::int32_t kMonthNextOffset = 2;
inline constexpr std::int32_t kRecordNextOffset = 4;
// Where a month's 31 day heads begin, after its number and link.
inline constexpr std::int32_t kMonthDayHeadOffset = 6;

// The private level kept in the device's System.ini (a 16-bit value at byte 6); nothing when
// the file cannot be read.
std::optional<std::int16_t> ReadPrivateLevel(const std::string& systemIniPath);

// The bytes of a whole file.
struct FileBytes {
  std::unique_ptr<std::uint8_t[]> data;
  std::size_t size = 0;
  std::span<const std::uint8_t> Span() const { return {data.get(), size}; }
};

// Reads a whole file into a buffer that is not filled beforehand; nothing when it cannot be
// opened or read, with the system's words for why in `why` when one is given.
std::optional<FileBytes> ReadWholeFile(const std::string& path, std::string* why = nullptr);

}  // namespace sched
