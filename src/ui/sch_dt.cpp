#include "ui/sch_dt.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "views/view_texts.h"

namespace sched {

SchDT::SchDT(CalendarViews& views, Messages& messages, ViewActionSink sink, PopupSink popup,
             QWidget* parent)
    : QDialog(parent, Qt::Tool),
      views_(views),
      messages_(messages),
      sink_(std::move(sink)),
      popup_(std::move(popup)) {
  setObjectName("SchDT");
  setWindowTitle(view_texts::kScheduleListCaption);
  setModal(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  list1_ = new QListWidget(this);
  list1_->setObjectName("List1");
  list1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list1_->setUniformItemSizes(true);
  list1_->installEventFilter(this);
  list1_->viewport()->installEventFilter(this);
  layout->addWidget(list1_);
  connect(list1_, &QListWidget::itemDoubleClicked, this, &SchDT::Activate);
  // The item commands act on the line the keys or the mouse moved to.
  connect(list1_, &QListWidget::itemSelectionChanged, this, [this] {
    const ListSelection selection = SelectionOf(list1_);
    views_.List().Select(selection.row, selection.rowSel);
  });
  resize(340, 190);
}

void SchDT::ShowModel(double twipsPerPixel) {
  const ScheduleList& list = views_.List();
  if (!list.Visible) {
    if (isVisible()) hide();
    return;
  }
  setWindowTitle(QString::fromStdString(list.Caption));
  {
    const QSignalBlocker block(list1_);
    list1_->clear();
    for (const std::string& line : list.Lines) list1_->addItem(QString::fromStdString(line));
    if (list.Row >= 0 && list.Row < list1_->count()) list1_->setCurrentRow(list.Row);
  }
  move(Pixels(list.Position.left, twipsPerPixel), Pixels(list.Position.top, twipsPerPixel));
  if (!isVisible()) show();
}

void SchDT::Hide() {
  views_.List().Form_KeyDown(kKeyEscape);
  hide();
  sink_({});
}

void SchDT::Activate() {
  sink_(views_.List().List1_DblClick());
}

void SchDT::reject() {
  Hide();
}

void SchDT::keyPressEvent(QKeyEvent* event) {
  switch (ViewKeyOf(event->key())) {
    case kKeyEscape: Hide(); return;
    default: QDialog::keyPressEvent(event);
  }
}

bool SchDT::eventFilter(QObject* watched, QEvent* event) {
  ScheduleList& list = views_.List();
  if (watched == list1_->viewport() && event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const ListSelection selection = SelectionOf(list1_);
    if (mouse->button() == Qt::LeftButton) {
      list.List1_Click(selection.row, selection.rowSel, messages_);
    } else if (mouse->button() == Qt::RightButton) {
      list.Select(selection.row, selection.rowSel);
      popup_(list.Popup(views_.ClipboardFull()));
      return true;
    }
  }
  if (watched == list1_ && event->type() == QEvent::KeyPress) {
    const int key = ViewKeyOf(static_cast<QKeyEvent*>(event)->key());
    if (key == kKeyEnter) {
      Activate();
      return true;
    }
    if (key == kKeyEscape) {
      Hide();
      return true;
    }
    if (key == kKeyDelete) {
      sink_({ViewCommand::DeleteSchedule, -1, {}});
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace sched
