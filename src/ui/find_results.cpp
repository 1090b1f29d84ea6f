#include "ui/find_results.h"

namespace sched {

void FindResults::Search(const FindQuery& query) {
  beginResetModel();
  model_.Search(query);
  Shown();
}

void FindResults::Refresh() {
  beginResetModel();
  model_.Refresh();
  Shown();
}

void FindResults::Shown() {
  lines_.assign(model_.Results().size(), std::nullopt);
  endResetModel();
}

const FindLine& FindResults::Line(int line) const {
  std::optional<FindLine>& shown = lines_[static_cast<std::size_t>(line)];
  if (!shown) shown = DescribeResult(model_, Result(line));
  return *shown;
}

int FindResults::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int FindResults::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant FindResults::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const FindLine& line = Line(index.row());
  switch (index.column()) {
    case kDate:
      return QString::fromStdString(
          dates_.ShortDate(line.date.year, line.date.month, line.date.day));
    case kTime: return QString::fromStdString(line.time);
    case kTitle: return QString::fromStdString(line.title);
    case kPlace: return QString::fromStdString(line.place);
    case kFound: return QString::fromStdString(FoundText(line));
    case kRepeats: return QString::fromStdString(line.repeats);
    default: return {};
  }
}

QVariant FindResults::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  static const char* const kHeads[kColumns] = {"Date",  "Time",     "Title",
                                               "Place", "Found in", "Repeats"};
  return section >= 0 && section < kColumns ? QString(kHeads[section]) : QVariant();
}

}  // namespace sched
