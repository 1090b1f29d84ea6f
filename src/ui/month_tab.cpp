#include "ui/month_tab.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "views/view_texts.h"

namespace sched {
namespace {

constexpr int kScrollBarWidth = 6;
constexpr double kLineFontFactor = 0.92;

bool IsRightUp(const QMouseEvent* event) {
  return event->button() == Qt::RightButton;
}

}  // namespace

CellPlate::CellPlate(int cell, CalendarViews& views, ViewActionSink sink, QWidget* parent)
    : QWidget(parent), cell_(cell), views_(views), sink_(std::move(sink)) {
  setObjectName(QString("Label9(%1)").arg(cell));
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void CellPlate::SetBack(const QColor& back) {
  if (back == back_) return;
  back_ = back;
  update();
}

void CellPlate::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), back_);
  // Neighbouring plates overlap by their frame, so the frames make the grid's lines.
  p.setPen(palette().color(QPalette::Mid));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
}

void CellPlate::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) sink_(views_.Cell_Click(cell_));
}

void CellPlate::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) sink_(views_.Cell_DblClick(cell_));
}

void CellPlate::mouseReleaseEvent(QMouseEvent* event) {
  if (IsRightUp(event)) sink_(views_.Cell_RightUp(cell_));
}

CellText::CellText(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CellText::Set(const QString& text, const QColor& color, const QColor& back) {
  if (text == text_ && color == color_ && back == back_) return;
  text_ = text;
  color_ = color;
  back_ = back;
  update();
}

void CellText::SetTextWidth(int width) {
  if (width == textWidth_) return;
  textWidth_ = width;
  update();
}

QString CellText::ShownText() const {
  const int room = textWidth_ < 0 ? width() : std::min(width(), textWidth_);
  return fontMetrics().elidedText(text_, Qt::ElideRight, room);
}

QRect CellText::TextRect() const {
  if (text_.isEmpty()) return {};
  return {0, 0, std::min(width(), fontMetrics().horizontalAdvance(ShownText()) + 2), height()};
}

void CellText::paintEvent(QPaintEvent*) {
  if (text_.isEmpty()) return;
  QPainter p(this);
  if (back_.isValid()) p.fillRect(TextRect(), back_);
  p.setPen(color_);
  p.setFont(font());
  p.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, ShownText());
}

CellList::CellList(int cell, CalendarViews& views, ViewActionSink sink, QWidget* parent)
    : QWidget(parent), cell_(cell), views_(views), sink_(std::move(sink)) {
  setObjectName(QString("Grid1(%1)").arg(cell));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFont(ScaledFont(font(), kLineFontFactor));
}

int CellList::RowHeight() const {
  return fontMetrics().height() + 1;
}

int CellList::VisibleRows() const {
  return std::max(1, height() / RowHeight());
}

int CellList::RowAt(int y) const {
  const int row = top_ + y / RowHeight();
  return row < static_cast<int>(lines_.size()) ? row : -1;
}

int CellList::ItemLines() const {
  return std::max(0, static_cast<int>(lines_.size()) - 1);
}

bool CellList::Scrolls() const {
  return ItemLines() > VisibleRows();
}

QRect CellList::ScrollTrack() const {
  if (!Scrolls()) return {};
  QRect track(width() - kScrollBarWidth - 1, 1, kScrollBarWidth, height() - 2);
  if (covered_.intersects(track)) track.setBottom(covered_.top() - 2);
  return track;
}

void CellList::KeepClear(const QRect& covered) {
  if (covered == covered_) return;
  covered_ = covered;
  update();
}

void CellList::Show(const MonthCell& cell, const QColor& back) {
  std::vector<QString> lines;
  lines.reserve(cell.lines.size());
  for (const std::string& line : cell.lines) lines.push_back(QString::fromStdString(line));
  const bool refilled = lines != lines_;
  if (refilled) {
    lines_ = std::move(lines);
    top_ = 0;
  }
  const bool changed = refilled || back != back_ || highlight_ != cell.rowHighlight ||
                       selectedRow_ != cell.selectedRow;
  back_ = back;
  highlight_ = cell.rowHighlight;
  selectedRow_ = cell.selectedRow;
  setEnabled(cell.enabled);
  // The selected row scrolls into view.
  if (Scrolls() && highlight_ && selectedRow_ >= 0 &&
      selectedRow_ < static_cast<int>(lines_.size())) {
    if (selectedRow_ < top_) top_ = selectedRow_;
    if (selectedRow_ >= top_ + VisibleRows()) top_ = selectedRow_ - VisibleRows() + 1;
  }
  if (changed) update();
}

void CellList::ScrollTo(int top) {
  const int most = Scrolls() ? static_cast<int>(lines_.size()) - VisibleRows() : 0;
  top = std::clamp(top, 0, most);
  if (top == top_) return;
  top_ = top;
  update();
}

bool CellList::OnScrollBar(int x) const {
  return Scrolls() && x >= width() - kScrollBarWidth - 2;
}

void CellList::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), back_);
  const int rowHeight = RowHeight();
  const int count = static_cast<int>(lines_.size());
  const bool scrolls = Scrolls();
  const int textWidth = width() - 4 - (scrolls ? kScrollBarWidth + 2 : 0);
  const QColor text = palette().color(QPalette::Text);
  for (int row = top_, y = 0; row < count && y < height(); ++row, y += rowHeight) {
    const QRect line(0, y, width() - (scrolls ? kScrollBarWidth + 2 : 0), rowHeight);
    const bool selected = highlight_ && row == selectedRow_;
    if (selected) p.fillRect(line, palette().color(QPalette::Highlight));
    p.setPen(selected ? palette().color(QPalette::HighlightedText) : text);
    const QString shown =
        fontMetrics().elidedText(lines_[static_cast<std::size_t>(row)], Qt::ElideRight, textWidth);
    p.drawText(line.adjusted(2, 0, -2, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
               shown);
  }
  if (!scrolls) return;
  // A slim bar: where the shown rows stand among all.
  const QRect track = ScrollTrack();
  if (track.height() <= 0) return;
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(Qt::NoPen);
  QColor ground = palette().color(QPalette::Mid);
  ground.setAlpha(60);
  p.setBrush(ground);
  p.drawRoundedRect(track, 3, 3);
  const int thumbHeight =
      std::min(track.height(), std::max(8, track.height() * VisibleRows() / count));
  const int thumbTop =
      track.top() + (track.height() - thumbHeight) * top_ / std::max(1, count - VisibleRows());
  p.setBrush(palette().color(QPalette::Dark));
  p.drawRoundedRect(QRect(track.left(), thumbTop, track.width(), thumbHeight), 3, 3);
}

void CellList::wheelEvent(QWheelEvent* event) {
  const int steps = -event->angleDelta().y() / 120;
  const int before = top_;
  ScrollTo(top_ + (steps == 0 ? (event->angleDelta().y() < 0 ? 1 : -1) : steps));
  if (top_ == before) event->ignore();
}

void CellList::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int y = static_cast<int>(event->position().y());
  if (OnScrollBar(static_cast<int>(event->position().x()))) {
    // A click on the bar pages towards the click.
    const int count = static_cast<int>(lines_.size());
    const int thumbMiddle = height() * (top_ + VisibleRows() / 2) / std::max(1, count);
    ScrollTo(top_ + (y < thumbMiddle ? -VisibleRows() : VisibleRows()));
    return;
  }
  sink_(views_.Grid1_MouseDown(cell_, RowAt(y)));
}

void CellList::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (OnScrollBar(static_cast<int>(event->position().x()))) return;
  sink_(views_.Grid1_DblClick(cell_, RowAt(static_cast<int>(event->position().y()))));
}

void CellList::mouseReleaseEvent(QMouseEvent* event) {
  if (IsRightUp(event)) {
    sink_(views_.Cell_RightUp(cell_, RowAt(static_cast<int>(event->position().y()))));
  }
}

GridKeys::GridKeys(CalendarViews& views, ViewActionSink sink, QWidget* parent)
    : QWidget(parent), views_(views), sink_(std::move(sink)) {
  setObjectName("Text1");
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_InputMethodEnabled, false);
}

void GridKeys::keyPressEvent(QKeyEvent* event) {
  const KeyResult result = views_.Text1_KeyDown(ViewKeyOf(event->key()));
  if (result.consumed) {
    sink_(result.action);
    return;
  }
  // Nothing typed lands here; other keys go on to the window.
  if (event->text().isEmpty() || !event->text().at(0).isPrint()) event->ignore();
}

MonthTab::MonthTab(CalendarViews& views, ViewActionSink sink, QWidget* parent)
    : QWidget(parent), views_(views), sink_(std::move(sink)) {
  setObjectName("MonthTab");
  // A click on a cell leaves the keys with the grid.
  const ViewActionSink cellSink = [this](const ViewAction& action) {
    text1_->setFocus(Qt::MouseFocusReason);
    sink_(action);
  };
  const QFont numberFont = ScaledFont(font(), 1.0, true);
  const QFont nameFont = ScaledFont(font(), kLineFontFactor);
  for (int c = 0; c < kMonthCells; ++c) {
    plates_[static_cast<std::size_t>(c)] = new CellPlate(c, views_, cellSink, this);
  }
  for (int c = 0; c < kMonthCells; ++c) {
    lists_[static_cast<std::size_t>(c)] = new CellList(c, views_, cellSink, this);
  }
  for (int c = 0; c < kMonthCells; ++c) {
    auto* number = new CellText(this);
    number->setObjectName(QString("Label1(%1)").arg(c));
    number->setFont(numberFont);
    numbers_[static_cast<std::size_t>(c)] = number;
  }
  // The names lie over the numbers, since a long one runs over the next cell's number.
  for (int c = 0; c < kMonthCells; ++c) {
    auto* name = new CellText(this);
    name->setObjectName(QString("Label2(%1)").arg(c));
    name->setFont(nameFont);
    names_[static_cast<std::size_t>(c)] = name;
  }
  for (int i = 0; i < 7; ++i) {
    auto* head = new QLabel(view_texts::kWeekdayHeads[static_cast<std::size_t>(i)], this);
    head->setObjectName(QString("Label8(%1)").arg(i));
    head->setAlignment(Qt::AlignCenter);
    head->setFont(numberFont);
    heads_[static_cast<std::size_t>(i)] = head;
  }
  comDt_ = new QToolButton(this);
  comDt_->setObjectName("ComDt");
  comDt_->setArrowType(Qt::DownArrow);
  comDt_->setToolTip("List of Schedule");
  comDt_->setFocusPolicy(Qt::NoFocus);
  comDt_->hide();
  connect(comDt_, &QToolButton::clicked, this, [this] { sink_(views_.ComDt_Click()); });
  text1_ = new GridKeys(views_, sink_, this);
  text1_->setGeometry(0, 0, 1, 1);
  BuildBar();
}

void MonthTab::BuildBar() {
  bar_ = new QWidget();
  bar_->setObjectName("MonthBar");
  auto* row = new QHBoxLayout(bar_);
  row->setContentsMargins(8, 2, 4, 2);
  row->setSpacing(4);
  combo1_ = new QComboBox(bar_);
  combo1_->setObjectName("Combo1");
  for (const char* month : view_texts::kMonthNames) combo1_->addItem(month);
  combo2_ = new QComboBox(bar_);
  combo2_->setObjectName("Combo2");
  for (int year = kFirstYear; year <= kLastYear; ++year) combo2_->addItem(QString::number(year));
  combo2_->setMaxVisibleItems(16);
  const Qt::ArrowType arrows[] = {Qt::LeftArrow, Qt::RightArrow, Qt::NoArrow};
  const char* tips[] = {"Previous month", "Next month", ""};
  for (int i = 0; i < 3; ++i) {
    auto* button = new QToolButton(bar_);
    button->setObjectName(QString("Command1(%1)").arg(i));
    button->setArrowType(arrows[i]);
    button->setToolTip(tips[i]);
    button->setAutoRaise(true);
    connect(button, &QToolButton::clicked, this, [this, i] {
      views_.Command1_Click(i);
      sink_({});
    });
    command1_[static_cast<std::size_t>(i)] = button;
  }
  command1_[2]->hide();  // it only hands the focus back to the grid
  row->addWidget(command1_[0]);
  row->addWidget(combo1_);
  row->addWidget(combo2_);
  row->addWidget(command1_[1]);
  row->addWidget(command1_[2]);
  connect(combo1_, &QComboBox::activated, this, [this](int index) {
    views_.SetCombo1(index);
    sink_({});
  });
  connect(combo2_, &QComboBox::activated, this, [this](int index) {
    views_.SetCombo2(index);
    sink_({});
  });
}

void MonthTab::ShowModel() {
  const MonthView& m = views_.Month();
  const QPalette& pal = palette();
  const QColor red = ViewColor(DayColor::Red, pal);
  for (std::size_t i = 0; i < heads_.size(); ++i) {
    QPalette headPalette = heads_[i]->palette();
    headPalette.setColor(QPalette::WindowText, ViewColor(m.Heads()[i], pal));
    heads_[i]->setPalette(headPalette);
  }
  for (int c = 0; c < kMonthCells; ++c) {
    const auto i = static_cast<std::size_t>(c);
    const MonthCell& cell = m.Cell(c);
    const QColor back = ViewColor(cell.back, pal);
    plates_[i]->SetBack(back);
    plates_[i]->setEnabled(cell.enabled);
    numbers_[i]->Set(QString::fromStdString(cell.dayText), ViewColor(cell.dayColor, pal));
    names_[i]->Set(QString::fromStdString(cell.holidayName), red, back);
    lists_[i]->Show(cell, back);
  }
  FitNames();
  PlaceComDt();
  const QSignalBlocker block1(combo1_);
  const QSignalBlocker block2(combo2_);
  combo1_->setCurrentIndex(views_.Combo1Index);
  combo2_->setCurrentIndex(views_.Combo2Index);
}

void MonthTab::FitNames() {
  // A long name runs on over the next cell's number, but stops short of a name there.
  for (int c = 0; c < kMonthCells; ++c) {
    const auto i = static_cast<std::size_t>(c);
    const bool nameNext = c % 7 != 6 && !views_.Month().Cell(c + 1).holidayName.empty();
    names_[i]->SetTextWidth(nameNext ? names_[i + 1]->x() - names_[i]->x() - 4 : -1);
  }
}

void MonthTab::PlaceComDt() {
  for (CellList* list : lists_) list->KeepClear({});
  const int cell = views_.Month().SelectedCell;
  if (!views_.Month().ComDtVisible || cell < 0 || !laidOut_) {
    comDt_->hide();
    return;
  }
  const int side = fontMetrics().height();
  const RectF place = sched::PlaceComDt(layout_, cell, side + 2, side);
  comDt_->setGeometry(PixelRect(place).adjusted(-2, -2, -2, -2));
  comDt_->show();
  comDt_->raise();
  CellList* list = lists_[static_cast<std::size_t>(cell)];
  list->KeepClear(comDt_->geometry().translated(-list->pos()));
}

void MonthTab::ApplyLayout(const FormLayout& layout) {
  layout_ = layout;
  laidOut_ = true;
  for (std::size_t i = 0; i < heads_.size(); ++i)
    heads_[i]->setGeometry(PixelRect(layout.Label8[i]));
  for (std::size_t c = 0; c < plates_.size(); ++c) {
    const QRect plate = PixelRect(layout.Label9[c]);
    plates_[c]->setGeometry(plate);
    // The parts stay inside the plate's frame, which draws the grid's lines, and clear of the
    // next cells' plates, which lie over this one's right and bottom edges.
    QRect inside = plate.adjusted(1, 1, -1, -1);
    if (c % 7 != 6)
      inside.setRight(std::min(inside.right(), PixelRect(layout.Label9[c + 1]).left() - 1));
    if (c + 7 < plates_.size()) {
      inside.setBottom(std::min(inside.bottom(), PixelRect(layout.Label9[c + 7]).top() - 1));
    }
    numbers_[c]->setGeometry(PixelRect(layout.Label1[c]).intersected(inside));
    // The name keeps its full width over the next cell; only the last column cuts it.
    QRect name = PixelRect(layout.Label2[c]);
    name.setTop(std::max(name.top(), inside.top()));
    name.setBottom(std::min(name.bottom(), inside.bottom()));
    names_[c]->setGeometry(c % 7 == 6 ? name.intersected(inside) : name);
    lists_[c]->setGeometry(PixelRect(layout.Grid1[c]).intersected(inside));
  }
  FitNames();
  PlaceComDt();
}

}  // namespace sched
