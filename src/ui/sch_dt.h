#pragma once

#include <QDialog>
#include <QListWidget>
#include <functional>

#include "platform/messages.h"
#include "ui/view_widgets.h"
#include "views/calendar_views.h"

namespace sched {

// The schedule list dialog: the selected date's items in a readable list, floating under (or
// above) the selected cell. It is made once and shown and hidden after that.
class SchDT : public QDialog {
 public:
  using PopupSink = std::function<void(const PopupItems&)>;

  SchDT(CalendarViews& views, Messages& messages, ViewActionSink sink, PopupSink popup,
        QWidget* parent);

  // Shows the dialog's state in the views: shown or hidden, caption, lines and place. Twips
  // become pixels at `twipsPerPixel`.
  void ShowModel(double twipsPerPixel);
  QListWidget* List1() const { return list1_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Hide();
  void Activate();

  CalendarViews& views_;
  Messages& messages_;
  ViewActionSink sink_;
  PopupSink popup_;
  QListWidget* list1_ = nullptr;
};

}  // namespace sched
