#include "interchange/csv_row_feed.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "interchange/csv_reader.h"

namespace sched {
namespace {

constexpr std::size_t kBatchRows = 1024;
// Batches read ahead of the caller at most, so that a large file is not held twice.
constexpr std::size_t kBatchesAhead = 4;

}  // namespace

CsvRowFeed::CsvRowFeed(std::string_view bytes, CodePage page, std::vector<std::int16_t> map,
                       bool header)
    : bytes_(bytes), page_(page), map_(std::move(map)), header_(header), reader_([this] {
        Read();
      }) {}

CsvRowFeed::~CsvRowFeed() {
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
  }
  changed_.notify_all();
  reader_.join();
}

CsvRowFeed::Piece CsvRowFeed::Keep(Batch& batch, std::string_view text) const {
  // Comparing addresses of the one buffer tells whether the text lies in it.
  const std::less_equal<const char*> notAfter;
  if (text.empty() || (notAfter(bytes_.data(), text.data()) &&
                       notAfter(text.data() + text.size(), bytes_.data() + bytes_.size()))) {
    return {static_cast<std::size_t>(text.empty() ? 0 : text.data() - bytes_.data()), text.size(),
            false};
  }
  const Piece piece{batch.texts.size(), text.size(), true};
  batch.texts.append(text);
  return piece;
}

void CsvRowFeed::Read() {
  Batch batch;
  batch.rows.reserve(kBatchRows);
  try {
    CsvReader reader(bytes_, page_);
    CsvRowView read;
    // The texts of fields that several columns fill, joined by blanks.
    std::array<std::string, kCsvFieldCount> joined;
    CsvTextRoom room;
    // The fields of a row: emptied row by row where the map fills them.
    CsvRowFields row;
    while (reader.CsvReadPos() < reader.CsvFileLength()) {
      const std::int64_t before = reader.CsvReadPos();
      endingPos_ = before;
      reader.ReadCsvRow(read);
      // An empty line ends the rows.
      if (read.items.empty() && read.atLineEnd) break;
      endingPos_.reset();
      for (const std::int16_t field : map_) {
        if (field >= 0) row[static_cast<std::size_t>(field)] = {};
      }
      const std::size_t columns = std::min(read.items.size(), map_.size());
      for (std::size_t i = 0; i < columns; ++i) {
        if (map_[i] < 0) continue;
        const auto index = static_cast<std::size_t>(map_[i]);
        std::string_view& field = row[index];
        if (field.empty()) {
          field = read.items[i];
          continue;
        }
        std::string& text = joined[index];
        if (field.data() != text.data()) text.assign(field);
        text.append(" ").append(read.items[i]);
        field = text;
      }
      StoredRow& stored = batch.rows.emplace_back(before);
      if (std::exchange(header_, false)) {
        stored.row.header = true;
      } else if (CsvConverted& converted = stored.row.converted.emplace();
                 !ConvertCsvRow(row, room, converted)) {
        stored.row.converted.reset();
      } else {
        stored.title = Keep(batch, std::exchange(converted.title, {}));
        stored.place = Keep(batch, std::exchange(converted.place, {}));
        stored.memo = Keep(batch, std::exchange(converted.memo, {}));
      }
      if (batch.rows.size() == kBatchRows) {
        if (!Hand(std::exchange(batch, {}))) return;
        batch.rows.reserve(kBatchRows);
      }
    }
  } catch (const CsvReadFailure&) {
    whole_ = false;
  } catch (...) {
    const std::lock_guard lock(mutex_);
    failure_ = std::current_exception();
  }
  Hand(std::move(batch));
  {
    const std::lock_guard lock(mutex_);
    done_ = true;
  }
  changed_.notify_all();
}

bool CsvRowFeed::Hand(Batch&& batch) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return closing_ || ready_.size() < kBatchesAhead; });
  if (closing_) return false;
  if (!batch.rows.empty()) ready_.push_back(std::move(batch));
  lock.unlock();
  changed_.notify_all();
  return true;
}

CsvRowFeed::Row* CsvRowFeed::Next() {
  if (next_ == current_.rows.size()) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !ready_.empty() || done_; });
    if (ready_.empty()) {
      if (failure_) std::rethrow_exception(failure_);
      return nullptr;
    }
    current_ = std::move(ready_.front());
    ready_.pop_front();
    next_ = 0;
    lock.unlock();
    changed_.notify_all();
  }
  StoredRow& stored = current_.rows[next_];
  // The row is handed over where it lies, its texts found in the file or the batch.
  Row& row = stored.row;
  if (row.converted) {
    const auto text = [this](const Piece& piece) -> std::string_view {
      if (piece.size == 0) return {};
      return {(piece.own ? current_.texts.data() : bytes_.data()) + piece.offset, piece.size};
    };
    row.converted->title = text(stored.title);
    row.converted->place = text(stored.place);
    row.converted->memo = text(stored.memo);
  }
  ++next_;
  return &row;
}

}  // namespace sched
