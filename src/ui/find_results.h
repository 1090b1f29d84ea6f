#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

#include "find/find_line.h"
#include "find/find_model.h"
#include "platform/date_formatter.h"

namespace sched {

// The results of the find model as the panel's table shows them: date, time, title, place,
// where the words were found and how the item repeats. A line's texts are made when the table
// first asks for them, so that a search with many results costs no more than its first screen.
class FindResults : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kDate, kTime, kTitle, kPlace, kFound, kRepeats, kColumns };

  FindResults(FindModel& model, const DateFormatter& dates, QObject* parent)
      : QAbstractTableModel(parent), model_(model), dates_(dates) {}

  // Runs the search and shows its results.
  void Search(const FindQuery& query);
  // The last search again, on the schedule as it is now.
  void Refresh();
  const FindResult& Result(int line) const {
    return model_.Results()[static_cast<std::size_t>(line)];
  }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void Shown();
  const FindLine& Line(int line) const;

  FindModel& model_;
  const DateFormatter& dates_;
  mutable std::vector<std::optional<FindLine>> lines_;
};

}  // namespace sched
