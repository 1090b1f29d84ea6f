#include "media/snd_wave.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace sched {
namespace {

constexpr std::uint8_t kHeadByte = 7;
constexpr int kLowestTempo = 1;
constexpr int kHighestTempo = 32;
constexpr std::size_t kHeaderBytes = 4;
constexpr std::uint8_t kEndByte = 0xFF;
constexpr double kLowestFrequency = 55.0;
constexpr double kTwoPi = 6.283185307;
// A melody is an alarm sound of seconds; one of more than an hour is refused rather than left
// to fill the disk.
constexpr std::int64_t kLongestMelodySamples = std::int64_t{kWaveSampleRate} * 60 * 60;
constexpr std::size_t kBlockBytes = 256;

int HighNibble(int C) {
  return C >> 4;
}
// The note's time in units of tempo / 256 seconds; 0 means 16.
int TimeUnits(int C) {
  const int low = C & 0x0F;
  return low == 0 ? 16 : low;
}
int OctaveStep(int N) {
  return 1 << (N / kSemitones);
}

void PutU16(std::ostream& out, std::uint16_t value) {
  const char bytes[2] = {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
  out.write(bytes, 2);
}
void PutU32(std::ostream& out, std::uint32_t value) {
  PutU16(out, static_cast<std::uint16_t>(value & 0xFFFF));
  PutU16(out, static_cast<std::uint16_t>(value >> 16));
}

std::optional<std::vector<std::uint8_t>> ReadWholeFile(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
  if (in.bad()) return std::nullopt;
  return bytes;
}

// Renders every note into `wav`, then puts the sizes in the place of the place holders.
bool WriteWave(std::fstream& wav, const SndMelody& melody, const WaveTables& tables,
               ProgressWindow* progress) {
  wav.write("RIFF", 4);
  wav.write("SIZE", 4);
  WriteWaveHeader(wav);
  wav.write("size", 4);
  int done = 0;
  for (const SndNote& note : melody.Notes) {
    AppendNote(wav, tables, note.N, note.C, melody.Tempo);
    if (progress != nullptr) progress->SetValue(++done);
    if (!wav) return false;
  }
  const std::streamoff length = wav.tellp();
  wav.seekp(0);
  wav.write("RIFF", 4);
  PutU32(wav, static_cast<std::uint32_t>(length - 8));
  WriteWaveHeader(wav);
  PutU32(wav, static_cast<std::uint32_t>(length - kWaveHeaderBytes));
  wav.flush();
  return static_cast<bool>(wav);
}

}  // namespace

WaveTables BuildWaveTables(int sampleRate) {
  WaveTables tables;
  std::size_t longest = 0;
  for (int s = 0; s < kSemitones; ++s) {
    const auto frequency = static_cast<float>(std::pow(2.0, (s + 1) / 12.0) * kLowestFrequency);
    const auto period = static_cast<std::int16_t>(static_cast<float>(sampleRate) / frequency);
    tables.WavePeriod[static_cast<std::size_t>(s)] = period;
    longest = std::max(longest, static_cast<std::size_t>(period));
  }
  tables.WaveTable.resize(longest);
  for (std::size_t s = 0; s < kSemitones; ++s) {
    const int period = tables.WavePeriod[s];
    for (int j = 0; j < period; ++j) {
      const double sample = std::sin(kTwoPi * j / period) * 127.5 + 128.0;
      tables.WaveTable[static_cast<std::size_t>(j)][s] = static_cast<std::uint8_t>(sample);
    }
  }
  return tables;
}

std::optional<SndMelody> ParseSnd(std::span<const std::uint8_t> bytes, const WaveTables& tables,
                                  SndProblem& problem) {
  problem = SndProblem::WrongHeader;
  if (bytes.size() < kHeaderBytes || bytes[0] != kHeadByte || bytes[1] != 0 ||
      bytes[2] < kLowestTempo || bytes[2] > kHighestTempo || bytes[3] != 0) {
    return std::nullopt;
  }
  SndMelody melody;
  melody.Tempo = bytes[2];
  std::int64_t samples = 0;
  for (std::size_t at = kHeaderBytes;; at += 2) {
    if (at + 2 > bytes.size()) {
      problem = SndProblem::NoEndMarker;
      return std::nullopt;
    }
    const SndNote note{bytes[at], bytes[at + 1]};
    if (note.N == kEndByte && note.C == kEndByte) break;
    if (OctaveStep(note.N) > tables.WavePeriod[note.N % kSemitones]) {
      problem = SndProblem::NoteOutOfRange;
      return std::nullopt;
    }
    samples += NoteSamples(note.C, melody.Tempo);
    if (samples > kLongestMelodySamples) {
      problem = SndProblem::TooLong;
      return std::nullopt;
    }
    melody.Notes.push_back(note);
  }
  problem = SndProblem::None;
  return melody;
}

std::int64_t NoteSamples(std::uint8_t C, int T) {
  const auto seconds = static_cast<float>(T * TimeUnits(C)) / 64.0f;
  return static_cast<std::int64_t>(seconds * static_cast<float>(kWaveSampleRate));
}

void WriteWaveHeader(std::ostream& wav) {
  wav.write("WAVE", 4);
  wav.write("fmt ", 4);
  PutU32(wav, 16);
  PutU16(wav, 1);  // PCM
  PutU16(wav, 1);  // mono
  PutU32(wav, kWaveSampleRate);
  PutU32(wav, kWaveSampleRate);  // bytes a second
  PutU16(wav, 1);                // bytes a sample
  PutU16(wav, 8);                // bits a sample
  wav.write("data", 4);
}

void AppendNote(std::ostream& wav, const WaveTables& tables, int N, int C, int T) {
  enum State { kSounding, kEnding, kSilent };
  const int step = OctaveStep(N);
  const auto s = static_cast<std::size_t>(N % kSemitones);
  const int period = tables.WavePeriod[s];
  const int H = HighNibble(C);
  const int L = TimeUnits(C);
  const float toneSeconds = static_cast<float>(T * H * L) / 256.0f;
  const float restSeconds = static_cast<float>((4 - H) * T * L) / 256.0f;
  const auto rate = static_cast<float>(kWaveSampleRate);
  const auto toneSamples = static_cast<std::int64_t>(toneSeconds * rate);
  const auto lastSample = static_cast<std::int64_t>((toneSeconds + restSeconds) * rate) - 1;

  State state = toneSamples != 0 ? kSounding : kSilent;
  int pos = 0;
  std::array<char, kBlockBytes> block;
  std::size_t filled = 0;
  for (std::int64_t i = 0; i <= lastSample; ++i) {
    const std::uint8_t sample =
        state == kSilent ? kSilentSample : tables.WaveTable[static_cast<std::size_t>(pos)][s];
    block[filled++] = static_cast<char>(sample);
    if (filled == block.size()) {
      wav.write(block.data(), static_cast<std::streamsize>(filled));
      filled = 0;
    }
    pos += step;
    if (pos >= period) {
      pos -= period;
      if (state == kEnding) state = kSilent;
    }
    if (i >= toneSamples && state == kSounding) state = kEnding;
  }
  wav.write(block.data(), static_cast<std::streamsize>(filled));
}

bool ConvertSndToWav(const std::string& sndPath, const std::string& wavPath,
                     ProgressWindow* progress, SndProblem* problem) {
  SndProblem why = SndProblem::Missing;
  const WaveTables tables = BuildWaveTables(kWaveSampleRate);
  std::optional<SndMelody> melody;
  if (const auto bytes = ReadWholeFile(sndPath)) melody = ParseSnd(*bytes, tables, why);
  if (problem != nullptr) *problem = why;
  if (!melody) return false;

  if (progress != nullptr) {
    progress->Open();
    progress->SetMaximum(static_cast<int>(melody->Notes.size()));
  }
  std::fstream wav(wavPath, std::ios::in | std::ios::out | std::ios::binary | std::ios::trunc);
  const bool written = wav && WriteWave(wav, *melody, tables, progress);
  wav.close();
  if (progress != nullptr) progress->Close();
  if (written) return true;
  std::error_code ignored;
  std::filesystem::remove(wavPath, ignored);
  return false;
}

}  // namespace sched
