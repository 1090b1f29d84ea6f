#pragma once

namespace sched {

// Holds alarm notices back while a dialog blocks the window: an alarm that comes due meanwhile
// beeps at once, and its notice window opens when the last dialog closes, never under one.
class NoticeGate {
 public:
  virtual ~NoticeGate() = default;
  virtual void HoldNotices() = 0;
  // The notices that came due since the outermost hold open now.
  virtual void ReleaseNotices() = 0;
};

// Holds the notices for as long as it lives: around a dialog, whatever way its command ends.
class NoticesHeldWhile {
 public:
  explicit NoticesHeldWhile(NoticeGate& gate) : gate_(gate) { gate_.HoldNotices(); }
  ~NoticesHeldWhile() { gate_.ReleaseNotices(); }
  NoticesHeldWhile(const NoticesHeldWhile&) = delete;
  NoticesHeldWhile& operator=(const NoticesHeldWhile&) = delete;

 private:
  NoticeGate& gate_;
};

}  // namespace sched
