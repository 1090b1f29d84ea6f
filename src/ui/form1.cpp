#include "ui/form1.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
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

Form1::Form1(const NoticeForm& form, QWidget* mainWindow, NoticeAnswerEvent answer)
    : QWidget(mainWindow, Qt::Window),
      mainWindow_(mainWindow),
      id_(form.Id),
      answer_(std::move(answer)) {
  setObjectName("Form1");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(Q(form.Caption));
  auto* grid = new QGridLayout(this);
  int row = 0;
  if (!form.Missed.empty()) {
    auto* missed = new QLabel(Q(form.Missed));
    missed->setObjectName("LabelMissed");
    grid->addWidget(missed, row++, 0, 1, 2);
  }
  QLabel* title = AddRow(grid, row++, alarm_texts::kTitleLabel, form.Label1, "Label1");
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  AddRow(grid, row++, alarm_texts::kDateLabel, form.Label2[0], "Label2_0");
  AddRow(grid, row++, alarm_texts::kTimeLabel, form.Label2[1], "Label2_1");
  AddRow(grid, row++, alarm_texts::kPlaceLabel, form.Label2[2], "Label2_2");
  auto* memo = new QPlainTextEdit(Q(form.Text1).replace("\r\n", "\n"));
  memo->setObjectName("Text1");
  memo->setReadOnly(true);
  memo->setMinimumHeight(memo->fontMetrics().lineSpacing() * 5);
  grid->addWidget(new QLabel(alarm_texts::kMemoLabel), row, 0, Qt::AlignTop);
  grid->addWidget(memo, row, 1);
  grid->setRowStretch(row++, 1);
  grid->setColumnStretch(1, 1);

  auto* buttons = new QHBoxLayout;
  auto* snoozeFor = new QComboBox;
  snoozeFor->setObjectName("ComboSnooze");
  for (const alarm_texts::SnoozeChoice& choice : alarm_texts::kSnoozeChoices) {
    snoozeFor->addItem(choice.text, choice.minutes);
  }
  auto* snooze = new QPushButton(alarm_texts::kSnoozeButton);
  snooze->setObjectName("CommandSnooze");
  auto* close = new QPushButton(alarm_texts::kCloseButton);
  close->setObjectName("Command1");
  close->setDefault(true);
  buttons->addWidget(snoozeFor);
  buttons->addWidget(snooze);
  buttons->addStretch(1);
  buttons->addWidget(close);
  grid->addLayout(buttons, row, 0, 1, 2);
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  // The engine closes the window once it has taken the snooze.
  connect(snooze, &QPushButton::clicked, this, [this, snoozeFor] {
    if (answer_) answer_(id_, snoozeFor->currentData().toInt());
  });

  resize(sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * 48, 0)));
  CentreOnScreen(this);
}

void Form1::closeEvent(QCloseEvent* event) {
  event->accept();
  if (answer_) answer_(id_, 0);
  if (mainWindow_ != nullptr && mainWindow_->isVisible()) mainWindow_->activateWindow();
}

void QtNoticeWindows::OpenNoticeWindow(const PendingNotice& notice) {
  std::erase_if(NoticeWindows, [](const QPointer<Form1>& window) { return window.isNull(); });
  auto* window = new Form1(MakeNoticeForm(notice, dates_), mainWindow_, answer_);
  window->show();
  window->raise();
  window->activateWindow();
  NoticeWindows.emplace_back(window);
}

void QtNoticeWindows::CloseNoticeWindow(int id) {
  for (const QPointer<Form1>& window : NoticeWindows) {
    if (window != nullptr && window->NoticeId() == id) window->close();
  }
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
