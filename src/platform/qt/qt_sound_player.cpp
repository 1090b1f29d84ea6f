#include "platform/qt/qt_sound_player.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace sched {
namespace {

// A sound server's socket in the user's runtime folder, or an ALSA playback device.
bool SoundOutputPresent() {
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (!runtime.isEmpty()) {
    for (const char* socket : {"/pipewire-0", "/pulse/native"}) {
      if (QFileInfo::exists(runtime + socket)) return true;
    }
  }
  return !QDir("/dev/snd").entryList({"pcmC*D*p"}, QDir::System).isEmpty();
}

}  // namespace

std::vector<PlayerCommand> QtSoundPlayer::DesktopPlayers() {
  return {{"pw-play", {}}, {"paplay", {}}, {"aplay", {"-q"}}};
}

bool QtSoundPlayer::HasOutput() {
  if (!SoundOutputPresent()) return false;
  for (const PlayerCommand& player : players_) {
    if (!QStandardPaths::findExecutable(player.program).isEmpty()) return true;
  }
  return false;
}

bool QtSoundPlayer::PlayAndWait(const std::string& wavPath) {
  for (const PlayerCommand& player : players_) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(player.program, QStringList(player.args) << QString::fromStdString(wavPath));
    if (!process.waitForStarted()) continue;
    // The dialog that asked for the sound, else the window.
    QPointer<QWidget> owner = QApplication::activeModalWidget();
    if (!owner) owner = owner_;
    if (owner) owner->setEnabled(false);
    // The window repaints while the melody plays; the owner takes no input until it ends.
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    if (process.state() != QProcess::NotRunning) loop.exec();
    if (owner) {
      owner->setEnabled(true);
      owner->raise();
      owner->activateWindow();
    }
    return true;
  }
  return false;
}

}  // namespace sched
