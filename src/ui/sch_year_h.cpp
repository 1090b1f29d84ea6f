#include "ui/sch_year_h.h"

#include <QVBoxLayout>

#include "holidays/holiday_texts.h"
#include "ui/holiday_dialog_support.h"
#include "ui/screen_place.h"

namespace sched {

SchYearH::SchYearH(SchYearHModel& model, QWidget* parent) : QDialog(parent), model_(model) {
  setObjectName("SchYearH");
  setWindowTitle(holiday_texts::kSettingHoliday);
  model_.Form_Load();

  auto* layout = new QVBoxLayout(this);
  yday_ = new QLabel(QString::fromStdString(model_.Yday()), this);
  yday_->setObjectName("Yday");
  yday_->setAlignment(Qt::AlignCenter);
  QFont large = yday_->font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.2);
  yday_->setFont(large);
  layout->addWidget(yday_);

  // The model's question breaks its line with LF CR; a label needs the LF only.
  label2_ = new QLabel("Designate the above date as a holiday?", this);
  label2_->setObjectName("Label2");
  label2_->setText(QString::fromStdString(model_.Label2()).remove('\r'));
  label2_->setAlignment(Qt::AlignCenter);
  layout->addWidget(label2_);

  // The calendar only shows the date: it stays on its month and on the date.
  const CivilDate& date = model_.CAL();
  const QDate shown(date.year, date.month, date.day);
  cal_ = new QCalendarWidget(this);
  cal_->setObjectName("CAL");
  cal_->setDateRange(QDate(date.year, date.month, 1),
                     QDate(date.year, date.month, 1).addMonths(1).addDays(-1));
  cal_->setSelectedDate(shown);
  cal_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  cal_->setFirstDayOfWeek(Qt::Sunday);
  connect(cal_, &QCalendarWidget::selectionChanged, this, [this, shown] {
    if (cal_->selectedDate() != shown) cal_->setSelectedDate(shown);
  });
  layout->addWidget(cal_);

  const OkCancelButtons buttons = AddOkCancel(
      this, layout, "Command1", "&OK", [this] { model_.Command1_Click(); }, "Command2", "&Cancel",
      [this] { model_.Command2_Click(); });
  command1_ = buttons.ok;
  command2_ = buttons.cancel;

  new KeyDownFilter(this, [this](int key) { return model_.Form_KeyDown(key); });
  command1_->setFocus();
  CentreOnScreen(this);
}

}  // namespace sched
