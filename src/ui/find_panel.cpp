#include "ui/find_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace sched {
namespace {

std::int32_t CodeOf(const QDate& date) {
  return DateCode(date.year(), date.month(), date.day());
}

QDateEdit* DateBox(const QString& name, QWidget* parent) {
  auto* box = new QDateEdit(parent);
  box->setObjectName(name);
  box->setCalendarPopup(true);
  box->setDisplayFormat("yyyy/MM/dd");
  box->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
  box->setEnabled(false);
  // The date and the calendar's button.
  box->setMinimumWidth(box->fontMetrics().horizontalAdvance("2026/12/31__") +
                       box->fontMetrics().height() * 2);
  return box;
}

}  // namespace

FindPanel::FindPanel(const ScheduleDocument& doc, const DateFormatter& dates, Pick pick,
                     QWidget* parent)
    : QDockWidget("Find", parent), doc_(doc), model_(doc.Tables), pick_(std::move(pick)) {
  setObjectName("FindPanel");
  setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
  auto* body = new QWidget(this);
  auto* layout = new QVBoxLayout(body);
  layout->setContentsMargins(6, 4, 6, 6);

  auto* line = new QHBoxLayout();
  text_ = new QLineEdit(body);
  text_->setObjectName("FindText");
  text_->setPlaceholderText("Words of a title, place or memo");
  text_->setClearButtonEnabled(true);
  text_->setMinimumWidth(text_->fontMetrics().horizontalAdvance('0') * 16);
  line->addWidget(text_, 1);
  count_ = new QLabel(body);
  count_->setObjectName("FindCount");
  count_->setMinimumWidth(count_->fontMetrics().horizontalAdvance("00000 items found") + 8);
  count_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  line->addWidget(count_);
  layout->addLayout(line);

  auto* range = new QHBoxLayout();
  fromOn_ = new QCheckBox("&From", body);
  fromOn_->setObjectName("FindFromOn");
  from_ = DateBox("FindFrom", body);
  toOn_ = new QCheckBox("T&o", body);
  toOn_->setObjectName("FindToOn");
  to_ = DateBox("FindTo", body);
  for (QWidget* w : {static_cast<QWidget*>(fromOn_), static_cast<QWidget*>(from_),
                     static_cast<QWidget*>(toOn_), static_cast<QWidget*>(to_)}) {
    range->addWidget(w);
  }
  range->addStretch(1);
  layout->addLayout(range);

  results_ = new FindResults(model_, dates, this);
  list_ = new QTableView(body);
  list_->setObjectName("FindList");
  list_->setModel(results_);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setWordWrap(false);
  list_->verticalHeader()->hide();
  list_->verticalHeader()->setDefaultSectionSize(list_->fontMetrics().height() + 6);
  list_->horizontalHeader()->setStretchLastSection(true);
  // Widths for the texts of most items; the columns take no measure of their lines, which a
  // search of many results would pay.
  const QFontMetrics metrics = list_->fontMetrics();
  const char* const widest[] = {"2026/12/31__", "12:00pm-12:00pm__",
                                "Meeting with the team: budget", "Main Street 12, 2nd",
                                "Title, Place, Memo: note"};
  for (int column = 0; column < FindResults::kRepeats; ++column) {
    list_->setColumnWidth(column, metrics.horizontalAdvance(widest[column]));
  }
  layout->addWidget(list_, 1);
  setWidget(body);

  connect(text_, &QLineEdit::textChanged, this, &FindPanel::Search);
  connect(fromOn_, &QCheckBox::toggled, from_, &QWidget::setEnabled);
  connect(toOn_, &QCheckBox::toggled, to_, &QWidget::setEnabled);
  for (QCheckBox* on : {fromOn_, toOn_}) connect(on, &QCheckBox::toggled, this, &FindPanel::Search);
  for (QDateEdit* box : {from_, to_})
    connect(box, &QDateEdit::dateChanged, this, &FindPanel::Search);
  connect(list_, &QAbstractItemView::doubleClicked, this, &FindPanel::PickCurrent);
  text_->installEventFilter(this);
  list_->installEventFilter(this);
  ShowCount();
}

void FindPanel::Open() {
  const QDate shown(doc_.CurYear, doc_.CurMonth, doc_.CurDay);
  if (!fromOn_->isChecked()) from_->setDate(shown);
  if (!toOn_->isChecked()) to_->setDate(shown);
  show();
  raise();
  // The folded copy is made now, when the panel opens, rather than on the first keystroke.
  Refresh();
  text_->setFocus();
  text_->selectAll();
}

FindQuery FindPanel::Query() const {
  FindQuery query{text_->text().toStdString()};
  if (fromOn_->isChecked()) query.fromCode = CodeOf(from_->date());
  if (toOn_->isChecked()) query.toCode = CodeOf(to_->date());
  return query;
}

void FindPanel::Search() {
  results_->Search(Query());
  if (results_->rowCount() > 0) list_->selectRow(0);
  ShowCount();
}

void FindPanel::Refresh() {
  if (!isVisible()) return;
  const QModelIndex current = list_->currentIndex();
  const int row = current.isValid() ? results_->Result(current.row()).row : -1;
  results_->Search(Query());
  int line = 0;
  for (int at = 0; at < results_->rowCount(); ++at) {
    if (results_->Result(at).row == row) line = at;
  }
  if (results_->rowCount() > 0) list_->selectRow(line);
  ShowCount();
}

void FindPanel::ShowCount() {
  const int found = results_->rowCount();
  if (text_->text().trimmed().isEmpty()) {
    count_->clear();
  } else {
    count_->setText(found == 0   ? QString("Nothing found")
                    : found == 1 ? QString("1 item found")
                                 : QString("%1 items found").arg(found));
  }
}

void FindPanel::MoveCurrent(int by) {
  const int rows = results_->rowCount();
  if (rows == 0) return;
  const int line = list_->currentIndex().isValid() ? list_->currentIndex().row() : -by;
  list_->selectRow(std::clamp(line + by, 0, rows - 1));
}

void FindPanel::PickCurrent() {
  const QModelIndex current = list_->currentIndex();
  if (current.isValid()) pick_(results_->Result(current.row()));
}

void FindPanel::Close() {
  hide();
  if (parentWidget() != nullptr) parentWidget()->setFocus();
}

void FindPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Close();
    return;
  }
  QDockWidget::keyPressEvent(event);
}

bool FindPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDockWidget::eventFilter(watched, event);
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape: Close(); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: PickCurrent(); return true;
    case Qt::Key_Down:
      if (watched != text_) break;
      MoveCurrent(1);
      return true;
    case Qt::Key_Up:
      if (watched != text_) break;
      MoveCurrent(-1);
      return true;
    default: break;
  }
  return QDockWidget::eventFilter(watched, event);
}

}  // namespace sched
