#include "app/single_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <iostream>

#include "app/user_runtime.h"

namespace sched {

SingleInstance::SingleInstance() {
  // The socket lies in a folder that only this user can reach, so that nobody else can pose as
  // a running program and keep this one from starting. The settings folder is part of the
  // name, so that a program run on other settings (a test, another profile) is another
  // instance.
  const std::optional<std::string> folder = UserRuntimeFolder(
      qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString(), QDir::tempPath().toStdString());
  if (!folder) {
    std::cerr << "scheduler: no folder of this user's own for the program's socket: a later "
                 "start will not find this one\n";
    return;
  }
  const QByteArray settings =
      QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toUtf8();
  path_ = QString::fromStdString(*folder) + "/Scheduler-" +
          QString::fromLatin1(
              QCryptographicHash::hash(settings, QCryptographicHash::Sha1).toHex().left(12));
}

bool SingleInstance::ActivateRunningInstance() {
  // Only a socket of this user's own program counts; anything else is a leftover, taken over
  // by Listen.
  if (path_.isEmpty() || !IsOwnSocket(path_.toStdString())) return false;
  QLocalSocket socket;
  socket.connectToServer(path_);
  if (!socket.waitForConnected(500) ||
      !PeerIsThisUser(static_cast<int>(socket.socketDescriptor()))) {
    return false;
  }
  socket.write("activate\n");
  socket.waitForBytesWritten(500);
  socket.disconnectFromServer();
  return true;
}

void SingleInstance::Listen(std::function<void()> activate) {
  if (path_.isEmpty()) return;
  activate_ = std::move(activate);
  // A socket left behind by a program that crashed answers nobody: take its place.
  QLocalServer::removeServer(path_);
  server_.listen(path_);
  connect(&server_, &QLocalServer::newConnection, this, [this] {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
      connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
      if (activate_ && PeerIsThisUser(static_cast<int>(socket->socketDescriptor()))) activate_();
    }
  });
}

}  // namespace sched
