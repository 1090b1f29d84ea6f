#include "app/single_instance.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QStandardPaths>

namespace sched {

SingleInstance::SingleInstance() {
  // The settings folder is part of the name, so that a program run on other settings (a test,
  // another profile) is another instance.
  const QByteArray folder =
      QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toUtf8();
  name_ = QString("Scheduler-%1-%2")
              .arg(getuid())
              .arg(QString::fromLatin1(
                  QCryptographicHash::hash(folder, QCryptographicHash::Sha1).toHex().left(12)));
}

bool SingleInstance::ActivateRunningInstance() {
  QLocalSocket socket;
  socket.connectToServer(name_);
  if (!socket.waitForConnected(500)) return false;
  socket.write("activate\n");
  socket.waitForBytesWritten(500);
  socket.disconnectFromServer();
  return true;
}

void SingleInstance::Listen(std::function<void()> activate) {
  activate_ = std::move(activate);
  // A socket left behind by a program that crashed answers nobody: take its place.
  QLocalServer::removeServer(name_);
  server_.listen(name_);
  connect(&server_, &QLocalServer::newConnection, this, [this] {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
      connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
      if (activate_) activate_();
    }
  });
}

}  // namespace sched
