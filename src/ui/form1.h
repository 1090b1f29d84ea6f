#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "alarms/notice_form.h"
#include "alarms/notice_host.h"
#include "platform/date_formatter.h"

namespace sched {

// The notice window of one ringing alarm: what, when and where, and the memo. Closing it gives
// the focus back to the main window.
class Form1 : public QWidget {
 public:
  Form1(const NoticeForm& form, QWidget* mainWindow);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QPointer<QWidget> mainWindow_;
};

// The notice windows of this run: one more for each alarm, shown without waiting, all closed
// when the program ends.
class QtNoticeWindows final : public NoticeHost {
 public:
  explicit QtNoticeWindows(const DateFormatter& dates) : dates_(dates) {}
  void SetMainWindow(QWidget* mainWindow) { mainWindow_ = mainWindow; }

  void OpenNoticeWindow(const PendingNotice& notice) override;
  void CloseNoticeWindows();
  // The notice windows still open, the first opened first.
  std::vector<QWidget*> OpenWindows() const;

 private:
  const DateFormatter& dates_;
  QPointer<QWidget> mainWindow_;
  std::vector<QPointer<Form1>> NoticeWindows;
};

}  // namespace sched
