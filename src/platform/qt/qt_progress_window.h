#pragma once

#include <QPointer>
#include <QProgressDialog>
#include <QWidget>
#include <memory>

#include "platform/progress_window.h"

namespace sched {

// A progress dialog over its owner, shown only when the work lasts long enough to be seen.
class QtProgressWindow : public ProgressWindow {
 public:
  void SetOwner(QWidget* owner) { owner_ = owner; }

  void Open() override;
  void SetMaximum(int maximum) override;
  void SetValue(int value) override;
  void Close() override;

 private:
  QPointer<QWidget> owner_;
  std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace sched
