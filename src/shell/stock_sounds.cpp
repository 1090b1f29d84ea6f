#include "shell/stock_sounds.h"

namespace sched {
namespace {

// Note numbers of the scale from middle C up.
enum : std::uint8_t {
  G4 = 33,
  A4 = 35,
  C5 = 38,
  D5 = 40,
  E5 = 42,
  G5 = 45,
  A5 = 47,
  C6 = 50,
};

// Length bytes: the time in units, sounding for three quarters of it so that repeated notes
// stay apart; a full-length note, and a rest.
constexpr std::uint8_t Short(std::uint8_t units) {
  return static_cast<std::uint8_t>(0x30 | units);
}
constexpr std::uint8_t Held(std::uint8_t units) {
  return static_cast<std::uint8_t>(0x40 | units);
}
constexpr SndNote Rest(std::uint8_t units) {
  return {0, units};
}

}  // namespace

std::vector<Melody> StockMelodies() {
  return {
      // A rising major arpeggio, twice, landing on the octave.
      {"SCHALARM.snd",
       6,
       {{G4, Short(2)},
        {C5, Short(2)},
        {E5, Short(2)},
        {G5, Short(2)},
        Rest(2),
        {G4, Short(2)},
        {C5, Short(2)},
        {E5, Short(2)},
        {G5, Short(2)},
        Rest(2),
        {C6, Held(8)}}},
      // The four-note quarter-hour chime of a clock tower, and its answer.
      {"CHIME.snd",
       16,
       {{E5, Short(2)},
        {C5, Short(2)},
        {D5, Short(2)},
        {G4, Held(4)},
        {G4, Short(2)},
        {D5, Short(2)},
        {E5, Short(2)},
        {C5, Held(8)}}},
      // A slow pentatonic tune that climbs like the sun.
      {"MORNING.snd", 8, {{G5, Short(2)}, {E5, Short(2)}, {D5, Short(2)}, {C5, Short(2)},
                          {D5, Short(2)}, {E5, Short(2)}, {G5, Short(2)}, {E5, Short(2)},
                          {D5, Short(2)}, {C5, Short(2)}, {D5, Short(2)}, {E5, Short(2)},
                          {D5, Short(2)}, {E5, Short(2)}, {G5, Short(2)}, {E5, Short(2)},
                          {G5, Short(2)}, {A5, Short(2)}, {E5, Short(2)}, {A5, Short(2)},
                          {G5, Short(2)}, {E5, Short(2)}, {D5, Short(2)}, {C5, Held(8)}}},
      // Two soft low notes, for reminders that should not startle.
      {"SOFT.snd", 12, {{A4, Short(4)}, {E5, Held(6)}}},
  };
}

std::vector<std::uint8_t> EncodeSnd(const Melody& melody) {
  std::vector<std::uint8_t> bytes = {7, 0, melody.tempo, 0};
  for (const SndNote& n : melody.notes) {
    bytes.push_back(n.note);
    bytes.push_back(n.length);
  }
  bytes.push_back(0xFF);
  bytes.push_back(0xFF);
  return bytes;
}

}  // namespace sched
