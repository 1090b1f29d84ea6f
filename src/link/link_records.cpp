#include "link/link_records.h"

#include <algorithm>
#include <limits>
#include <string>

#include "core/calendar.h"
#include "store/scl_format.h"

namespace sched {
namespace {

// Bytes of the fixed parts behind the record's count.
constexpr std::size_t kExportFixed = 32;
constexpr std::size_t kImportFixed = 30;
constexpr std::size_t kMostRecordBytes = std::numeric_limits<std::uint16_t>::max();

// The 8-bit forms of the texts, cut so that the record's count holds them: the last text gives
// way first.
std::vector<std::string> RecordTexts(std::vector<const std::string*> texts, std::size_t fixed,
                                     CodePage page) {
  std::vector<std::string> bytes;
  std::size_t room = kMostRecordBytes - fixed - 2 * texts.size();
  for (const std::string* text : texts) bytes.push_back(ToCodePage(*text, page));
  std::size_t total = 0;
  for (const std::string& b : bytes) total += b.size();
  for (auto b = bytes.rbegin(); b != bytes.rend() && total > room; ++b) {
    const std::size_t keep = FittingBytes(*b, b->size() - std::min(b->size(), total - room), page);
    total -= b->size() - keep;
    b->resize(keep);
  }
  return bytes;
}

void WriteTexts(ByteWriter& out, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    out.U16(static_cast<std::uint16_t>(text.size()));
    out.Bytes(text);
  }
}

std::uint16_t RecordLength(std::size_t fixed, const std::vector<std::string>& texts) {
  std::size_t length = fixed;
  for (const std::string& text : texts) length += 2 + text.size();
  return static_cast<std::uint16_t>(length);
}

void WriteDate(ByteWriter& out, int day, int month, int year) {
  out.U8(static_cast<std::uint8_t>(day));
  out.U8(static_cast<std::uint8_t>(month));
  out.I16(static_cast<std::int16_t>(year));
}

void ReadDate(ByteReader& in, std::uint8_t& day, std::uint8_t& month, std::uint16_t& year) {
  day = in.U8();
  month = in.U8();
  year = in.U16();
}

// Reads records of one form until the bytes end; `read` reads one record's fields from a
// reader over that record alone and throws at anything the record cannot hold.
template <typename ReadOne>
LinkRecords ReadRecords(std::span<const std::uint8_t> bytes, ReadOne read) {
  LinkRecords result;
  for (std::size_t pos = 0; pos < bytes.size();) {
    if (bytes.size() - pos < 2) {
      result.cut = true;
      break;
    }
    const std::size_t length = bytes[pos] | std::size_t{bytes[pos + 1]} << 8;
    if (bytes.size() - pos - 2 < length) {
      result.cut = true;
      break;
    }
    ByteReader in(bytes.subspan(pos + 2, length));
    try {
      result.records.push_back(read(in));
    } catch (const SclFormatError&) {
      result.cut = true;
      break;
    }
    pos += 2 + length;
  }
  return result;
}

// A record with a date the calendar lacks or a time outside the day is no sound record.
void CheckRecord(const SchRecord& r) {
  const auto timeOk = [](std::int16_t minutes) { return minutes >= -1 && minutes < 1440; };
  if (!IsValidDate(r.Year, r.Month, r.Day) || !IsValidDate(r.EndYear, r.EndMonth, r.EndDay) ||
      !timeOk(r.StartTime) || !timeOk(r.EndTime)) {
    throw SclFormatError(0, "no sound record");
  }
}

std::string ReadText(ByteReader& in, CodePage page) {
  const std::uint16_t length = in.U16();
  return ToUtf8(in.Bytes(length), page);
}

// What tells the two forms apart: the end date, the width of ParentSubNo, and the texts.
struct RecordForm {
  bool endDate;
  bool wideParentSubNo;
  std::vector<std::string SchRecord::*> texts;
  std::size_t fixed;  // bytes of the fixed part behind the record's count
};
const RecordForm kExportForm{
    true, false, {&SchRecord::Title, &SchRecord::Place, &SchRecord::Memo}, kExportFixed};
const RecordForm kImportForm{false, true, {&SchRecord::Title, &SchRecord::Memo}, kImportFixed};

std::vector<std::uint8_t> RecordBytes(const SchRecord& r, const RecordForm& form, CodePage page) {
  std::vector<const std::string*> fields;
  for (const auto text : form.texts) fields.push_back(&(r.*text));
  const std::vector<std::string> texts = RecordTexts(fields, form.fixed, page);
  ByteWriter out;
  out.U16(RecordLength(form.fixed, texts));
  WriteDate(out, r.Day, r.Month, r.Year);
  if (form.endDate) WriteDate(out, r.EndDay, r.EndMonth, r.EndYear);
  out.I16(r.StartTime);
  out.I16(r.EndTime);
  out.I16(r.SubNo);
  out.I32(r.Stamp);
  if (form.wideParentSubNo) {
    out.I32(r.ParentSubNo);
  } else {
    out.I16(r.ParentSubNo);
  }
  out.I32(r.ParentStamp);
  out.I16(r.RepeatKind);
  out.I16(r.Private);
  out.I16(r.AlarmOn);
  out.I16(r.AlarmLead);
  WriteTexts(out, texts);
  return out.Take();
}

// A record of the form; a form without an end date ends on the record's own date.
SchRecord ReadRecord(ByteReader& in, const RecordForm& form, CodePage page) {
  SchRecord r;
  ReadDate(in, r.Day, r.Month, r.Year);
  if (form.endDate) {
    ReadDate(in, r.EndDay, r.EndMonth, r.EndYear);
  } else {
    SetEndDate(r, {r.Year, r.Month, r.Day});
  }
  r.StartTime = in.I16();
  r.EndTime = in.I16();
  r.SubNo = in.I16();
  r.Stamp = in.I32();
  r.ParentSubNo = form.wideParentSubNo ? static_cast<std::int16_t>(in.I32()) : in.I16();
  r.ParentStamp = in.I32();
  r.RepeatKind = in.I16();
  r.Private = in.I16();
  r.AlarmOn = in.I16();
  r.AlarmLead = in.I16();
  for (const auto text : form.texts) r.*text = ReadText(in, page);
  CheckRecord(r);
  return r;
}

}  // namespace

std::vector<std::uint8_t> ExportRecordBytes(const SchRecord& record, CodePage page) {
  return RecordBytes(record, kExportForm, page);
}

std::vector<std::uint8_t> ImportRecordBytes(const SchRecord& record, CodePage page) {
  return RecordBytes(record, kImportForm, page);
}

LinkRecords ReadExportRecords(std::span<const std::uint8_t> bytes, CodePage page) {
  return ReadRecords(bytes, [page](ByteReader& in) { return ReadRecord(in, kExportForm, page); });
}

LinkRecords ReadImportRecords(std::span<const std::uint8_t> bytes, CodePage page) {
  return ReadRecords(bytes, [page](ByteReader& in) { return ReadRecord(in, kImportForm, page); });
}

}  // namespace sched
