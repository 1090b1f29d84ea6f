#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <array>

#include "holidays/sch_week_h_model.h"

namespace sched {

// A weekday caption of the weekly dialog (CSCaption): its colours, a dotted focus mark, and a
// click.
class HolidayCaption : public QLabel {
  Q_OBJECT

 public:
  HolidayCaption(const QString& text, QWidget* parent);
  void SetLook(const CaptionLook& look);
  const CaptionLook& Look() const { return look_; }

 signals:
  void clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  CaptionLook look_;
};

// The weekly holiday dialog: shows its model and hands it the user's clicks and keys.
class SchWeekH : public QDialog {
  Q_OBJECT

 public:
  // Loads the model: the dialog opens with the flags of the document.
  explicit SchWeekH(SchWeekHModel& model, QWidget* parent = nullptr);

  HolidayCaption* CSCaption1(int index) const { return captions_[static_cast<std::size_t>(index)]; }
  QPushButton* SetReset() const { return setReset_; }
  QPushButton* Command1() const { return command1_; }
  QPushButton* Command2() const { return command2_; }

  // Closing by the close box or Escape: the model may ask, and may refuse.
  void reject() override;

 private:
  void ShowModel();

  SchWeekHModel& model_;
  std::array<HolidayCaption*, 7> captions_{};
  QPushButton* setReset_ = nullptr;
  QPushButton* command1_ = nullptr;
  QPushButton* command2_ = nullptr;
};

}  // namespace sched
