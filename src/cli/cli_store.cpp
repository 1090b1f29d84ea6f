#include "cli/cli_store.h"

#include "shell/texts.h"
#include "store/scl_format.h"

namespace sched {

CliStore::CliStore(std::ostream& err, CodePage page)
    : err_(err), store_(doc_, StoreServices{alarms_, progress_, clock_}) {
  store_.ClearIndex();
  store_.ResetHeader();
  doc_.FileCodePage = page;
}

bool CliStore::Load(const std::string& path) {
  std::string why;
  std::optional<FileBytes> bytes = ReadWholeFile(path, &why);
  if (!bytes) {
    err_ << "Read error!\nscltool: " << path << ": " << why << '\n';
    return false;
  }
  if (!HasSclMagic(bytes->Span())) {
    err_ << texts::kNotSchedulerFile << '\n';
    return false;
  }
  doc_.ScheduleFile = path;
  doc_.ScheduleOnPc = 1;
  const SclLoadResult loaded = store_.LoadFileBytes(std::move(*bytes));
  if (loaded) return true;
  err_ << "Read error!\nscltool: " << path << ": byte " << loaded.error->offset << ": "
       << loaded.error->what << '\n';
  return false;
}

bool CliStore::Save(const std::string& path) {
  doc_.ScheduleFile = path;
  if (store_.SaveScheduleFile(path)) return true;
  err_ << "Write error!\n";
  return false;
}

}  // namespace sched
