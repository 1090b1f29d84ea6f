#include "media/sound_preview.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_progress_window.h"
#include "platform/fake/fake_sound_player.h"
#include "tests/support/message_lines.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

// A sound folder of two melodies, and a temporary folder of its own that must end empty.
struct Preview {
  TempDir dir;
  TempFolder temp{dir.File("tmp")};
  FakeMessages messages;
  FakeSoundPlayer player;
  FakeClock clock{{2026, 11, 21, 9, 5, 7}};
  FakeProgressWindow progress;

  Preview() {
    std::filesystem::create_directories(dir.File("tmp"));
    std::filesystem::create_directories(dir.File("sound"));
    dir.Write("sound/SchAlarm.snd", std::string("\x07\x00\x10\x00\x00\x44\xFF\xFF", 8));
    dir.Write("sound/BAD.snd", std::string("\x07\x00\x21\x00\xFF\xFF", 6));
  }
  void Play(const std::string& name) {
    PreviewAlarmSound(dir.File("sound"), name, {messages, player, clock, &progress});
  }
  std::string Messages() const {
    std::string lines;
    for (const std::string& line : testing::MessageLines(messages)) lines += line;
    return lines;
  }
  bool TempEmpty() const { return std::filesystem::is_empty(dir.File("tmp")); }
};

TEST(SoundPreview, TheMelodyIsPlayedFromAFileOfItsOwnThatIsGoneAfter) {
  struct Case {
    const char* name;
    bool starts;
    const char* message;    // "" for none
    std::uintmax_t played;  // the WAV's size, 0 when nothing played
  };
  const Case cases[] = {
      {"SCHALARM", true, "", 44 + 22050},
      {"schalarm", true, "", 44 + 22050},
      {"SCHALARM", false, "[Scheduler, Exclamation, Ok] Can not run Sound Player!", 44 + 22050},
      {"BAD", true, "[Scheduler, Exclamation, Ok] Write error!", 0},
      {"BELL", true, "[Scheduler, Exclamation, Ok] Not found sound file!", 0},
      {"", true, "[Scheduler, Exclamation, Ok] Not found sound file!", 0},
      {"../sound/SCHALARM", true, "[Scheduler, Exclamation, Ok] Not found sound file!", 0},
  };
  for (const Case& c : cases) {
    Preview p;
    p.player.starts = c.starts;
    p.Play(c.name);
    EXPECT_EQ(p.Messages(), c.message) << c.name;
    EXPECT_TRUE(p.TempEmpty()) << c.name;
    if (c.played == 0) {
      EXPECT_TRUE(p.player.played.empty()) << c.name;
      continue;
    }
    ASSERT_EQ(p.player.played.size(), 1u) << c.name;
    EXPECT_EQ(p.player.played[0], p.dir.File("tmp/$$090507.wav")) << c.name;
    EXPECT_EQ(p.player.sizes[0], c.played) << c.name;
    EXPECT_EQ(p.progress.events, "open max 1 1 close") << c.name;
  }
}

TEST(SoundPreview, ANameTakenByAnotherFileIsLeftAloneForTheNext) {
  Preview p;
  p.dir.Write("tmp/$$090507.wav", "someone's");
  std::filesystem::create_symlink(p.dir.File("elsewhere"), p.dir.File("tmp/$$090507-1.wav"));
  p.Play("SCHALARM");
  ASSERT_EQ(p.player.played.size(), 1u);
  EXPECT_EQ(p.player.played[0], p.dir.File("tmp/$$090507-2.wav"));
  EXPECT_EQ(ReadBytes(p.dir.File("tmp/$$090507.wav")).size(), 9u);
  EXPECT_FALSE(std::filesystem::exists(p.dir.File("elsewhere")));
  EXPECT_FALSE(std::filesystem::exists(p.dir.File("tmp/$$090507-2.wav")));
}

}  // namespace
}  // namespace sched
