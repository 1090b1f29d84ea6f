#pragma once

#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QRadioButton>
#include <QSpinBox>
#include <array>

#include "link/form_dip_model.h"

namespace sched {

// "Import": the import options of the data link over their model. The window copies values
// only; what they mean is the model's.
class FormDip : public QDialog {
  Q_OBJECT

 public:
  FormDip(FormDipModel& model, QWidget* parent);

 private:
  void ShowModel();
  QDateEdit* AddDateBox(const char* name, int index);

  FormDipModel& model_;
  std::array<QRadioButton*, 3> dipType_{};
  std::array<QRadioButton*, 3> kikan_{};
  QSpinBox* kikanWeek_ = nullptr;
  std::array<QDateEdit*, 2> kikanDate_{};
  QComboBox* sound_ = nullptr;
};

}  // namespace sched
