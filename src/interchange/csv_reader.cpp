#include "interchange/csv_reader.h"

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

std::string TrimBlanks(const std::string& raw) {
  const std::size_t first = raw.find_first_not_of(' ');
  if (first == std::string::npos) return {};
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

CsvReader::Char CsvReader::ReadChar() {
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

void CsvReader::Append(std::string& raw, Char c) const {
  raw.append(
      bytes_.substr(at_ - static_cast<std::size_t>(c.length), static_cast<std::size_t>(c.length)));
}

std::string CsvReader::Decode(std::string raw) const {
  return utf8_ || IsAscii(raw) ? raw : ToUtf8(raw, page_);
}

void CsvReader::SkipLineFeed() {
  const Char c = ReadChar();
  at_ += static_cast<std::size_t>(c.length);
  pos_ += 1;
}

CsvItem CsvReader::ReadCsvItem() {
  CsvItem item;
  const std::int64_t length = CsvFileLength();
  if (AtEnd()) {
    item.atLineEnd = true;
    pos_ = length;
    return item;
  }
  if (pos_ >= length) {
    item.failed = true;
    item.errorCode = kCsvErrorAtEnd;
    return item;
  }
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

  std::string raw;
  for (;;) {
    if (pos_ >= length) {
      item.failed = true;
      item.errorCode = kCsvErrorAtEnd;
      return item;
    }
    c = next();
    if (c.first == kQuote) {
      // A closing quote needs one more character behind it.
      if (pos_ >= length) {
        item.failed = true;
        item.errorCode = kCsvErrorAtEnd;
        return item;
      }
      c = next();
      if (c.first != kQuote) break;  // a doubled quote stands for one
    }
    Append(raw, c);
  }
  item.text = Decode(std::move(raw));
  // What stands between the closing quote and the comma or line end is dropped.
  for (;;) {
    if (c.first == kComma) return item;
    if (c.first == kCR) {
      SkipLineFeed();
      item.atLineEnd = true;
      return item;
    }
    if (AtEnd()) {
      item.failed = true;
      item.errorCode = kCsvErrorAfterQuote;
      return item;
    }
    c = next();
  }
}

CsvItem CsvReader::ReadUnquotedCsvItem(Char first) {
  CsvItem item;
  if (first.first == kComma) return item;
  std::string raw;
  Char c = first;
  for (;;) {
    if (c.first == kComma) break;
    if (c.first == kCR) {
      SkipLineFeed();
      item.atLineEnd = true;
      break;
    }
    Append(raw, c);
    c = ReadChar();  // the end of the file here fails the read
    at_ += static_cast<std::size_t>(c.length);
    pos_ += c.length;
  }
  item.text = Decode(TrimBlanks(raw));
  return item;
}

CsvRow CsvReader::ReadCsvRow() {
  CsvRow row;
  while (!row.atLineEnd) {
    CsvItem item = ReadCsvItem();
    row.atLineEnd = item.atLineEnd;
    if (item.failed) {
      row.errorCode = item.errorCode;
      break;
    }
    if (item.text.empty() && item.atLineEnd) break;
    row.items.push_back(std::move(item.text));
  }
  return row;
}

}  // namespace sched
