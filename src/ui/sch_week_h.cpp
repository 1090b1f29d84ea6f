#include "ui/sch_week_h.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "holidays/holiday_texts.h"
#include "ui/holiday_dialog_support.h"
#include "ui/screen_place.h"

namespace sched {

HolidayCaption::HolidayCaption(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setAutoFillBackground(true);
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  setMinimumSize(48, 28);
  setCursor(Qt::PointingHandCursor);
  SetLook(look_);
}

void HolidayCaption::SetLook(const CaptionLook& look) {
  look_ = look;
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, FormColor(look.ForeColor, parentWidget()->palette()));
  colours.setColor(QPalette::Window, FormColor(look.BackColor, parentWidget()->palette()));
  setPalette(colours);
  update();
}

void HolidayCaption::mousePressEvent(QMouseEvent* event) {
  QLabel::mousePressEvent(event);
  emit clicked();
}

void HolidayCaption::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!look_.FocusMark) return;
  QPainter painter(this);
  QPen pen(palette().color(QPalette::WindowText), 1, Qt::DotLine);
  painter.setPen(pen);
  painter.drawRect(rect().adjusted(2, 2, -3, -3));
}

SchWeekH::SchWeekH(SchWeekHModel& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("SchWeekH");
  setWindowTitle(holiday_texts::kSettingHoliday);

  auto* layout = new QVBoxLayout(this);
  auto* days = new QHBoxLayout();
  days->setSpacing(2);
  for (int i = 0; i < 7; ++i) {
    auto* caption = new HolidayCaption(holiday_texts::kWeekdayCaptions[i], this);
    caption->setObjectName(QString("CSCaption1(%1)").arg(i));
    connect(caption, &HolidayCaption::clicked, this, [this, i] {
      model_.CSCaption1_Click(i);
      ShowModel();
    });
    captions_[static_cast<std::size_t>(i)] = caption;
    days->addWidget(caption);
  }
  layout->addLayout(days);

  setReset_ = new QPushButton(holiday_texts::kSetReset, this);
  setReset_->setObjectName("SetReset");
  connect(setReset_, &QPushButton::clicked, this, [this] {
    model_.SetReset_Click();
    ShowModel();
  });
  layout->addWidget(setReset_, 0, Qt::AlignHCenter);

  const OkCancelButtons buttons = AddOkCancel(
      this, layout, "Command2", "&OK", [this] { model_.Command2_Click(); }, "Command1", "&Cancel",
      [this] { model_.Command1_Click(); });
  command2_ = buttons.ok;
  command1_ = buttons.cancel;

  new KeyDownFilter(this, [this](int key) {
    const bool used = model_.Form_KeyDown(key);
    if (used) ShowModel();
    return used;
  });

  model_.Form_Load();
  ShowModel();
  setReset_->setFocus();
  CentreOnScreen(this);
}

void SchWeekH::reject() {
  if (model_.Form_QueryUnload()) QDialog::reject();
}

void SchWeekH::ShowModel() {
  for (int i = 0; i < 7; ++i) {
    captions_[static_cast<std::size_t>(i)]->SetLook(
        model_.CSCaption1()[static_cast<std::size_t>(i)]);
  }
}

}  // namespace sched
