#include <cstdint>
#include <span>

#include "commands/document_session.h"
#include "interchange/csv_export.h"
#include "interchange/csv_import.h"
#include "shell/settings.h"
#include "store/scl_format.h"

namespace sched {

void DocumentSession::ImportCsv(const std::string& path) {
  ScheduleDocument& doc = Doc();
  StartProgress("Now reading...");
  s_.views.ClearDayLists();
  const std::optional<FileBytes> file = ReadWholeFile(path);
  const CsvSettings csv = LoadCsvSettings(s_.settings, kSettingsApp);
  const auto bytes = file ? file->Span() : std::span<const std::uint8_t>();
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (!file || !ImportCsvFile({s_.store, s_.progress, s_.clock}, text, csv)) {
    ReportReadError();
    return;
  }
  doc.ScheduleFile = path;
  doc.Dirty = true;  // the rows are no schedule file yet
  AfterLoad(false);
  FinishProgress();
}

bool DocumentSession::ExportCsv(const std::string& path) {
  StartProgress("Now writing...");
  const CsvSettings csv = LoadCsvSettings(s_.settings, kSettingsApp);
  if (!ExportCsvFile(Doc(), csv, s_.progress, path)) {
    s_.progress.SetVisible(false);
    return false;
  }
  FinishProgress();
  return true;
}

}  // namespace sched
