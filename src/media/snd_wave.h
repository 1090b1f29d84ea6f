#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "platform/progress_window.h"

namespace sched {

inline constexpr int kWaveSampleRate = 22050;
inline constexpr std::uint8_t kSilentSample = 0x80;
inline constexpr int kWaveHeaderBytes = 44;
inline constexpr int kSemitones = 12;

// One period of a sine for each semitone of the lowest octave, as unsigned 8-bit samples.
// The first semitone is one above 55 Hz.
struct WaveTables {
  std::array<std::int16_t, kSemitones> WavePeriod{};
  // WaveTable[j][s]: sample j of semitone s; rows beyond a semitone's period are unused.
  std::vector<std::array<std::uint8_t, kSemitones>> WaveTable;
};

WaveTables BuildWaveTables(int sampleRate);

// One note of a melody: the note byte (octave * 12 + semitone) and the length byte (high
// nibble: quarters of the note's time that sound; low nibble: the time, 0 meaning 16).
struct SndNote {
  std::uint8_t N = 0;
  std::uint8_t C = 0;
};

struct SndMelody {
  int Tempo = 0;
  std::vector<SndNote> Notes;
};

// Why a melody file is not rendered.
enum class SndProblem { None, Missing, WrongHeader, NoEndMarker, NoteOutOfRange, TooLong };

// The melody of a .snd file's bytes: the header 7, 0, tempo 1 to 32, 0, then the notes up to
// the pair FF FF. Refused as well: a note whose octave steps through its wave faster than the
// table holds it, and a melody of more than an hour. `problem` says why there is none.
std::optional<SndMelody> ParseSnd(std::span<const std::uint8_t> bytes, const WaveTables& tables,
                                  SndProblem& problem);

// The samples a note takes, sounding and silent together.
std::int64_t NoteSamples(std::uint8_t C, int T);

// The part of the header from "WAVE" to "data": 8-bit mono PCM at 22050 samples a second.
void WriteWaveHeader(std::ostream& wav);

// Writes the samples of note N with length byte C at tempo T. The tone ends at the first wrap
// of its wave after its time, on a zero crossing, so that it does not click.
void AppendNote(std::ostream& wav, const WaveTables& tables, int N, int C, int T);

// Renders the .snd file at `sndPath` to a WAV file at `wavPath`, which is truncated or made.
// Gives false, and touches no output, for a file that is missing or no melody; a failed write
// gives false too and leaves no output behind. The window shows the notes done.
bool ConvertSndToWav(const std::string& sndPath, const std::string& wavPath,
                     ProgressWindow* progress, SndProblem* problem = nullptr);

}  // namespace sched
