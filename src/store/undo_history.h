#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "store/document.h"

namespace sched {

// The changes a command made to the document, to be taken back and made again.
struct UndoStep {
  // The changed rows of one table: each as it was and as the command left it. Rows the
  // command added have no earlier form.
  template <typename Row>
  struct Rows {
    int rowsBefore = 0;
    std::vector<std::pair<int, Row>> before;
    std::vector<std::pair<int, Row>> after;
  };
  // What the document holds besides its rows.
  struct Values {
    SclHeader Header;
    std::array<std::int16_t, 7> WeekHoliday{};
    int RowCount = 0;
    bool operator==(const Values&) const = default;
  };

  std::string name;
  Rows<AncYYRow> years;
  Rows<AncMMRow> months;
  Rows<SchDatRow> items;
  Values valuesBefore;
  Values valuesAfter;

  std::size_t Bytes() const;
};

// Undo and redo of the commands that change the open document. The tables hand every change
// of a row to the history's journal as it happens, so a command cannot change the document
// behind its back; a step is what changed between two seals. Rows are never taken out of
// SchDatList: taking back an added item marks its rows deleted, so that row numbers held
// elsewhere stay valid. Year and month rows that were added stay too, emptied: the file
// leaves out years and months without marks or items.
class UndoHistory {
 public:
  // At least this many steps are kept; the oldest go first.
  static constexpr std::size_t kStepLimit = 200;

  explicit UndoHistory(ScheduleDocument& doc) : doc_(doc) {}
  ~UndoHistory() {
    if (recording_) Record(false);
  }
  UndoHistory(const UndoHistory&) = delete;
  UndoHistory& operator=(const UndoHistory&) = delete;

  // Starts or stops the journal of the tables; a history that does not record is empty.
  void Record(bool on);

  // The changes since the last seal become the step `name`, and what could be redone is
  // dropped; nothing changed, no step.
  void Seal(const std::string& name);
  // The changes since the last seal become part of the document as it stands, not a step.
  void Absorb();
  // A fresh history for a document just read or made; `saved` when it stands as its file holds
  // it.
  void Clear(bool saved);
  // The document stands as its file now holds it.
  void MarkSaved();

  bool CanUndo() const { return applied_ > 0; }
  bool CanRedo() const { return applied_ < steps_.size(); }
  // The names of the steps that Undo and Redo would take; "" when there is none.
  std::string UndoName() const;
  std::string RedoName() const;
  // Takes back the last step, or makes the next one again, and gives it; nothing when there
  // is none. `Dirty` then tells whether the document differs from its file.
  const UndoStep* Undo();
  const UndoStep* Redo();

  std::size_t Steps() const { return steps_.size(); }
  // The memory the last step kept takes, in bytes.
  std::size_t LastStepBytes() const { return steps_.empty() ? 0 : steps_.back().Bytes(); }

 private:
  // Puts the step's rows and values back as they were (`back`) or as it left them.
  const UndoStep& Apply(const UndoStep& step, bool back);
  UndoStep::Values CurrentValues() const;
  void SetValues(const UndoStep::Values& values);
  // The journal starts afresh from the document as it stands.
  void Restart();

  ScheduleDocument& doc_;
  bool recording_ = false;
  RowJournal<AncYYRow> years_;
  RowJournal<AncMMRow> months_;
  RowJournal<SchDatRow> items_;
  UndoStep::Values values_;  // as they stood at the last seal
  std::deque<UndoStep> steps_;
  std::size_t applied_ = 0;  // steps that stand in the document
  // The count of steps, dropped ones included, at which the document stood as its file holds
  // it; -1 when no longer reachable.
  std::int64_t savedAt_ = 0;
  std::int64_t dropped_ = 0;  // steps dropped at the front
};

}  // namespace sched
