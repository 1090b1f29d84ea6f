#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/messages.h"
#include "platform/progress_window.h"
#include "platform/sound_player.h"

namespace sched {

struct SoundPreviewServices {
  Messages& messages;
  SoundPlayer& player;
  const Clock& clock;
  ProgressWindow* progress;  // nullptr for a conversion without a window
};

// The Listen button: renders the melody to a WAV file of its own in the temporary folder,
// plays it and waits, then deletes the file whatever happened. "Write error!" for a melody that
// is refused or cannot be written, "Can not run Sound Player!" when no player starts.
void PreviewSound(const std::string& sndPath, SoundPreviewServices services);

// The alarm sound `name` of the sound folder, its file found without regard to case; "Not found
// sound file!" when there is none.
void PreviewAlarmSound(const std::string& soundDir, const std::string& name,
                       SoundPreviewServices services);

}  // namespace sched
