#pragma once

#include <string>

namespace sched {

// The desktop's sound output.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;
  // Whether the machine has a sound output and a player for it.
  virtual bool HasOutput() = 0;
  // Plays a WAV file and returns when it has ended, the owner window disabled meanwhile;
  // false when no player could be started.
  virtual bool PlayAndWait(const std::string& wavPath) = 0;
};

}  // namespace sched
