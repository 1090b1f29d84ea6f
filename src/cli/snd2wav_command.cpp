#include "cli/cli_args.h"
#include "cli/verb.h"
#include "media/snd_wave.h"
#include "media/texts.h"

namespace sched {
namespace {

const char* ProblemText(SndProblem problem) {
  switch (problem) {
    case SndProblem::Missing: return "no such file";
    case SndProblem::WrongHeader:
      return "no melody: the header is not 07 00, a tempo of 1 to 32, 00";
    case SndProblem::NoEndMarker: return "the melody does not end with FF FF";
    case SndProblem::NoteOutOfRange: return "a note lies above the highest octave of its tone";
    case SndProblem::TooLong: return "the melody lasts more than an hour";
    case SndProblem::None: break;
  }
  return "the file cannot be written";
}

int RunSnd2Wav(const std::vector<std::string>& args, std::ostream&, std::ostream& err, CodePage) {
  RequireArguments(args, {"IN.snd", "OUT.wav"});
  SndProblem problem = SndProblem::None;
  if (ConvertSndToWav(args[0], args[1], nullptr, &problem)) return kExitDone;
  const std::string& file = problem == SndProblem::None ? args[1] : args[0];
  err << media_texts::kWriteError << "\nscltool: " << file << ": " << ProblemText(problem) << '\n';
  return kExitRefused;
}

}  // namespace

const Verb kSnd2WavVerb{"snd2wav", "IN.snd OUT.wav",
                        "renders a device melody to a WAV file, as the Listen button plays it",
                        RunSnd2Wav};

}  // namespace sched
