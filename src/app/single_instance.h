#pragma once

#include <QLocalServer>
#include <QObject>
#include <functional>

namespace sched {

// One running program for each user and settings folder: a later start asks the running one
// to come to the front and ends. Nothing else passes between them. They meet at a socket in a
// folder of the user's own.
class SingleInstance : public QObject {
  Q_OBJECT

 public:
  SingleInstance();

  // True when another instance of this user runs; it has been asked to come to the front.
  bool ActivateRunningInstance();
  // From now on, a later start runs `activate`.
  void Listen(std::function<void()> activate);

 private:
  // The socket's path; empty when the user has no folder of their own for it.
  QString path_;
  QLocalServer server_;
  std::function<void()> activate_;
};

}  // namespace sched
