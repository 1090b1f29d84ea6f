#include "platform/qt/qt_sound_player.h"

#include <gtest/gtest.h>

#include <QStandardPaths>
#include <QTimer>

#include "media/snd_wave.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

// A melody of a second, rendered to a WAV file of the folder.
std::string MelodyFile(const TempDir& dir) {
  const std::string wav = dir.File("one-second.wav");
  EXPECT_TRUE(ConvertSndToWav(dir.Write("a.snd", std::string("\x07\0\x10\0\0\x44\xFF\xFF", 8)), wav,
                              nullptr));
  return wav;
}

// ALSA's player on its null device: the real program, with no sound card needed.
TEST(QtSoundPlayer, PlaysThroughTheFirstPlayerThatStarts) {
  if (QStandardPaths::findExecutable("aplay").isEmpty()) GTEST_SKIP() << "aplay is missing";
  TempDir dir;
  QtSoundPlayer player({{"no-such-player", {}}, {"aplay", {"-q", "-D", "null"}}});
  EXPECT_TRUE(player.PlayAndWait(MelodyFile(dir)));
  QtSoundPlayer none(std::vector<PlayerCommand>{{"no-such-player", {}}});
  EXPECT_FALSE(none.PlayAndWait(MelodyFile(dir)));
  EXPECT_FALSE(none.HasOutput());
}

// A player that takes its time: the owner takes no input until it has ended.
TEST(QtSoundPlayer, TheOwnerIsDisabledWhileItPlays) {
  TempDir dir;
  QWidget owner;
  owner.show();
  bool disabledMeanwhile = false;
  QTimer::singleShot(200, [&] { disabledMeanwhile = !owner.isEnabled(); });
  // A stand-in that waits half a second and leaves the file it is given alone.
  QtSoundPlayer slow(std::vector<PlayerCommand>{{"sh", {"-c", "sleep 0.5", "player"}}});
  slow.SetOwner(&owner);
  EXPECT_TRUE(slow.PlayAndWait(MelodyFile(dir)));
  EXPECT_TRUE(disabledMeanwhile);
  EXPECT_TRUE(owner.isEnabled());
}

}  // namespace
}  // namespace sched
