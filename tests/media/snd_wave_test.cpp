#include "media/snd_wave.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "platform/fake/fake_progress_window.h"
#include "tests/support/case_file.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

std::string FromHex(const std::string& hex) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

std::uint64_t Fnv1a64(const std::vector<std::uint8_t>& bytes) {
  std::uint64_t hash = 0xCBF29CE484222325u;
  for (std::uint8_t b : bytes) hash = (hash ^ b) * 0x100000001B3u;
  return hash;
}

std::uint32_t U32At(const std::vector<std::uint8_t>& bytes, std::size_t at) {
  return bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 | std::uint32_t{bytes[at + 3]} << 24;
}

struct Rendered {
  bool ok = false;
  SndProblem problem = SndProblem::None;
  std::vector<std::uint8_t> wav;
  bool wavExists = false;
};

Rendered Render(const TempDir& dir, const std::string& snd, ProgressWindow* progress = nullptr) {
  Rendered r;
  const std::string out = dir.File("out.wav");
  std::filesystem::remove(out);
  r.ok = ConvertSndToWav(dir.Write("in.snd", snd), out, progress, &r.problem);
  r.wavExists = std::filesystem::exists(out);
  if (r.wavExists) r.wav = ReadBytes(out);
  return r;
}

// The sample bytes of a rendered WAV.
std::vector<std::uint8_t> Samples(const Rendered& r) {
  return {r.wav.begin() + kWaveHeaderBytes, r.wav.end()};
}

TEST(SndWave, TheEmptyMelodyIsTheHeaderAlone) {
  TempDir dir;
  const Rendered r = Render(dir, FromHex("07002000ffff"));
  ASSERT_TRUE(r.ok);
  const std::string expected = FromHex(
      "52494646"          // RIFF
      "24000000"          // 36 bytes follow
      "57415645666d7420"  // WAVE, fmt
      "10000000"
      "0100"
      "0100"
      "22560000"
      "22560000"
      "0100"
      "0800"
      "64617461"
      "00000000");  // data, no bytes
  EXPECT_EQ(std::string(r.wav.begin(), r.wav.end()), expected);
}

// Melody files, good and bad: whether each is rendered, why not, and how many samples it makes.
TEST(SndWave, MelodiesAreRenderedOrRefused) {
  struct Case {
    const char* what;
    const char* hex;
    SndProblem problem;
    std::int64_t samples;
  };
  const Case cases[] = {
      {"one second of A at tempo 16", "070010000044ffff", SndProblem::None, 22050},
      {"a whole note's time of rest", "0700100000 00ffff", SndProblem::None, 88200},
      {"a tone longer than its note", "0700100000 54ffff", SndProblem::None, 22050},
      {"the highest octave that fits", "0700010060 41ffff", SndProblem::None, 344},
      {"tempo 0", "07000000ffff", SndProblem::WrongHeader, 0},
      {"tempo 33", "07002100ffff", SndProblem::WrongHeader, 0},
      {"a first byte other than 7", "06001000ffff", SndProblem::WrongHeader, 0},
      {"a second byte other than 0", "07011000ffff", SndProblem::WrongHeader, 0},
      {"a fourth byte other than 0", "07001001ffff", SndProblem::WrongHeader, 0},
      {"three bytes", "070010", SndProblem::WrongHeader, 0},
      {"no bytes", "", SndProblem::WrongHeader, 0},
      {"no end marker", "070010000044", SndProblem::NoEndMarker, 0},
      {"half an end marker", "070010000044ff", SndProblem::NoEndMarker, 0},
      {"FF with another length", "07001000ff44ffff", SndProblem::NoteOutOfRange, 0},
      {"an octave past its table", "0700010067 41ffff", SndProblem::NoteOutOfRange, 0},
  };
  TempDir dir;
  for (const Case& c : cases) {
    std::string hex = c.hex;
    std::erase(hex, ' ');
    const Rendered r = Render(dir, FromHex(hex));
    EXPECT_EQ(r.problem, c.problem) << c.what;
    EXPECT_EQ(r.ok, c.problem == SndProblem::None) << c.what;
    if (!r.ok) {
      EXPECT_FALSE(r.wavExists) << c.what << ": a refused melody leaves no file";
      continue;
    }
    ASSERT_EQ(r.wav.size(), kWaveHeaderBytes + c.samples) << c.what;
    EXPECT_EQ(U32At(r.wav, 4), r.wav.size() - 8) << c.what;
    EXPECT_EQ(U32At(r.wav, 40), c.samples) << c.what;
  }
}

TEST(SndWave, AMissingFileAndAnHourOfNotesAreRefused) {
  TempDir dir;
  EXPECT_FALSE(ConvertSndToWav(dir.File("none.snd"), dir.File("out.wav"), nullptr));
  EXPECT_FALSE(std::filesystem::exists(dir.File("out.wav")));
  // 451 notes of 8 seconds pass an hour; 100000 short notes do not.
  std::string longest = FromHex("07002000");
  for (int i = 0; i < 451; ++i) longest += FromHex("0040");
  EXPECT_EQ(Render(dir, longest + FromHex("ffff")).problem, SndProblem::TooLong);
  std::string many = FromHex("07000100");
  for (int i = 0; i < 100000; ++i) many += FromHex("0041");
  const Rendered r = Render(dir, many + FromHex("ffff"));
  EXPECT_TRUE(r.ok);
  EXPECT_EQ(r.wav.size(), kWaveHeaderBytes + 100000 * 344);
}

TEST(SndWave, TheToneEndsOnAZeroCrossingAndTheRestIsSilent) {
  TempDir dir;
  // H = 1 of L = 4 at tempo 16: a quarter second of tone in one second.
  const std::vector<std::uint8_t> samples = Samples(Render(dir, FromHex("070010000014ffff")));
  ASSERT_EQ(samples.size(), 22050u);
  const WaveTables tables = BuildWaveTables(kWaveSampleRate);
  const int period = tables.WavePeriod[0];
  // The tone's time ends at sample 5512, its wave at the next whole period.
  const std::size_t toneEnd = (5512 / period + 1) * period;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const std::uint8_t expected = i < toneEnd ? tables.WaveTable[i % period][0] : kSilentSample;
    ASSERT_EQ(samples[i], expected) << "sample " << i;
  }
  EXPECT_EQ(samples[0], 128);
  EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 250);
}

TEST(SndWave, AnOctaveUpReadsTheSameTableAtTwiceTheStep) {
  TempDir dir;
  const std::vector<std::uint8_t> low = Samples(Render(dir, FromHex("070010000044ffff")));
  const std::vector<std::uint8_t> high = Samples(Render(dir, FromHex("070010000c44ffff")));
  ASSERT_EQ(low.size(), high.size());
  const int period = BuildWaveTables(kWaveSampleRate).WavePeriod[0];
  for (std::size_t i = 0; i < 5000; ++i) {
    ASSERT_EQ(high[i], low[(2 * i) % period]) << "sample " << i;
  }
}

// Longer melodies against bytes derived apart from the renderer (tests/media/render_snd.py).
TEST(SndWave, MelodiesMatchTheirReferenceRendering) {
  TempDir dir;
  for (const testing::CaseRow& row : testing::ReadCases("media/melodies.txt", 4, 5)) {
    FakeProgressWindow progress;
    const Rendered r = Render(dir, FromHex(row[1]), &progress);
    ASSERT_TRUE(r.ok) << row.where;
    EXPECT_EQ(r.wav.size(), static_cast<std::size_t>(row.Int(2))) << row.where;
    EXPECT_EQ(Fnv1a64(r.wav), std::stoull(row[3], nullptr, 16)) << row.where << " " << row[0];
    const std::size_t notes = (row[1].size() - 12) / 4;
    EXPECT_TRUE(progress.events.starts_with("open max " + std::to_string(notes) + " 1 "))
        << progress.events;
    EXPECT_TRUE(progress.events.ends_with(" " + std::to_string(notes) + " close"))
        << progress.events;
  }
}

}  // namespace
}  // namespace sched
