#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sched {

// Parses a cell's decimal text as the program reads numbers out of cells: an optional minus
// and the digits that follow; anything else reads as 0.
std::int32_t CellNumber(std::string_view text);

// Splits a tab-joined line into its cells.
std::vector<std::string_view> SplitLine(std::string_view line);

// An ordered table of rows of text cells. Rows are typed structures that show each column as
// decimal text; a row's number never changes while the table is not cleared, so row numbers
// serve as links. A table without data has one blank row with an empty first cell.
//
// Row must offer `static constexpr int kColumns`, `std::string Cell(int) const`,
// `void SetCell(int, std::string_view)` and a `blank` flag.
// What a table hands to a journal that records its changes: the first form of every row that
// was there when the journal last started afresh, before the table changes it.
template <typename Row>
struct RowJournal {
  int rowsBefore = 0;  // rows the table had then; rows from here on were added since
  std::vector<std::pair<int, Row>> before;
};

template <typename Row>
class Table {
 public:
  Table() { Clear(); }
  // A copy is a table of its own: the journal stays with the table it records.
  Table(const Table& other) : rows_(other.rows_), edits_(other.edits_) {}
  Table(Table&& other) noexcept : rows_(std::move(other.rows_)), edits_(other.edits_) {}
  Table& operator=(const Table& other) { return *this = Table(other); }
  Table& operator=(Table&& other) noexcept {
    rows_ = std::move(other.rows_);
    edits_ = std::max(edits_, other.edits_) + 1;  // no index takes it for the rows it had
    if (journal_ != nullptr) *journal_ = {};
    return *this;
  }

  int Rows() const { return static_cast<int>(rows_.size()); }

  // A table is empty when it has only its blank row.
  bool IsEmpty() const { return rows_.size() == 1 && rows_[0].blank; }

  std::string Cell(int row, int col) const {
    const Row& r = rows_.at(static_cast<std::size_t>(row));
    return r.blank ? std::string() : r.Cell(col);
  }

  void SetCell(int row, int col, std::string_view text) {
    Row& r = Edit(row);
    r.blank = false;
    r.SetCell(col, text);
    ++edits_;
  }

  // Adds a row at the end, the tab-joined cells of `line` filling the columns.
  void AddItem(std::string_view line) { Append(RowFromLine(line)); }
  // Inserts a row at `index`; later rows move down.
  void AddItem(std::string_view line, int index) {
    rows_.insert(rows_.begin() + index, RowFromLine(line));
    ++edits_;
  }
  void RemoveItem(int row) {
    rows_.erase(rows_.begin() + row);
    ++edits_;
  }
  // Empties all cells and leaves the one blank row.
  void Clear() {
    rows_.assign(1, Row{});
    rows_[0].blank = true;
    ++edits_;
    if (journal_ != nullptr) *journal_ = {};
  }

  // Typed access for the logic: At reads a row, Edit gives it to be changed, and a journal
  // keeps its form from before the change.
  const Row& At(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  Row& Edit(int row) {
    Row& r = rows_.at(static_cast<std::size_t>(row));
    if (journal_ != nullptr && row < journal_->rowsBefore) {
      auto& before = journal_->before;
      if (before.empty() || before.back().first != row) before.emplace_back(row, r);
    }
    return r;
  }

  // Room for `rows` rows without moving them.
  void Reserve(std::size_t rows) { rows_.reserve(rows); }

  // Adds a row at the end and gives its number.
  int Append(Row row) {
    rows_.push_back(std::move(row));
    return Rows() - 1;
  }
  // Puts the first data row in place of the blank row (AddItem at 0, then RemoveItem of 1).
  void PutFirst(Row row) {
    rows_.assign(1, std::move(row));
    ++edits_;
  }
  // Puts the row in as the first data row when the table is empty, else at the end; gives its
  // number.
  int Put(Row row) {
    if (!IsEmpty()) return Append(std::move(row));
    PutFirst(std::move(row));
    return 0;
  }

  // Counts every change other than an append, so that an index over appended rows knows when
  // it has to start again.
  std::uint64_t Edits() const { return edits_; }

  // Hands the changes of rows to `journal` from now on; nullptr stops it. The journal starts
  // with the rows the table has: the blank row of an empty table counts as none.
  void RecordInto(RowJournal<Row>* journal) {
    journal_ = journal;
    if (journal_ != nullptr) *journal_ = {IsEmpty() ? 0 : Rows(), {}};
  }
  // Puts a row back as a journal kept it, unrecorded.
  void Restore(int row, const Row& image) {
    rows_.at(static_cast<std::size_t>(row)) = image;
    ++edits_;
  }

  static Row RowFromLine(std::string_view line) {
    Row row{};
    int col = 0;
    for (std::string_view cell : SplitLine(line)) {
      if (col >= Row::kColumns) break;
      row.SetCell(col++, cell);
    }
    return row;
  }

  static std::string LineOf(const Row& row) {
    std::string line;
    for (int col = 0; col < Row::kColumns; ++col) {
      if (col > 0) line += '\t';
      line += row.Cell(col);
    }
    return line;
  }

 protected:
  // Counts a change made by a derived table.
  void CountEdit() { ++edits_; }

 private:
  std::vector<Row> rows_;
  std::uint64_t edits_ = 0;
  RowJournal<Row>* journal_ = nullptr;
};

}  // namespace sched
