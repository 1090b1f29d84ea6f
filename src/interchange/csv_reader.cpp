#include "interchange/csv_reader.h"

#include <bit>
#include <cstring>

#include "core/byte_lanes.h"
#include "core/shift_jis.h"

namespace sched {
namespace {

constexpr unsigned char kCR = 13;
constexpr unsigned char kQuote = '"';
constexpr unsigned char kComma = ',';
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The length of the UTF-8 sequence that begins with `lead`; 0 for a byte that begins none.
int Utf8Length(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

bool IsValidUtf8(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const int length = Utf8Length(lead);
    if (length == 0 || i + length > text.size()) return false;
    for (int k = 1; k < length; ++k) {
      if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return false;
    }
    const auto second = static_cast<unsigned char>(length > 1 ? text[i + 1] : 0x80);
    // Overlong forms, surrogates and code points beyond U+10FFFF.
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
        (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F)) {
      return false;
    }
    i += static_cast<std::size_t>(length);
  }
  return true;
}

std::string_view TrimBlanks(std::string_view raw) {
  const std::size_t first = raw.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return raw.substr(first, raw.find_last_not_of(' ') - first + 1);
}

}  // namespace

CsvReader::CsvReader(std::string_view bytes, CodePage page) : bytes_(bytes), page_(page) {
  if (bytes.starts_with(kByteOrderMark)) {
    utf8_ = true;
    at_ = kByteOrderMark.size();
    pos_ = static_cast<std::int64_t>(at_);
  } else {
    utf8_ = !IsAscii(bytes) && IsValidUtf8(bytes);
  }
}

CsvReader::Char CsvReader::ReadOtherChar() {
  if (AtEnd()) throw CsvReadFailure();
  const auto first = static_cast<unsigned char>(bytes_[at_]);
  int length = 1;
  if (utf8_) {
    length = std::max(Utf8Length(first), 1);
  } else if (page_ == CodePage::kJapanese && ShiftJisTables::IsLead(first)) {
    length = 2;
  }
  length = static_cast<int>(
      std::min<std::size_t>(static_cast<std::size_t>(length), bytes_.size() - at_));
  return {first, length};
}

template <char kFirst, char kLast>
std::size_t CsvReader::Find(bool& ascii) const {
  unsigned char seen = 0;  // the bits of the bytes passed over
  std::size_t i = at_;
  const auto isStop = [](char c) { return c == kFirst || c == kLast; };
  if (utf8_ || page_ != CodePage::kJapanese) {
    // Words of eight bytes without a stop are passed over whole; in the word with one, the
    // lowest lane that matches is the first stop.
    std::uint64_t high = 0;
    for (; i + sizeof high <= bytes_.size(); i += sizeof high) {
      const std::uint64_t word = WordAt(bytes_.data() + i);
      const std::uint64_t stopLanes =
          Matches(word, kFirst) | (kFirst == kLast ? 0 : Matches(word, kLast));
      if (stopLanes != 0) {
        const int before = std::countr_zero(stopLanes) / 8;
        high |= word & ((std::uint64_t{1} << (8 * before)) - 1);
        ascii = High(high) == 0;
        return i + static_cast<std::size_t>(before);
      }
      high |= word;
    }
    if (High(high) != 0) seen = 0x80;
    for (; i < bytes_.size() && !isStop(bytes_[i]); ++i) {
      seen |= static_cast<unsigned char>(bytes_[i]);
    }
  } else {
    // A trail byte may be any byte from 0x40 on: the characters are stepped over one by one.
    while (i < bytes_.size() && !isStop(bytes_[i])) {
      const auto byte = static_cast<unsigned char>(bytes_[i]);
      seen |= byte;
      i += ShiftJisTables::IsLead(byte) ? 2 : 1;
    }
    i = std::min(i, bytes_.size());
  }
  ascii = seen < 0x80;
  return i;
}

CsvItem CsvReader::Failed(CsvItem& item, int errorCode) {
  item.failed = true;
  item.errorCode = errorCode;
  return item;
}

std::string& CsvReader::Room() {
  if (roomsUsed_ == rooms_.size()) rooms_.emplace_back();
  std::string& room = rooms_[roomsUsed_++];
  room.clear();
  return room;
}

std::string_view CsvReader::Decode(std::string_view raw, bool ascii) {
  if (utf8_ || ascii) return raw;
  std::string& text = Room();
  AppendToUtf8(text, raw, page_);
  return text;
}

void CsvReader::SkipLineFeed() {
  const Char c = ReadChar();
  at_ += static_cast<std::size_t>(c.length);
  pos_ += 1;
}

bool CsvReader::ReadCommonItem(CsvItem& item) {
  const std::size_t start = at_;
  const std::int64_t length = CsvFileLength();
  if (start >= bytes_.size() || bytes_[start] != kQuote || length - pos_ <= 1) return false;
  at_ = start + 1;
  bool ascii = true;
  const std::size_t quote = Find<kQuote, kQuote>(ascii);
  at_ = start;
  // The read position behind the closing quote, which must leave a byte to read.
  const std::int64_t behind = pos_ + static_cast<std::int64_t>(quote + 1 - start);
  if (quote + 2 >= bytes_.size() || behind >= length) return false;
  const char next = bytes_[quote + 1];
  const bool lineEnd = next == '\r' && bytes_[quote + 2] == '\n';
  if (next != ',' && !lineEnd) return false;
  item.text = Decode(bytes_.substr(start + 1, quote - start - 1), ascii);
  item.atLineEnd = lineEnd;
  at_ = quote + (lineEnd ? 3 : 2);
  pos_ = behind + (lineEnd ? 2 : 1);
  return true;
}

CsvItem CsvReader::ReadCsvItem() {
  // The common item is made where the caller takes it.
  CsvItem item;
  if (!ReadCommonItem(item)) item = ReadOtherCsvItem();
  return item;
}

CsvItem CsvReader::ReadOtherCsvItem() {
  CsvItem item;
  const std::int64_t length = CsvFileLength();
  if (AtEnd()) {
    item.atLineEnd = true;
    pos_ = length;
    return item;
  }
  if (pos_ >= length) return Failed(item, kCsvErrorAtEnd);
  const auto next = [&] {
    const Char c = ReadChar();
    at_ += static_cast<std::size_t>(c.length);
    pos_ += c.length;
    return c;
  };
  if (length - pos_ == 1) {  // a last byte alone is read over: it cannot start an item
    next();
    item.atLineEnd = true;
    return item;
  }
  Char c = next();
  if (c.first == kCR) {
    SkipLineFeed();
    item.atLineEnd = true;
    return item;
  }
  if (c.first != kQuote) return ReadUnquotedCsvItem(c);

  std::string_view raw;             // the text while it has no doubled quote
  std::string* unquoted = nullptr;  // the text from its first doubled quote on
  bool ascii = true;
  for (;;) {
    if (pos_ >= length) return Failed(item, kCsvErrorAtEnd);
    bool pieceAscii = true;
    const std::size_t quote = Find<kQuote, kQuote>(pieceAscii);
    ascii = ascii && pieceAscii;
    const std::string_view piece = bytes_.substr(at_, quote - at_);
    if (unquoted != nullptr) {
      unquoted->append(piece);
    } else {
      raw = piece;
    }
    pos_ += static_cast<std::int64_t>(quote - at_);
    at_ = quote;
    if (AtEnd()) {
      // An open quote at the end; the reader's count may lag the bytes after a CR alone.
      if (pos_ >= length) return Failed(item, kCsvErrorAtEnd);
      throw CsvReadFailure();
    }
    next();
    // A closing quote needs one more character behind it.
    if (pos_ >= length) return Failed(item, kCsvErrorAtEnd);
    c = next();
    if (c.first != kQuote) break;
    if (unquoted == nullptr) unquoted = &Room().assign(raw);
    *unquoted += '"';  // a doubled quote stands for one
  }
  item.text = Decode(unquoted != nullptr ? std::string_view(*unquoted) : raw, ascii);
  // What stands between the closing quote and the comma or line end is dropped.
  for (;;) {
    if (c.first == kComma) return item;
    if (c.first == kCR) {
      SkipLineFeed();
      item.atLineEnd = true;
      return item;
    }
    if (AtEnd()) return Failed(item, kCsvErrorAfterQuote);
    c = next();
  }
}

CsvItem CsvReader::ReadUnquotedCsvItem(Char first) {
  CsvItem item;
  if (first.first == kComma) return item;
  const std::size_t start = at_ - static_cast<std::size_t>(first.length);
  std::size_t end = start;
  bool ascii = true;
  if (first.first != kCR) {
    end = Find<kComma, kCR>(ascii);
    if (end == bytes_.size()) throw CsvReadFailure();  // no line end at the end
    pos_ += static_cast<std::int64_t>(end + 1 - at_);
    at_ = end + 1;
  }
  if (bytes_[end] == '\r') {
    SkipLineFeed();
    item.atLineEnd = true;
  }
  ascii = ascii && first.first < 0x80;
  item.text = Decode(TrimBlanks(bytes_.substr(start, end - start)), ascii);
  return item;
}

void CsvReader::ReadCsvRow(CsvRowView& row) {
  row.items.clear();
  row.atLineEnd = false;
  row.errorCode = 0;
  roomsUsed_ = 0;
  while (!row.atLineEnd) {
    const CsvItem item = ReadCsvItem();
    row.atLineEnd = item.atLineEnd;
    if (item.failed) {
      row.errorCode = item.errorCode;
      break;
    }
    if (item.text.empty() && item.atLineEnd) break;
    // Built of its two words, which the item was returned in, rather than copied whole.
    row.items.emplace_back(item.text.data(), item.text.size());
  }
}

CsvRow CsvReader::ReadCsvRow() {
  CsvRowView view;
  ReadCsvRow(view);
  return {{view.items.begin(), view.items.end()}, view.atLineEnd, view.errorCode};
}

}  // namespace sched
