#include "store/scl_format.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>

#include "core/byte_lanes.h"
#include "core/codepage.h"

namespace sched {

void ByteReader::PastTheEnd() const {
  throw SclFormatError(pos_, "read past the end of the file");
}

void ByteReader::Seek(std::int64_t offset) {
  if (offset < 0 || offset > Size()) throw SclFormatError(offset, "offset outside the file");
  pos_ = offset;
}

namespace {
std::array<std::uint8_t, 4> LittleEndian(std::int32_t value) {
  const auto bits = static_cast<std::uint32_t>(value);
  return {static_cast<std::uint8_t>(bits & 0xFF), static_cast<std::uint8_t>((bits >> 8) & 0xFF),
          static_cast<std::uint8_t>((bits >> 16) & 0xFF), static_cast<std::uint8_t>(bits >> 24)};
}
}  // namespace

std::uint8_t* ByteWriter::Extend(std::size_t count) {
  const std::size_t at = bytes_.size();
  bytes_.resize(at + count);
  return bytes_.data() + at;
}

void ByteWriter::U16(std::uint16_t value) {
  bytes_.push_back(static_cast<std::uint8_t>(value & 0xFF));
  bytes_.push_back(static_cast<std::uint8_t>(value >> 8));
}

void ByteWriter::I32(std::int32_t value) {
  for (const std::uint8_t byte : LittleEndian(value)) bytes_.push_back(byte);
}

void ByteWriter::PatchI32(std::int32_t offset, std::int32_t value) {
  const auto bytes = LittleEndian(value);
  Patch(offset, bytes);
}

void ByteWriter::Patch(std::int32_t offset, std::span<const std::uint8_t> bytes) {
  if (offset >= handed_) {
    std::copy(bytes.begin(), bytes.end(), bytes_.begin() + (offset - handed_));
  } else if (!sink_->WriteAt(static_cast<std::uint64_t>(offset), bytes)) {
    refused_ = true;
  }
}

void ByteWriter::Spill() {
  constexpr std::size_t kPiece = std::size_t{1} << 20;
  if (sink_ != nullptr && bytes_.size() >= kPiece) HandOn();
}

bool ByteWriter::Finish() {
  if (sink_ != nullptr) HandOn();
  return !refused_;
}

void ByteWriter::HandOn() {
  if (!sink_->Append(bytes_)) refused_ = true;
  handed_ += static_cast<std::int32_t>(bytes_.size());
  bytes_.clear();
}

SclHeader ReadHeader(ByteReader& in) {
  SclHeader header;
  for (char& c : header.Magic) c = static_cast<char>(in.U8());
  header.PrivateCount = in.U16();
  header.WeekHolidayMask = in.U16();
  header.FirstYear = in.I32();
  return header;
}

SclYear ReadYear(ByteReader& in) {
  SclYear year;
  year.Year = in.U16();
  year.Next = in.I32();
  year.FirstMonth = in.I32();
  for (auto& mask : year.HolidayOn) mask = in.I32();
  for (auto& mask : year.HolidayOff) mask = in.I32();
  return year;
}

SclMonth ReadMonth(ByteReader& in) {
  SclMonth month;
  month.Month = in.U16();
  month.Next = in.I32();
  for (auto& head : month.DayHead) head = in.I32();
  month.MultiDayHead = in.I32();
  return month;
}

void ReadRecordFixed(ByteReader& in, SchRecord& record) {
  record.Prev = in.I32();
  record.Next = in.I32();
  record.Day = in.U8();
  record.Month = in.U8();
  record.Year = in.U16();
  record.EndDay = in.U8();
  record.EndMonth = in.U8();
  record.EndYear = in.U16();
  record.StartTime = in.I16();
  record.EndTime = in.I16();
  record.SubNo = in.I16();
  record.Stamp = in.I32();
  record.ParentSubNo = in.I16();
  record.ParentStamp = in.I32();
  record.RepeatKind = in.I16();
  record.Private = in.I16();
  record.VarLen = in.I16();
}

void WriteHeader(ByteWriter& out, const SclHeader& header) {
  for (char c : header.Magic) out.U8(static_cast<std::uint8_t>(c));
  out.U16(header.PrivateCount);
  out.U16(header.WeekHolidayMask);
  out.I32(header.FirstYear);
}

void PatchHeader(ByteWriter& out, const SclHeader& header) {
  ByteWriter head;
  WriteHeader(head, header);
  out.Patch(0, head.Data());
}

void WriteYear(ByteWriter& out, const SclYear& year) {
  out.U16(year.Year);
  out.I32(year.Next);
  out.I32(year.FirstMonth);
  for (auto mask : year.HolidayOn) out.I32(mask);
  for (auto mask : year.HolidayOff) out.I32(mask);
}

void WriteMonth(ByteWriter& out, const SclMonth& month) {
  out.U16(month.Month);
  out.I32(month.Next);
  for (auto head : month.DayHead) out.I32(head);
  out.I32(month.MultiDayHead);
}

void WriteRecord(ByteWriter& out, const SchRecord& record) {
  WriteRecord(out, record, {record.Title, record.Place, record.Memo, record.AlarmSound});
}

void WriteRecord(ByteWriter& out, const SchRecord& record, const RowTexts& texts) {
  const bool alarm = record.AlarmOn == 1;
  const std::string_view sound = texts.AlarmSound.substr(0, kAlarmSoundBytes);
  const std::size_t size = kRecordFixedSize + 2 + texts.Title.size() + 2 + texts.Place.size() + 2 +
                           texts.Memo.size() + 2 + (alarm ? kAlarmSoundBytes + 2 : 0);
  // The whole record is put in place at once.
  std::uint8_t* to = out.Extend(size);
  const auto put = [&to](auto value) {
    const auto bits = static_cast<std::uint32_t>(value);
    for (std::size_t i = 0; i < sizeof value; ++i)
      *to++ = static_cast<std::uint8_t>(bits >> (8 * i));
  };
  const auto text = [&](std::string_view bytes) {
    put(static_cast<std::uint16_t>(bytes.size()));
    if (bytes.empty()) return;
    std::memcpy(to, bytes.data(), bytes.size());
    to += bytes.size();
  };
  put(record.Prev);
  put(record.Next);
  put(record.Day);
  put(record.Month);
  put(record.Year);
  put(record.EndDay);
  put(record.EndMonth);
  put(record.EndYear);
  put(record.StartTime);
  put(record.EndTime);
  put(record.SubNo);
  put(record.Stamp);
  put(record.ParentSubNo);
  put(record.ParentStamp);
  put(record.RepeatKind);
  put(record.Private);
  put(record.VarLen);
  text(texts.Title);
  text(texts.Place);
  text(texts.Memo);
  put(static_cast<std::uint16_t>(record.AlarmOn));
  if (alarm) {
    // The sound's name fills its field, zeros behind it.
    std::memset(to, 0, kAlarmSoundBytes);
    if (!sound.empty()) std::memcpy(to, sound.data(), sound.size());
    to += kAlarmSoundBytes;
    put(static_cast<std::uint16_t>(record.AlarmLead));
  }
}

std::optional<std::int16_t> ReadPrivateLevel(const std::string& systemIniPath) {
  std::ifstream in(systemIniPath, std::ios::binary);
  if (!in) return std::nullopt;
  // A shorter file reads as zeros where its bytes end.
  std::array<unsigned char, 8> block{};
  in.read(reinterpret_cast<char*>(block.data()), static_cast<std::streamsize>(block.size()));
  return static_cast<std::int16_t>(block[6] | block[7] << 8);
}

std::optional<FileBytes> ReadWholeFile(const std::string& path, std::string* why) {
  const auto fail = [why](std::string reason) -> std::optional<FileBytes> {
    if (why != nullptr) *why = std::move(reason);
    return std::nullopt;
  };
  const auto systemWords = [] { return std::generic_category().message(errno); };
  // A folder opens as a stream, but has no bytes to read.
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) {
    return fail(std::generic_category().message(EISDIR));
  }
  errno = 0;
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  if (!in) return fail(errno != 0 ? systemWords() : "cannot be opened");
  const std::streamoff size = in.tellg();
  if (size < 0) return fail("cannot be read");
  if (size > std::numeric_limits<std::int32_t>::max()) return fail("too large for a schedule file");
  FileBytes bytes{std::make_unique_for_overwrite<std::uint8_t[]>(static_cast<std::size_t>(size)),
                  static_cast<std::size_t>(size)};
  in.seekg(0);
  if (!in.read(reinterpret_cast<char*>(bytes.data.get()), size)) {
    return fail(errno != 0 ? systemWords() : "cannot be read");
  }
  return bytes;
}

std::int16_t VariablePartLength(std::size_t textBytes, int alarmOn) {
  return static_cast<std::int16_t>(textBytes + 8 + (alarmOn == 1 ? 10 : 0));
}

std::int16_t VarLenOf(const SchRecord& record, CodePage page) {
  return VarLenOf({record.Title, record.Place, record.Memo, record.AlarmSound}, record.AlarmOn,
                  page);
}

std::int16_t VarLenOf(const RowTexts& texts, int alarmOn, CodePage page) {
  // The file's memo leaves out its CRs, one byte each in either code page; a memo holds few.
  const std::string_view memo = texts.Memo;
  std::size_t returns = 0;
  for (std::size_t at = FirstOf(memo, 0, '\r', '\r'); at < memo.size();
       at = FirstOf(memo, at + 1, '\r', '\r')) {
    ++returns;
  }
  const std::size_t textBytes = ByteLength(texts.Title, page) + ByteLength(texts.Place, page) +
                                ByteLength(texts.Memo, page) - returns;
  return VariablePartLength(textBytes, alarmOn);
}

}  // namespace sched
