#pragma once

#include <cstdint>
#include <deque>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/codepage.h"

namespace sched {

// A read that ran past the end of the file: the import as a whole fails on it.
class CsvReadFailure : public std::runtime_error {
 public:
  CsvReadFailure() : std::runtime_error("read past the end of the file") {}
};

// The reader's error codes: an open quote at the end of the file, or the end of the file
// behind a closing quote before its comma or line end.
inline constexpr int kCsvErrorAtEnd = 1;
inline constexpr int kCsvErrorAfterQuote = 2;

// An item's text is UTF-8: a view into the file where the item is taken as it stands, else
// into the reader's own room. It stays valid until the reader begins the next row.
struct CsvItem {
  std::string_view text;
  bool failed = false;
  bool atLineEnd = false;
  int errorCode = 0;
};

// A row's items, as views that stay valid until the reader begins the next row.
struct CsvRowView {
  std::vector<std::string_view> items;
  bool atLineEnd = false;
  int errorCode = 0;  // of the item that ended the row by failing
};

// A row's items, kept as the caller's own texts.
struct CsvRow {
  std::vector<std::string> items;
  bool atLineEnd = false;
  int errorCode = 0;
};

// Reads a CSV file's bytes one character at a time. The file's texts are UTF-8 when it
// begins with a byte-order mark or is valid UTF-8 throughout, else in the given code page.
// CsvReadPos counts the bytes read, as the loops of its callers compare it with the length.
class CsvReader {
 public:
  CsvReader(std::string_view bytes, CodePage page);

  std::int64_t CsvReadPos() const { return pos_; }
  std::int64_t CsvFileLength() const { return static_cast<std::int64_t>(bytes_.size()); }

  // One item; throws CsvReadFailure when an unquoted item, or a line end, runs into the end
  // of the file.
  CsvItem ReadCsvItem();
  // The items up to the line end; a trailing empty item is not counted, and a failing item
  // ends the row with the items before it. The row's storage is reused: a loop over a file
  // passes the same row every time.
  void ReadCsvRow(CsvRowView& row);
  CsvRow ReadCsvRow();

 private:
  // Reads one character: its first byte and its length in bytes.
  struct Char {
    unsigned char first;
    int length;
  };
  Char ReadChar() {
    // Most characters are ASCII; the others are read apart.
    if (!AtEnd() && static_cast<unsigned char>(bytes_[at_]) < 0x80) {
      return {static_cast<unsigned char>(bytes_[at_]), 1};
    }
    return ReadOtherChar();
  }
  Char ReadOtherChar();
  bool AtEnd() const { return at_ >= bytes_.size(); }
  CsvItem ReadUnquotedCsvItem(Char first);
  // The item of most files read at once into `item`: text in quotes without a doubled quote,
  // and a comma or CR LF behind it, short of the end of the file; false, with nothing read, for
  // any other.
  bool ReadCommonItem(CsvItem& item);
  // Any item, as ReadCsvItem reads it.
  CsvItem ReadOtherCsvItem();
  // Reads the character behind a CR over, as the LF of the line end.
  void SkipLineFeed();
  static CsvItem Failed(CsvItem& item, int errorCode);
  // The next byte at or after the read position that is one of the two stops (the same one
  // twice for one) and begins a character; the file's length when there is none. Every
  // character between counts its bytes, so the text up to it is taken in one piece; `ascii`
  // tells whether all of them are ASCII.
  template <char kFirst, char kLast>
  std::size_t Find(bool& ascii) const;
  // The text as UTF-8; `ascii` tells that its bytes are all ASCII.
  std::string_view Decode(std::string_view raw, bool ascii);
  // An empty string of the reader's room for the item being read.
  std::string& Room();

  std::string_view bytes_;
  CodePage page_;
  bool utf8_ = false;
  std::size_t at_ = 0;    // the next byte to read
  std::int64_t pos_ = 0;  // CsvReadPos
  // Texts unquoted or decoded for the row being read. A deque, as its strings never move;
  // they keep their room from row to row.
  std::deque<std::string> rooms_;
  std::size_t roomsUsed_ = 0;
};

}  // namespace sched
