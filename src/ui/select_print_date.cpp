#include "ui/select_print_date.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>

#include "platform/qt/qt_date_formatter.h"
#include "printing/texts.h"
#include "ui/screen_place.h"

namespace sched {
namespace {

CivilDate DateOf(const QDate& date) {
  return {date.year(), date.month(), date.day()};
}

}  // namespace

SelectPrintDate::SelectPrintDate(SelectPrintDateModel& model, QWidget* parent)
    : QDialog(parent), model_(model) {
  setObjectName("SelectPrintDate");
  setWindowTitle(print_texts::kSelectPrintDateCaption);
  auto* layout = new QVBoxLayout(this);
  auto* boxes = new QFormLayout();
  imDate1_ = AddDateBox("ImDate1", model_.Start());
  imDate2_ = AddDateBox("ImDate2", model_.End());
  boxes->addRow("&From:", imDate1_);
  boxes->addRow("&To:", imDate2_);
  layout->addLayout(boxes);
  connect(imDate1_, &QDateEdit::dateChanged, this,
          [this](const QDate& date) { model_.ImDate1_Change(DateOf(date)); });
  connect(imDate2_, &QDateEdit::dateChanged, this,
          [this](const QDate& date) { model_.ImDate2_Change(DateOf(date)); });

  auto* buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton("OK", QDialogButtonBox::AcceptRole);
  ok_->setObjectName("SchEditOK");
  ok_->setDefault(true);
  cancel_ = buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
  cancel_->setObjectName("SchEditCAN");
  connect(ok_, &QPushButton::clicked, this, [this] {
    if (model_.SchEditOK_Click()) accept();
  });
  connect(cancel_, &QPushButton::clicked, this, &SelectPrintDate::reject);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  CentreOnScreen(this);
}

QDateEdit* SelectPrintDate::AddDateBox(const char* name, const CivilDate& date) {
  auto* box = new QDateEdit(QDate(date.year, date.month, date.day), this);
  box->setObjectName(name);
  box->setCalendarPopup(true);
  box->setDisplayFormat(ShortDateFormat());
  box->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
  box->setMinimumWidth(box->sizeHint().width() + box->fontMetrics().averageCharWidth() * 4);
  return box;
}

void SelectPrintDate::reject() {
  model_.SchEditCAN_Click();
  QDialog::reject();
}

}  // namespace sched
