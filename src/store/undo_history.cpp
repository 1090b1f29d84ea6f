#include "store/undo_history.h"

#include <algorithm>

namespace sched {
namespace {

// Whether a row changed in what the program reads: a year's NextYear link is walked by no code,
// so a year row that only gained a link to a new year is as it was.
bool Same(const AncYYRow& a, AncYYRow b) {
  b.NextYear = a.NextYear;
  return a == b;
}
template <typename Row>
bool Same(const Row& a, const Row& b) {
  return a == b;
}

// A year or month row added and left without marks, months or items: the file leaves it out,
// so it needs no step of its own.
bool IsBare(const AncYYRow& row) {
  return !row.HasHolidayMask() && row.FirstMonth == -1;
}
bool IsBare(const AncMMRow& row) {
  return std::all_of(row.DayHead.begin(), row.DayHead.end(), [](int head) { return head == -1; });
}
bool IsBare(const SchDatRow&) {
  return false;
}

// An added row as taking back its command leaves it: still there, with nothing in it.
AncYYRow Emptied(const AncYYRow& row) {
  AncYYRow empty;
  empty.Year = row.Year;
  empty.NextYear = row.NextYear;
  return empty;
}
AncMMRow Emptied(const AncMMRow& row) {
  AncMMRow empty;
  empty.Month = row.Month;
  empty.NextMonth = row.NextMonth;
  return empty;
}
SchDatRow Emptied(SchDatRow row) {
  row.Deleted = kDeleted;
  return row;
}

// The journal's rows as a step keeps them: each changed row once, as it first was and as it
// is now, and every row added.
template <typename Row>
bool Collect(const Table<Row>& table, RowJournal<Row>& journal, UndoStep::Rows<Row>& rows) {
  auto& first = journal.before;
  std::stable_sort(first.begin(), first.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  first.erase(std::unique(first.begin(), first.end(),
                          [](const auto& a, const auto& b) { return a.first == b.first; }),
              first.end());
  rows.rowsBefore = journal.rowsBefore;
  rows.before.reserve(first.size());
  rows.after.reserve(first.size() + static_cast<std::size_t>(table.Rows() - journal.rowsBefore));
  for (auto& [row, image] : first) {
    const Row& now = table.At(row);
    if (Same(image, now)) continue;
    rows.before.emplace_back(row, std::move(image));
    rows.after.emplace_back(row, now);
  }
  for (int row = journal.rowsBefore; row < table.Rows(); ++row) {
    if (!IsBare(table.At(row))) rows.after.emplace_back(row, table.At(row));
  }
  return !rows.after.empty();
}

template <typename Row>
void TakeBack(Table<Row>& table, const UndoStep::Rows<Row>& rows) {
  for (const auto& [row, image] : rows.before) table.Restore(row, image);
  for (const auto& [row, image] : rows.after) {
    if (row >= rows.rowsBefore) table.Restore(row, Emptied(image));
  }
}

template <typename Row>
void MakeAgain(Table<Row>& table, const UndoStep::Rows<Row>& rows) {
  for (const auto& [row, image] : rows.after) table.Restore(row, image);
}

template <typename Row>
void Put(Table<Row>& table, const UndoStep::Rows<Row>& rows, bool back) {
  if (back) {
    TakeBack(table, rows);
  } else {
    MakeAgain(table, rows);
  }
}

template <typename Row>
std::size_t BytesOf(const UndoStep::Rows<Row>& rows) {
  return (rows.before.capacity() + rows.after.capacity()) * sizeof(std::pair<int, Row>);
}

}  // namespace

std::size_t UndoStep::Bytes() const {
  return sizeof(UndoStep) + name.capacity() + BytesOf(years) + BytesOf(months) + BytesOf(items);
}

void UndoHistory::Record(bool on) {
  recording_ = on;
  SchDatCTL& t = doc_.Tables;
  t.AncYY.RecordInto(on ? &years_ : nullptr);
  t.AncMM.RecordInto(on ? &months_ : nullptr);
  t.SchDatList.RecordInto(on ? &items_ : nullptr);
  Clear(!doc_.Dirty);
}

void UndoHistory::Seal(const std::string& name) {
  if (!recording_) return;
  const SchDatCTL& t = doc_.Tables;
  UndoStep step;
  step.name = name;
  bool changed = Collect(t.AncYY, years_, step.years);
  changed = Collect(t.AncMM, months_, step.months) || changed;
  changed = Collect(t.SchDatList, items_, step.items) || changed;
  step.valuesBefore = values_;
  step.valuesAfter = CurrentValues();
  if (changed || step.valuesBefore != step.valuesAfter) {
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(applied_), steps_.end());
    if (savedAt_ > dropped_ + static_cast<std::int64_t>(applied_)) savedAt_ = -1;
    steps_.push_back(std::move(step));
    ++applied_;
    if (steps_.size() > kStepLimit) {
      steps_.pop_front();
      --applied_;
      ++dropped_;
    }
  }
  Restart();
}

void UndoHistory::Absorb() {
  if (recording_) Restart();
}

void UndoHistory::Clear(bool saved) {
  steps_.clear();
  applied_ = 0;
  dropped_ = 0;
  savedAt_ = saved ? 0 : -1;
  Restart();
}

void UndoHistory::MarkSaved() {
  savedAt_ = dropped_ + static_cast<std::int64_t>(applied_);
}

std::string UndoHistory::UndoName() const {
  return CanUndo() ? steps_[applied_ - 1].name : std::string();
}

std::string UndoHistory::RedoName() const {
  return CanRedo() ? steps_[applied_].name : std::string();
}

const UndoStep* UndoHistory::Undo() {
  return CanUndo() ? &Apply(steps_[--applied_], true) : nullptr;
}

const UndoStep* UndoHistory::Redo() {
  return CanRedo() ? &Apply(steps_[applied_++], false) : nullptr;
}

const UndoStep& UndoHistory::Apply(const UndoStep& step, bool back) {
  SchDatCTL& t = doc_.Tables;
  Put(t.AncYY, step.years, back);
  Put(t.AncMM, step.months, back);
  Put(t.SchDatList, step.items, back);
  SetValues(back ? step.valuesBefore : step.valuesAfter);
  return step;
}

UndoStep::Values UndoHistory::CurrentValues() const {
  return {doc_.Header, doc_.WeekHoliday, doc_.Tables.RowCount};
}

void UndoHistory::SetValues(const UndoStep::Values& values) {
  doc_.Header = values.Header;
  doc_.WeekHoliday = values.WeekHoliday;
  doc_.Tables.RowCount = values.RowCount;
  doc_.Dirty = savedAt_ != dropped_ + static_cast<std::int64_t>(applied_);
  Restart();
}

void UndoHistory::Restart() {
  if (!recording_) return;
  SchDatCTL& t = doc_.Tables;
  t.AncYY.RecordInto(&years_);
  t.AncMM.RecordInto(&months_);
  t.SchDatList.RecordInto(&items_);
  values_ = CurrentValues();
}

}  // namespace sched
