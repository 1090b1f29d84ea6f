#include "ui/form1.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "alarms/texts.h"
#include "ui/screen_place.h"

namespace sched {
namespace {

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

QLabel* AddRow(QGridLayout* grid, int row, const char* caption, const std::string& text,
               const QString& name) {
  auto* label = new QLabel(caption);
  auto* value = new QLabel(Q(text));
  value->setObjectName(name);
  value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  value->setWordWrap(true);
  grid->addWidget(label, row, 0, Qt::AlignTop);
  grid->addWidget(value, row, 1);
  return value;
}

}  // namespace

Form1::Form1(const NoticeForm& form, QWidget* mainWindow)
    : QWidget(mainWindow, Qt::Window), mainWindow_(mainWindow) {
  setObjectName("Form1");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(Q(form.Caption));
  auto* grid = new QGridLayout(this);
  QLabel* title = AddRow(grid, 0, alarm_texts::kTitleLabel, form.Label1, "Label1");
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  AddRow(grid, 1, alarm_texts::kDateLabel, form.Label2[0], "Label2_0");
  AddRow(grid, 2, alarm_texts::kTimeLabel, form.Label2[1], "Label2_1");
  AddRow(grid, 3, alarm_texts::kPlaceLabel, form.Label2[2], "Label2_2");
  auto* memo = new QPlainTextEdit(Q(form.Text1).replace("\r\n", "\n"));
  memo->setObjectName("Text1");
  memo->setReadOnly(true);
  memo->setMinimumHeight(memo->fontMetrics().lineSpacing() * 5);
  grid->addWidget(new QLabel(alarm_texts::kMemoLabel), 4, 0, Qt::AlignTop);
  grid->addWidget(memo, 4, 1);
  grid->setRowStretch(4, 1);
  grid->setColumnStretch(1, 1);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* close = buttons->addButton(alarm_texts::kCloseButton, QDialogButtonBox::AcceptRole);
  close->setObjectName("Command1");
  close->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &QWidget::close);
  grid->addWidget(buttons, 5, 0, 1, 2);

  resize(sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * 48, 0)));
  CentreOnScreen(this);
}

void Form1::closeEvent(QCloseEvent* event) {
  event->accept();
  if (mainWindow_ != nullptr && mainWindow_->isVisible()) mainWindow_->activateWindow();
}

void QtNoticeWindows::OpenNoticeWindow(const PendingNotice& notice) {
  std::erase_if(NoticeWindows, [](const QPointer<Form1>& window) { return window.isNull(); });
  auto* window = new Form1(MakeNoticeForm(notice, dates_), mainWindow_);
  window->show();
  window->raise();
  window->activateWindow();
  NoticeWindows.emplace_back(window);
}

void QtNoticeWindows::CloseNoticeWindows() {
  for (const QPointer<Form1>& window : NoticeWindows) {
    if (window != nullptr) window->close();
  }
  NoticeWindows.clear();
}

std::vector<QWidget*> QtNoticeWindows::OpenWindows() const {
  std::vector<QWidget*> open;
  for (const QPointer<Form1>& window : NoticeWindows) {
    if (window != nullptr) open.push_back(window);
  }
  return open;
}

}  // namespace sched
