#pragma once

#include <QCheckBox>
#include <QDateEdit>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <functional>

#include "find/find_model.h"
#include "platform/date_formatter.h"
#include "store/document.h"
#include "ui/find_results.h"

namespace sched {

// The find panel, docked at the window's bottom: a text box, an optional range of dates and
// the items found, by date, updated as the user types. Up and Down in the box move through the
// items; Enter or a double click goes to an item; Escape closes the panel.
class FindPanel : public QDockWidget {
  Q_OBJECT

 public:
  using Pick = std::function<void(const FindResult&)>;

  FindPanel(const ScheduleDocument& doc, const DateFormatter& dates, Pick pick, QWidget* parent);

  // Shows the panel with the box's text selected for typing over; the range starts on the
  // shown date.
  void Open();
  // The search again after the schedule changed, when the panel shows.
  void Refresh();

  QLineEdit* FindText() const { return text_; }
  QTableView* FindList() const { return list_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  FindQuery Query() const;
  void Search();
  void ShowCount();
  void MoveCurrent(int by);
  void PickCurrent();
  void Close();

  const ScheduleDocument& doc_;
  FindModel model_;
  FindResults* results_;
  Pick pick_;
  QLineEdit* text_;
  QCheckBox* fromOn_;
  QDateEdit* from_;
  QCheckBox* toOn_;
  QDateEdit* to_;
  QLabel* count_;
  QTableView* list_;
};

}  // namespace sched
