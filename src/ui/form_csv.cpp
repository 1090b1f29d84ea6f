#include "ui/form_csv.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "ui/screen_place.h"

namespace sched {

void FormCsvTimer::OnTick(std::function<void()> routine) {
  timer_.OnTick([this, routine = std::move(routine)] {
    routine();
    if (afterTick) afterTick();
  });
}

FormCsv::FormCsv(FormCsvModel& model, FormCsvTimer& timer, QWidget* parent)
    : QDialog(parent), model_(model) {
  setObjectName("FormCSV");
  setWindowTitle("CSV Settings");
  timer.afterTick = [this] { ShowModel(); };

  auto* layout = new QVBoxLayout(this);
  auto* lists = new QGridLayout();
  const auto addList = [&](const char* name, const char* caption, int column) {
    auto* list = new QListWidget(this);
    list->setObjectName(name);
    list->setMinimumWidth(150);
    list->setMinimumHeight(220);
    lists->addWidget(new QLabel(caption, this), 0, column);
    lists->addWidget(list, 1, column);
    return list;
  };
  fieldList_ = addList("FieldList", "Items", 0);
  auto* middle = new QVBoxLayout();
  lists->addLayout(middle, 1, 1);
  csvList_ = addList("CsvList", "CSV items", 2);
  fileField_ = addList("FileField", "Reference", 3);
  auto* side = new QVBoxLayout();
  lists->addLayout(side, 1, 4);
  layout->addLayout(lists);

  middle->addWidget(AddButton("cbtAdd", "Add", &FormCsvModel::cbtAdd_Click));
  middle->addWidget(AddButton("cbtMod", "Update", &FormCsvModel::cbtMod_Click));
  middle->addWidget(AddButton("cbtDelete", "Delete", &FormCsvModel::cbtDelete_Click));
  middle->addSpacing(12);
  middle->addWidget(AddButton("cbtAllAdd", "Default Setting", &FormCsvModel::cbtAllAdd_Click));
  middle->addWidget(AddButton("cbtAllDel", "Delete All", &FormCsvModel::cbtAllDel_Click));
  middle->addStretch();

  auto* up = new QPushButton("Move U&p", this);
  up->setObjectName("CbtUp");
  auto* down = new QPushButton("Move Do&wn", this);
  down->setObjectName("cbtDown");
  connect(up, &QPushButton::pressed, this,
          [this] { Handle([this] { model_.CbtUp_MouseDown(); }); });
  connect(down, &QPushButton::pressed, this,
          [this] { Handle([this] { model_.cbtDown_MouseDown(); }); });
  for (QPushButton* button : {up, down}) {
    connect(button, &QPushButton::released, this,
            [this] { Handle([this] { model_.MoveButton_MouseUp(); }); });
    side->addWidget(button);
  }
  side->addSpacing(12);
  side->addWidget(AddButton("CbtRead", "Display &Reference", &FormCsvModel::CbtRead_Click));
  side->addWidget(AddButton("CbtReadClr", "Clear Refere&nce", &FormCsvModel::CbtReadClr_Click));
  side->addStretch();

  chkL1isField_ = new QCheckBox("&The 1st row is header", this);
  chkL1isField_->setObjectName("ChkL1isField");
  connect(chkL1isField_, &QCheckBox::toggled, this,
          [this](bool on) { Handle([this, on] { model_.ChkL1isField_Click(on); }); });
  layout->addWidget(chkL1isField_);

  auto* buttons = new QHBoxLayout();
  buttons->addStretch();
  auto* ok = new QPushButton("&OK", this);
  ok->setObjectName("cbtEndOK");
  ok->setDefault(true);
  auto* cancel = new QPushButton("&Cancel", this);
  cancel->setObjectName("cbtEndCancel");
  connect(ok, &QPushButton::clicked, this, [this] {
    bool closes = false;
    Handle([this, &closes] { closes = model_.cbtEnd_Click(); });
    if (closes) accept();
  });
  connect(cancel, &QPushButton::clicked, this, &FormCsv::reject);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);

  connect(fieldList_, &QListWidget::currentRowChanged, this,
          [this](int row) { Handle([this, row] { model_.FieldList_Click(row); }); });
  connect(csvList_, &QListWidget::currentRowChanged, this,
          [this](int row) { Handle([this, row] { model_.CsvList_Click(row); }); });
  connect(fileField_, &QListWidget::currentRowChanged, this,
          [this](int row) { Handle([this, row] { model_.FileField_Click(row); }); });
  connect(csvList_->verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int top) { Handle([this, top] { model_.CsvList_Scroll(top); }); });
  connect(fileField_->verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int top) { Handle([this, top] { model_.FileField_Scroll(top); }); });

  ShowModel();
  adjustSize();
  CentreOnScreen(this);
}

QPushButton* FormCsv::Button(const QString& name) const {
  return findChild<QPushButton*>(name);
}

QPushButton* FormCsv::AddButton(const char* name, const char* caption,
                                void (FormCsvModel::*handler)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this,
          [this, handler] { Handle([this, handler] { (model_.*handler)(); }); });
  return button;
}

template <typename Handler>
void FormCsv::Handle(Handler handler) {
  if (showing_) return;  // the widgets follow the model, not the other way round
  handler();
  ShowModel();
}

void FormCsv::ShowList(QListWidget* list, const QStringList& rows, int index, int top) {
  const QSignalBlocker block(list);
  const QSignalBlocker blockScroll(list->verticalScrollBar());
  QStringList shown;
  for (int i = 0; i < list->count(); ++i) shown << list->item(i)->text();
  if (shown != rows) {
    list->clear();
    list->addItems(rows);
  }
  list->setCurrentRow(index);
  list->verticalScrollBar()->setValue(top);
}

void FormCsv::ShowModel() {
  showing_ = true;
  const FormCsvControls& c = model_.Controls();
  QStringList fields;
  for (const CsvListEntry& entry : c.FieldList) fields << QString::fromStdString(entry.text);
  QStringList columns;
  for (const CsvListEntry& entry : c.CsvList) columns << QString::fromStdString(entry.text);
  QStringList reference;
  for (const std::string& item : c.FileField) reference << QString::fromStdString(item);
  ShowList(fieldList_, fields, c.FieldListIndex, fieldList_->verticalScrollBar()->value());
  ShowList(csvList_, columns, c.CsvListIndex, c.CsvListTop);
  ShowList(fileField_, reference, c.FileFieldIndex, c.FileFieldTop);
  {
    const QSignalBlocker block(chkL1isField_);
    chkL1isField_->setChecked(c.ChkL1isField);
  }
  showing_ = false;
}

void FormCsv::reject() {
  bool closes = false;
  Handle([this, &closes] { closes = model_.QueryUnload(); });
  if (closes) QDialog::reject();
}

}  // namespace sched
