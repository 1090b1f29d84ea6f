// Feeds arbitrary bytes to the melody reader and renders what it takes. The reader either
// refuses the bytes or gives notes whose samples, counted apart, are exactly what the renderer
// writes, with no sample read outside the wave tables.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <span>
#include <streambuf>

#include "media/snd_wave.h"

namespace {

// Counts the bytes written to it and keeps none, so that long melodies cost no memory.
class CountingBuffer : public std::streambuf {
 public:
  std::int64_t count = 0;

 protected:
  int_type overflow(int_type c) override {
    ++count;
    return c;
  }
  std::streamsize xsputn(const char*, std::streamsize n) override {
    count += n;
    return n;
  }
};

const sched::WaveTables kTables = sched::BuildWaveTables(sched::kWaveSampleRate);

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sched::SndProblem problem = sched::SndProblem::None;
  const auto melody = sched::ParseSnd(std::span(data, size), kTables, problem);
  if (!melody) {
    if (problem == sched::SndProblem::None) std::abort();
    return 0;
  }
  if (melody->Tempo < 1 || melody->Tempo > 32) std::abort();
  CountingBuffer buffer;
  std::ostream wav(&buffer);
  std::int64_t expected = 0;
  for (const sched::SndNote& note : melody->Notes) {
    sched::AppendNote(wav, kTables, note.N, note.C, melody->Tempo);
    expected += sched::NoteSamples(note.C, melody->Tempo);
  }
  if (buffer.count != expected) std::abort();
  return 0;
}
