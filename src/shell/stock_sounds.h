#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sched {

// One note of a device melody: the note number (semitones above the lowest note of the
// device, 26 is middle C) and the length byte (high nibble: quarters of the note's time that
// sound, low nibble: the note's time in units of tempo / 64 seconds, 0 meaning 16).
struct SndNote {
  std::uint8_t note = 0;
  std::uint8_t length = 0;
};

struct Melody {
  std::string fileName;  // such as "SCHALARM.snd"
  std::uint8_t tempo = 8;
  std::vector<SndNote> notes;
};

// The melodies put into a new installation's device sound folder. "SCHALARM.snd" is the one
// that new alarms use.
std::vector<Melody> StockMelodies();

// The bytes of a .snd file: 7, 0, tempo, 0, the note pairs, then 0xFF 0xFF.
std::vector<std::uint8_t> EncodeSnd(const Melody& melody);

}  // namespace sched
