#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "core/codepage.h"
#include "interchange/csv_fields.h"
#include "interchange/csv_import.h"

namespace sched {

// The rows of a CSV file in the fields of a column mapping, read and converted on a thread of
// their own while the caller adds the rows before them, and handed over in batches. The rows
// and the end are those of the import's loop: rows are read while the read position is short of
// the file's length, until an empty line or a failing read.
class CsvRowFeed {
 public:
  // `map` gives each column's field, -1 for a column that fills none; the texts of columns
  // that fill one field are joined by blanks. With `header`, the first row is taken as the
  // names of the columns.
  CsvRowFeed(std::string_view bytes, CodePage page, std::vector<std::int16_t> map, bool header);
  ~CsvRowFeed();
  CsvRowFeed(const CsvRowFeed&) = delete;
  CsvRowFeed& operator=(const CsvRowFeed&) = delete;

  // The next row, and the read position before it was read; nullptr at the end. The row and
  // the texts of its conversion are valid until the next call, and the caller may change them.
  struct Row {
    bool header = false;                    // the names of the columns: nothing to add
    std::optional<CsvConverted> converted;  // nothing for a rejected row
    std::int64_t posBefore = 0;
  };
  Row* Next();
  // Once Next gave nothing: the read position at the start of the read that ended the rows,
  // when a read ended them rather than the end of the file.
  std::optional<std::int64_t> EndingPos() const { return endingPos_; }
  // Once Next gave nothing: whether the file was read to its end without a failing read.
  bool Whole() const { return whole_; }

 private:
  // A text of a converted row: in the file, or among the batch's own texts.
  struct Piece {
    std::size_t offset = 0;
    std::size_t size = 0;
    bool own = false;
  };
  // A row as a batch keeps it: its texts as pieces, the views of `converted` left empty.
  struct StoredRow {
    // Made in place with its fields' own first values: nothing is cleared before.
    explicit StoredRow(std::int64_t posBefore) { row.posBefore = posBefore; }
    Row row;
    Piece title;
    Piece place;
    Piece memo;
  };
  struct Batch {
    std::vector<StoredRow> rows;
    std::string texts;  // texts that do not stand in the file as they are given
  };

  void Read();
  // Hands a batch over, waiting while the caller has enough in hand; false once the feed is
  // being closed.
  bool Hand(Batch&& batch);
  Piece Keep(Batch& batch, std::string_view text) const;

  std::string_view bytes_;
  CodePage page_;
  std::vector<std::int16_t> map_;
  bool header_;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Batch> ready_;
  bool done_ = false;     // the reading thread has handed over its last batch
  bool closing_ = false;  // the caller wants no more
  std::exception_ptr failure_;
  std::optional<std::int64_t> endingPos_;
  bool whole_ = true;

  Batch current_;  // the batch being taken row by row
  std::size_t next_ = 0;
  std::thread reader_;
};

}  // namespace sched
