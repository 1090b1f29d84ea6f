#include "ui/day_tab.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "views/view_texts.h"

namespace sched {
namespace {

constexpr int kPlaces = 42;

QStringList Words(const char* text) {
  return QString(text).split(' ');
}

bool InCalendar(const CivilDate& d) {
  return d.year >= kFirstYear && d.year <= kLastYear;
}

}  // namespace

TimeBarView::TimeBarView(CalendarViews& views, QWidget* parent) : QWidget(parent), views_(views) {
  setObjectName("Pict");
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void TimeBarView::Rescale() {
  DayView& day = views_.Day();
  day.Pict.SetScale(width(), height());
  for (const DaySpan& span : day.DaySpans) day.Pict.DrawTimeSpan(span.StartTime, span.EndTime);
  update();
}

void TimeBarView::resizeEvent(QResizeEvent*) {
  Rescale();
}

void TimeBarView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const QPalette& pal = palette();
  p.fillRect(rect(), ViewColor(kWindowColor, pal));
  // Faint marks every two hours, so that a span can be read against the scale.
  QColor hour = pal.color(QPalette::Mid);
  hour.setAlpha(90);
  p.setPen(hour);
  for (int h = 2; h < 24; h += 2) {
    const int x = views_.Day().Pict.ColumnOf(h * 60);
    p.drawLine(x, 0, x, height());
  }
  const QColor span = ViewColor(kTimeSpanColor, pal);
  const auto& columns = views_.Day().Pict.Columns();
  const int count = std::min(static_cast<int>(columns.size()), width());
  for (int x = 0; x < count;) {
    if (columns[static_cast<std::size_t>(x)] != TimeBar::Paint::Span) {
      ++x;
      continue;
    }
    int end = x;
    while (end < count && columns[static_cast<std::size_t>(end)] == TimeBar::Paint::Span) ++end;
    p.fillRect(QRect(x, 0, end - x, height()), span);
    x = end;
  }
  p.setPen(pal.color(QPalette::Mid));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
}

DayCalendar::DayCalendar(CalendarViews& views, ViewActionSink sink, QWidget* parent)
    : QWidget(parent), views_(views), sink_(std::move(sink)) {
  setObjectName("CSCal4");
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

DayCalendar::Grid DayCalendar::Measure() const {
  Grid g;
  const int line = fontMetrics().height();
  g.title = QRect(0, 0, width(), line * 2);
  g.heads = QRect(0, g.title.bottom() + 1, width(), line + line / 2);
  g.top = g.heads.bottom() + 1;
  g.cellWidth = width() / 7.0;
  g.cellHeight = std::max(0, height() - g.top) / 6.0;
  return g;
}

CivilDate DayCalendar::PageDate(int place) const {
  const CivilDate& shown = views_.Day().CalendarDate;
  const CivilDate first{shown.year, shown.month, 1};
  // Day 1 stands in the first row under its weekday, as on the month tab.
  const std::int32_t serial = DaySerial(first) - WeekdayOf(first) + place;
  return FromDaySerial(serial);
}

QRect DayCalendar::PlaceRect(const Grid& g, int place) const {
  const int col = place % 7;
  const int row = place / 7;
  const int left = static_cast<int>(std::lround(col * g.cellWidth));
  const int right = static_cast<int>(std::lround((col + 1) * g.cellWidth));
  const int top = g.top + static_cast<int>(std::lround(row * g.cellHeight));
  const int bottom = g.top + static_cast<int>(std::lround((row + 1) * g.cellHeight));
  return QRect(left, top, right - left, bottom - top);
}

int DayCalendar::PlaceAt(const QPoint& point) const {
  const Grid g = Measure();
  if (point.y() < g.top || g.cellWidth <= 0 || g.cellHeight <= 0) return -1;
  const int col = std::clamp(static_cast<int>(point.x() / g.cellWidth), 0, 6);
  const int row = static_cast<int>((point.y() - g.top) / g.cellHeight);
  return row < 6 ? row * 7 + col : -1;
}

QRect DayCalendar::DateRect(const CivilDate& date) const {
  const Grid g = Measure();
  for (int place = 0; place < kPlaces; ++place) {
    if (PageDate(place) == date) return PlaceRect(g, place);
  }
  return {};
}

void DayCalendar::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const QPalette& pal = palette();
  const DayView& day = views_.Day();
  const CivilDate& shown = day.CalendarDate;
  const Grid g = Measure();
  p.fillRect(rect(), ViewColor(kWindowColor, pal));

  QFont bold = font();
  bold.setBold(true);
  p.setFont(bold);
  p.fillRect(g.title, pal.color(QPalette::Button));
  p.setPen(pal.color(QPalette::ButtonText));
  const QStringList months = Words(view_texts::kCalendarMonths);
  p.drawText(g.title, Qt::AlignCenter,
             QString("%1 %2").arg(months.value(shown.month - 1)).arg(shown.year));
  p.setFont(font());
  const QStringList heads = Words(view_texts::kCalendarWeekdays);
  for (int col = 0; col < 7; ++col) {
    const QRect place = PlaceRect(g, col);
    p.drawText(QRect(place.left(), g.heads.top(), place.width(), g.heads.height()), Qt::AlignCenter,
               heads.value(col));
  }
  p.setPen(pal.color(QPalette::Mid));
  p.drawLine(4, g.heads.bottom(), width() - 5, g.heads.bottom());

  const QColor mark = ViewColor(kSelectionColor, pal);
  for (int place = 0; place < kPlaces; ++place) {
    const CivilDate date = PageDate(place);
    if (!InCalendar(date)) continue;
    const QRect whole = PlaceRect(g, place);
    const QRect box = whole.adjusted(2, 2, -2, -2);
    const bool inMonth = date.month == shown.month;
    const bool selected = date == shown;
    if (inMonth && day.Marks[static_cast<std::size_t>(date.day - 1)]) p.fillRect(box, mark);
    // The selection's frame stands in the margin around the box, so the mark keeps its room.
    if (selected) {
      p.setPen(QPen(pal.color(QPalette::Highlight), 2));
      p.drawRect(QRectF(whole).adjusted(1, 1, -1, -1));
    }
    p.setFont(selected ? bold : font());
    p.setPen(inMonth ? pal.color(QPalette::Text) : pal.color(QPalette::PlaceholderText));
    p.drawText(box, Qt::AlignCenter, QString::number(date.day));
  }
  p.setPen(pal.color(QPalette::Mid));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
  if (hasFocus()) {
    p.setPen(QPen(pal.color(QPalette::Highlight), 1, Qt::DotLine));
    p.drawRect(g.title.adjusted(2, 2, -3, -3));
  }
}

void DayCalendar::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  if (event->button() != Qt::LeftButton) return;
  const int place = PlaceAt(event->position().toPoint());
  if (place == -1) return;
  const CivilDate date = PageDate(place);
  if (!InCalendar(date) || date == views_.Day().CalendarDate) return;
  views_.CSCal4_Change(date);
  sink_({});
}

void DayCalendar::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && PlaceAt(event->position().toPoint()) != -1) {
    sink_(views_.CSCal4_DblClick());
  }
}

void DayCalendar::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) sink_(views_.CSCal4_RightUp());
}

void DayCalendar::keyPressEvent(QKeyEvent* event) {
  const int key = ViewKeyOf(event->key());
  // The calendar moves by the mouse and the arrows below it only.
  if (CalendarViews::CSCal4_KeyDown(key) || CalendarViews::Form_KeyDown(key)) return;
  event->ignore();
}

DayTab::DayTab(CalendarViews& views, ViewActionSink sink, QWidget* parent)
    : QWidget(parent), views_(views), sink_(std::move(sink)) {
  setObjectName("DayTab");
  pict_ = new TimeBarView(views_, this);
  calendar_ = new DayCalendar(views_, sink_, this);

  list1_ = new QListWidget(this);
  list1_->setObjectName("List1");
  list1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list1_->setUniformItemSizes(true);
  list1_->viewport()->installEventFilter(this);
  list1_->installEventFilter(this);
  connect(list1_, &QListWidget::itemSelectionChanged, this, &DayTab::List1_SelChange);
  connect(list1_, &QListWidget::itemDoubleClicked, this,
          [this] { sink_(views_.List1_DblClick()); });
  list2_ = new QListWidget(this);
  list2_->setObjectName("List2");
  list2_->hide();

  const QFont small = ScaledFont(font(), 0.85);
  for (std::size_t k = 0; k < label3_.size(); ++k) {
    auto* label = new QLabel(view_texts::kHourScale[k], this);
    label->setObjectName(QString("Label3(%1)").arg(2 * k));
    label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    label->setFont(small);
    label3_[k] = label;
  }
  const char* halves[] = {view_texts::kAm, view_texts::kPm};
  const char* arrows[] = {view_texts::kMonthArrows, view_texts::kYearArrows};
  for (std::size_t i = 0; i < 2; ++i) {
    label5_[i] = new QLabel(halves[i], this);
    label5_[i]->setObjectName(QString("Label5(%1)").arg(i));
    label5_[i]->setAlignment(Qt::AlignCenter);
    label5_[i]->setFont(ScaledFont(font(), 0.85, true));
    label4_[i] = new QLabel(arrows[i], this);
    label4_[i]->setObjectName(QString("Label4(%1)").arg(i));
    label4_[i]->setAlignment(Qt::AlignCenter);
  }
  for (int i = 0; i < 3; ++i) {
    const Qt::ArrowType arrow = i == 0 ? Qt::LeftArrow : i == 1 ? Qt::RightArrow : Qt::NoArrow;
    comMM_[static_cast<std::size_t>(i)] =
        Arrow(QString("ComMM(%1)").arg(i), arrow, [this, i] { views_.ComMM_Click(i); });
    comYY_[static_cast<std::size_t>(i)] =
        Arrow(QString("ComYY(%1)").arg(i), arrow, [this, i] { views_.ComYY_Click(i); });
  }
  // The third buttons only hand the focus back.
  comMM_[2]->hide();
  comYY_[2]->hide();

  timer1_ = new QTimer(this);
  timer1_->setObjectName("Timer1");
  timer1_->setInterval(500);
  connect(timer1_, &QTimer::timeout, this, [this] {
    views_.Timer1_Timer();
    pict_->update();
  });
}

QToolButton* DayTab::Arrow(const QString& name, Qt::ArrowType arrow, std::function<void()> click) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setArrowType(arrow);
  connect(button, &QToolButton::clicked, this, [this, click] {
    click();
    sink_({});
  });
  return button;
}

void DayTab::List1_SelChange() {
  const ListSelection selection = SelectionOf(list1_);
  views_.List1_SelChange(selection.row, selection.rowSel);
  sink_({});
}

bool DayTab::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list1_->viewport() && event->type() == QEvent::MouseButtonRelease &&
      static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
    sink_(views_.List1_RightUp());
    return true;
  }
  if (watched == list1_ && event->type() == QEvent::KeyPress) {
    const int key = ViewKeyOf(static_cast<QKeyEvent*>(event)->key());
    if (key == kKeyEnter) {
      sink_(views_.List1_DblClick());
      return true;
    }
    if (key == kKeyDelete) {
      sink_({ViewCommand::DeleteSchedule, -1, {}});
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void DayTab::ShowModel() {
  const DayView& day = views_.Day();
  {
    const QSignalBlocker block(list1_);
    bool same = list1_->count() == day.List1Rows();
    for (int i = 0; same && i < list1_->count(); ++i) {
      same = list1_->item(i)->text().toStdString() == day.List1[static_cast<std::size_t>(i)];
    }
    if (!same) {
      list1_->clear();
      for (const std::string& line : day.List1) list1_->addItem(QString::fromStdString(line));
      list1_->scrollToTop();
    }
    list1_->clearSelection();
    if (day.List1Row >= 0 && day.List1Row < list1_->count()) {
      list1_->setCurrentRow(day.List1Row, QItemSelectionModel::NoUpdate);
      const int rowSel = std::clamp(day.List1RowSel, 0, list1_->count() - 1);
      for (int i = std::min(day.List1Row, rowSel); i <= std::max(day.List1Row, rowSel); ++i) {
        list1_->item(i)->setSelected(true);
      }
    }
  }
  list2_->clear();
  for (int row : day.List2) list2_->addItem(QString::number(row));
  list2_->setCurrentRow(day.List2Index);

  if (day.Pict.ScaleWidth() != pict_->width() || day.Pict.ScaleHeight() != pict_->height()) {
    pict_->Rescale();
  }
  pict_->update();
  calendar_->update();
  const bool blink = views_.Tab == 1 && day.Timer1Enabled;
  if (blink && !timer1_->isActive()) timer1_->start();
  if (!blink) timer1_->stop();
}

void DayTab::ApplyLayout(const FormLayout& layout) {
  layout_ = layout;
  pict_->setGeometry(PixelRect(layout.Pict));
  calendar_->setGeometry(PixelRect(layout.CSCal4));
  list1_->setGeometry(PixelRect(layout.List1));
  for (std::size_t k = 0; k < label3_.size(); ++k)
    label3_[k]->setGeometry(PixelRect(layout.Label3[k]));
  for (std::size_t i = 0; i < 2; ++i) {
    label5_[i]->setGeometry(PixelRect(layout.Label5[i]));
    label4_[i]->setGeometry(PixelRect(layout.Label4[i]));
  }
  for (std::size_t i = 0; i < 3; ++i) {
    comMM_[i]->setGeometry(PixelRect(layout.ComMM[i]));
    comYY_[i]->setGeometry(PixelRect(layout.ComYY[i]));
  }
  update();
}

void DayTab::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setPen(palette().color(QPalette::WindowText));
  const LineF& base = layout_.Line1;
  p.drawLine(QPointF(base.x1, base.y1), QPointF(base.x2, base.y2));
  for (const LineF& tick : layout_.Line2) {
    p.drawLine(QPointF(tick.x1, tick.y1), QPointF(tick.x2, tick.y2));
  }
  // Shorter ticks under the other hour captions.
  const double step = layout_.Pict.width / 12;
  for (int k = 1; k < 12; ++k) {
    if (k == 6) continue;
    const double x = layout_.Pict.left + k * step;
    p.drawLine(QPointF(x, base.y1 - 3), QPointF(x, base.y1));
  }
}

}  // namespace sched
