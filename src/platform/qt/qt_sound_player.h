#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <vector>

#include "platform/sound_player.h"

namespace sched {

// A player program of the desktop and the arguments it takes before the file's name.
struct PlayerCommand {
  QString program;
  QStringList args;
};

// Plays through the first player program of the list that starts, with no shell between. The
// owner window is disabled while it plays and brought forward after.
class QtSoundPlayer : public SoundPlayer {
 public:
  // PipeWire's, PulseAudio's and ALSA's players, in that order.
  static std::vector<PlayerCommand> DesktopPlayers();

  explicit QtSoundPlayer(std::vector<PlayerCommand> players = DesktopPlayers())
      : players_(std::move(players)) {}
  void SetOwner(QWidget* owner) { owner_ = owner; }

  // A player program is installed and the machine has a sound server or a playback device.
  bool HasOutput() override;
  bool PlayAndWait(const std::string& wavPath) override;

 private:
  std::vector<PlayerCommand> players_;
  QPointer<QWidget> owner_;
};

}  // namespace sched
