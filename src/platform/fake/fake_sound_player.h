#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/sound_player.h"

namespace sched {

// A player that tests set up and look at: it notes each file it is given and its size while
// it plays, since the caller deletes the file afterwards.
class FakeSoundPlayer : public SoundPlayer {
 public:
  bool output = true;
  bool starts = true;
  std::vector<std::string> played;  // the paths given
  std::vector<std::uintmax_t> sizes;

  bool HasOutput() override { return output; }
  bool PlayAndWait(const std::string& wavPath) override {
    played.push_back(wavPath);
    std::error_code error;
    sizes.push_back(std::filesystem::file_size(wavPath, error));
    return starts;
  }
};

}  // namespace sched
