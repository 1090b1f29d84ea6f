#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

#include "alarms/notice_form.h"
#include "alarms/notice_host.h"
#include "platform/date_formatter.h"

namespace sched {

// What a notice window tells of the user's answer: `snoozeMinutes` long for Snooze, 0 when it
// was closed.
using NoticeAnswerEvent = std::function<void(int id, int snoozeMinutes)>;

// The notice window of one ringing alarm: what, when and where, and the memo; above the title
// when it was missed. OK closes it, Snooze puts it off for the time chosen beside it. Closing
// it gives the focus back to the main window.
class Form1 : public QWidget {
 public:
  Form1(const NoticeForm& form, QWidget* mainWindow, NoticeAnswerEvent answer);
  int NoticeId() const { return id_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QPointer<QWidget> mainWindow_;
  int id_;
  NoticeAnswerEvent answer_;
};

// The notice windows of this run: one more for each alarm, shown without waiting, all closed
// when the program ends.
class QtNoticeWindows final : public NoticeHost {
 public:
  explicit QtNoticeWindows(const DateFormatter& dates) : dates_(dates) {}
  void SetMainWindow(QWidget* mainWindow) { mainWindow_ = mainWindow; }

  void OpenNoticeWindow(const PendingNotice& notice) override;
  void CloseNoticeWindow(int id) override;
  void SetAnswerEvent(NoticeAnswerEvent event) override { answer_ = std::move(event); }
  void CloseNoticeWindows();
  // The notice windows still open, the first opened first.
  std::vector<QWidget*> OpenWindows() const;

 private:
  const DateFormatter& dates_;
  QPointer<QWidget> mainWindow_;
  NoticeAnswerEvent answer_;
  std::vector<QPointer<Form1>> NoticeWindows;
};

}  // namespace sched
