#include "ui/dlg_select_holiday.h"

#include <QVBoxLayout>

#include "holidays/holiday_texts.h"
#include "ui/holiday_dialog_support.h"
#include "ui/screen_place.h"

namespace sched {

DlgSelectHoliday::DlgSelectHoliday(DlgSelectHolidayModel& model, QWidget* parent)
    : QDialog(parent), model_(model) {
  setObjectName("DlgSelectHoliday");
  setWindowTitle(holiday_texts::kSelectCountry);
  loaded_ = model_.Form_Load();

  auto* layout = new QVBoxLayout(this);
  fileList_ = new QListWidget(this);
  fileList_->setObjectName("FListIniList");
  fileList_->hide();
  for (const std::string& name : model_.FListIniList()) {
    fileList_->addItem(QString::fromStdString(name));
  }

  list_ = new QListWidget(this);
  list_->setObjectName("ListHolidayInfo");
  for (const CountryListItem& item : model_.ListHolidayInfo()) {
    auto* entry = new QListWidgetItem(QString::fromStdString(item.text), list_);
    entry->setData(Qt::UserRole, item.itemData);
  }
  if (model_.ListIndex() >= 0) list_->setCurrentRow(model_.ListIndex());
  // The selection, not the current row: a list that gets the focus makes its first row current
  // without anyone choosing it.
  connect(list_, &QListWidget::itemSelectionChanged, this, [this] {
    const QList<QListWidgetItem*> chosen = list_->selectedItems();
    model_.SetListIndex(chosen.isEmpty() ? -1 : list_->row(chosen.first()));
  });
  layout->addWidget(list_);

  const OkCancelButtons buttons = AddOkCancel(
      this, layout, "OKButton", "OK", [this] { model_.OKButton_Click(); }, "CancelButton", "Cancel",
      [this] { model_.CancelButton_Click(); });
  ok_ = buttons.ok;
  cancel_ = buttons.cancel;

  list_->setFocus();
  resize(360, 240);
  CentreOnScreen(this);
}

int DlgSelectHoliday::exec() {
  return loaded_ ? QDialog::exec() : QDialog::Rejected;
}

void DlgSelectHoliday::open() {
  if (loaded_) QDialog::open();
}

}  // namespace sched
