#include "media/sound_preview.h"

#include <cstdio>
#include <filesystem>
#include <optional>

#include "appointments/texts.h"
#include "core/app_texts.h"
#include "media/snd_wave.h"
#include "media/texts.h"
#include "platform/std/safe_file.h"
#include "shell/folder_case.h"

namespace sched {
namespace {

// Names tried when a preview in the same second still holds the first one.
constexpr int kNameTries = 10;

// A new file of our own in the temporary folder, "$$hhnnss.wav", made exclusively so that
// nothing of that name can be followed or taken over; nothing when none can be made.
std::optional<std::string> NewWaveFile(const Clock& clock) {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) return std::nullopt;
  const DateTime now = clock.Now();
  char stem[16];
  std::snprintf(stem, sizeof stem, "$$%02d%02d%02d", now.hour, now.minute, now.second);
  for (int n = 0; n < kNameTries; ++n) {
    const std::string name = std::string(stem) + (n == 0 ? "" : "-" + std::to_string(n)) + ".wav";
    const std::string path = (folder / name).string();
    if (CreateNewFile(path)) return path;
  }
  return std::nullopt;
}

void Warn(Messages& messages, const char* text) {
  messages.Show({text, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

}  // namespace

void PreviewSound(const std::string& sndPath, SoundPreviewServices s) {
  const std::optional<std::string> wavPath = NewWaveFile(s.clock);
  if (!wavPath || !ConvertSndToWav(sndPath, *wavPath, s.progress)) {
    Warn(s.messages, media_texts::kWriteError);
  } else if (!s.player.PlayAndWait(*wavPath)) {
    Warn(s.messages, media_texts::kCannotRunPlayer);
  }
  std::error_code ignored;
  if (wavPath) std::filesystem::remove(*wavPath, ignored);
}

void PreviewAlarmSound(const std::string& soundDir, const std::string& name,
                       SoundPreviewServices s) {
  // A name is one file of the folder: a typed name that reaches into others finds nothing.
  const bool plainName = !name.empty() && name.find_first_of("/\\") == std::string::npos;
  const std::filesystem::path file = ResolveIgnoringCase(soundDir, name + ".snd");
  std::error_code error;
  if (!plainName || !std::filesystem::is_regular_file(file, error)) {
    Warn(s.messages, appointment_texts::kNotFoundSound);
    return;
  }
  PreviewSound(file.string(), s);
}

}  // namespace sched
