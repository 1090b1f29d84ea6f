#include "commands/link_commands.h"

#include <filesystem>

#include "core/app_texts.h"
#include "link/link_exchange.h"
#include "link/link_records.h"
#include "platform/std/safe_file.h"
#include "store/scl_format.h"

namespace sched {
namespace {

constexpr const char* kExportFile = "$schExp$.tmp";
constexpr const char* kImportFile = "$schImp$.tmp";

// Removes the file when the command ends, however it ends.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string path) : path_(std::move(path)) { Remove(); }
  ~TemporaryFile() { Remove(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  const std::string& Path() const { return path_; }

 private:
  void Remove() {
    std::error_code error;
    std::filesystem::remove(path_, error);
  }
  std::string path_;
};

}  // namespace

void LinkCommands::Say(const char* text, MsgIcon icon) {
  s_.messages.Show({text, kAppTitle, icon, MsgButtons::Ok});
}

bool LinkCommands::RunLink(bool exporting, const std::string& path) {
  s_.dialogs.EnableMainWindow(false);
  const bool done = exporting ? s_.link.ExportFile(path) : s_.link.ImportFile(path);
  s_.dialogs.EnableMainWindow(true);
  return done;
}

void LinkCommands::PcExport_Click() {
  ScheduleDocument& doc = s_.session.Doc();
  const bool onlyNew = ReadExpOption(s_.settings);
  const auto bytes = BuildExportFile(doc.Tables, onlyNew, s_.clock.Now(), doc.FileCodePage);
  if (!bytes) {
    Say("No export data!");
    return;
  }
  const TemporaryFile file(s_.workDir + "/" + kExportFile);
  if (!WriteFileSafely(file.Path(), *bytes) || !RunLink(true, file.Path())) {
    Say("Export failure!");
    return;
  }
  Say("Export successful!", MsgIcon::Information);
  if (onlyNew) ClearLinkBits(doc.Tables);
}

void LinkCommands::PcImport_Click() {
  std::optional<ImportOptions> options;
  {
    const NoticesHeldWhile held(s_.notices);
    options = s_.dialogs.ShowFormDip();
  }
  if (!options) return;
  const TemporaryFile file(s_.workDir + "/" + kImportFile);
  const std::optional<FileBytes> bytes =
      RunLink(false, file.Path()) ? ReadWholeFile(file.Path()) : std::nullopt;
  if (!bytes) {
    Say("Import failure!");
    return;
  }
  const DateTime now = s_.clock.Now();
  ScheduleDocument& doc = s_.session.Doc();
  MergeImportedRecords(s_.session.Store(),
                       ReadImportRecords(bytes->Span(), doc.FileCodePage).records,
                       static_cast<ImportMerge>(options->type),
                       PeriodOfOptions(*options, {now.year, now.month, now.day}), options->sound);
  s_.session.AfterChange();
  Say("Import successful!");
}

void BindLinkCommands(CommandSet& set, LinkCommands& commands) {
  set.Bind(CommandId::LinkExport, [&commands] { commands.PcExport_Click(); });
  set.Bind(CommandId::LinkImport, [&commands] { commands.PcImport_Click(); });
}

}  // namespace sched
