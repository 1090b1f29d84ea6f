#include "commands/document_commands.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>

#include "core/app_texts.h"
#include "core/path_parts.h"
#include "core/text_case.h"
#include "interchange/csv_file_check.h"
#include "interchange/texts.h"
#include "shell/device_service.h"
#include "shell/texts.h"

namespace sched {
namespace {

// The last four characters of a file's name, compared without regard to case.
bool EndsWith4(const std::string& path, std::string_view tail) {
  return path.size() >= 4 &&
         EqualsIgnoringCase(std::string_view(path).substr(path.size() - 4), tail);
}

bool IsScl(const std::string& path) {
  return EndsWith4(path, ".scl");
}
bool IsCsv(const std::string& path) {
  return IsCsvName(path);
}

std::string FolderOf(const std::string& path) {
  return std::string(SplitPath(path).folder);
}

std::string NameOf(const std::string& path) {
  return std::string(SplitPath(path).name);
}

// The file's name without its folder and without its last four characters (".scl", ".csv").
std::string StemOf(const std::string& path) {
  const std::string name = NameOf(path);
  return name.size() > 4 ? name.substr(0, name.size() - 4) : name;
}

}  // namespace

bool CheckFileMagic(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::array<std::uint8_t, kSclMagic.size()> first{};
  if (!in.read(reinterpret_cast<char*>(first.data()), first.size())) return false;
  return HasSclMagic(first);
}

bool DocumentCommands::Ask(const std::string& text, MsgButtons buttons, MsgIcon icon,
                           MsgAnswer yes) {
  return s_.messages.Show({text, kAppTitle, icon, buttons}) == yes;
}

bool DocumentCommands::CheckInputFnameSCL(const std::string& path) {
  if (IsScl(path) ? CheckFileMagic(path) : IsCsv(path)) return true;
  s_.messages.Show({texts::kNotSchedulerFile, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
  return false;
}

std::optional<std::string> DocumentCommands::PcDialog(bool save, const std::string& filter,
                                                      const std::string& proposal) {
  const NoticesHeldWhile held(s_.notices);
  const FileDialogRequest request{s_.state.LastPcDir, filter, proposal};
  return save ? s_.dialogs.SaveFile(request) : s_.dialogs.OpenFile(request);
}

std::optional<std::string> DocumentCommands::DeviceDialog(bool save, const std::string& proposal) {
  const NoticesHeldWhile held(s_.notices);
  return save ? s_.device.Sor_PIMSaveFileDialog("scl", proposal)
              : s_.device.Sor_PIMOpenFileDialog("scl", proposal);
}

bool DocumentCommands::SaveTo(const std::string& path) {
  Doc().ScheduleFile = path;
  return s_.session.SaveScheduleFile();
}

void DocumentCommands::RefreshSoundList() {
  s_.state.DeviceSounds = ReadDeviceSounds(s_.device);
}

bool DocumentCommands::AskSaveChanges() {
  ScheduleDocument& doc = Doc();
  if (!doc.Dirty) return true;
  const MsgAnswer answer = s_.messages.Show(
      {texts::kAskSaveChanges, kAppTitle, MsgIcon::Exclamation, MsgButtons::YesNoCancel});
  if (answer == MsgAnswer::No) return true;
  if (answer != MsgAnswer::Yes) return false;

  if (IsScl(doc.ScheduleFile) && doc.ScheduleOnPc != 0) {
    // A failed save keeps the changes and the program where they are.
    if (!SaveTo(doc.ScheduleFile)) return false;
    doc.Dirty = false;
    return true;
  }
  if (IsScl(doc.ScheduleFile)) return SaveToTarvex();
  std::string target;
  if (doc.ScheduleFile.empty()) {
    const auto chosen = PcDialog(true, texts::kSaveFilter, texts::kUntitledName);
    if (!chosen) return false;
    target = *chosen;
  } else {
    target = doc.ScheduleFile;  // a CSV document
    if (Ask(texts::kAskConversion, MsgButtons::YesNo, MsgIcon::Information, MsgAnswer::Yes)) {
      const auto chosen = PcDialog(true, texts::kSaveFilter, StemOf(doc.ScheduleFile));
      if (!chosen) return false;
      target = *chosen;
    }
  }
  if (IsCsv(target)) {
    if (!s_.csv.ExportCsv(target)) return false;
    doc.ScheduleFile = target;
    doc.Dirty = false;
    return true;
  }
  doc.ScheduleOnPc = 1;
  doc.SaveToDevice = false;
  if (!SaveTo(target)) return false;
  s_.session.ShowTitle();
  doc.Dirty = false;
  return true;
}

void DocumentCommands::New() {
  s_.window.HideScheduleList();
  if (!AskSaveChanges()) return;
  ScheduleDocument& doc = Doc();
  doc.Dirty = false;
  s_.window.ShowFirstTab();
  doc.ScheduleFile.clear();
  doc.DevicePath.clear();
  s_.session.ResetToToday(true);
  s_.session.RefreshViews();
  s_.window.SetTitle(kUntitledCaption);
}

bool DocumentCommands::LoadDocument(const std::string& path, int onPc) {
  ScheduleDocument& doc = Doc();
  doc.ScheduleOnPc = onPc;
  s_.session.ResetToToday(true);
  if (IsCsv(path)) {
    s_.csv.ImportCsv(path);
  } else {
    doc.ScheduleFile = path;
    s_.session.LoadScheduleFile();
  }
  s_.session.RefreshViews();
  doc.Dirty = false;
  return true;
}

void DocumentCommands::OpenOnPc() {
  s_.window.HideScheduleList();
  if (!AskSaveChanges()) return;
  const auto chosen = PcDialog(false, texts::kOpenFilter, "");
  if (!chosen || !CheckInputFnameSCL(*chosen)) return;
  s_.state.LastPcDir = FolderOf(*chosen);
  LoadDocument(*chosen, 1);
}

void DocumentCommands::SaveToPc() {
  ScheduleDocument& doc = Doc();
  if (doc.ScheduleFile.empty() || doc.ScheduleOnPc != 1) {
    SaveAsOnPc();
    return;
  }
  if (!IsCsv(doc.ScheduleFile)) {
    doc.SaveToDevice = false;
    if (!SaveTo(doc.ScheduleFile)) return;
  } else if (Ask(texts::kAskConversion, MsgButtons::YesNo, MsgIcon::Information, MsgAnswer::Yes)) {
    const auto chosen = PcDialog(true, texts::kSaveFilter, StemOf(doc.ScheduleFile));
    if (!chosen) return;
    doc.ScheduleOnPc = 1;
    doc.SaveToDevice = false;
    if (!SaveTo(*chosen)) return;
    s_.session.ShowTitle();
  } else if (!s_.csv.ExportCsv(doc.ScheduleFile)) {
    return;
  }
  doc.Dirty = false;
  doc.ScheduleOnPc = 1;
}

void DocumentCommands::SaveAsOnPc() {
  s_.window.HideScheduleList();
  ScheduleDocument& doc = Doc();
  const std::string proposal =
      doc.ScheduleFile.empty() ? texts::kUntitledName : StemOf(doc.ScheduleFile);
  auto chosen = PcDialog(true, texts::kSaveFilter, proposal);
  if (!chosen) return;
  if (!IsScl(*chosen)) *chosen += ".scl";
  s_.state.LastPcDir = FolderOf(*chosen);
  doc.ScheduleOnPc = 1;
  doc.SaveToDevice = false;
  if (!SaveTo(*chosen)) return;
  s_.session.ShowTitle();
  doc.Dirty = false;
}

// The device's name of its PIM folder, with one backslash in front.
std::string DocumentCommands::DeviceFolder() {
  std::string folder = s_.device.Sor_ConvPathCacheToSorvane(s_.cacheDir).value_or("");
  if (folder.empty() || folder.front() != '\\') folder.insert(folder.begin(), '\\');
  return folder;
}

void DocumentCommands::OpenOnTarvex() {
  s_.window.HideScheduleList();
  if (!AskSaveChanges()) return;
  const auto chosen = DeviceDialog(false, DeviceFolder());
  if (!chosen) return;
  RefreshSoundList();
  const auto local = s_.device.Sor_ConvPathSorvaneToCache(*chosen);
  if (!local || !CheckInputFnameSCL(*local)) return;
  LoadDocument(*local, 0);
}

bool DocumentCommands::SaveToTarvex() {
  ScheduleDocument& doc = Doc();
  if (doc.ScheduleFile.empty() || doc.ScheduleOnPc != 0) return SaveAsOnTarvex();
  const auto devicePath = s_.device.Sor_ConvPathCacheToSorvane(doc.ScheduleFile);
  if (!devicePath || devicePath->empty()) return false;
  doc.DevicePath = *devicePath;
  doc.SaveToDevice = true;
  if (!SaveTo(doc.ScheduleFile)) return false;
  doc.Dirty = false;
  return true;
}

bool DocumentCommands::SaveAsOnTarvex() {
  s_.window.HideScheduleList();
  ScheduleDocument& doc = Doc();
  std::string proposal;
  if (IsCsv(doc.ScheduleFile)) {
    if (!Ask(texts::kAskConversion, MsgButtons::YesNo, MsgIcon::Information, MsgAnswer::Yes)) {
      s_.messages.Show({texts::kCsvNotSaved, kAppTitle, MsgIcon::Information, MsgButtons::Ok});
      return false;
    }
    proposal = StemOf(doc.ScheduleFile) + ".scl";
  } else if (!doc.ScheduleFile.empty()) {
    proposal = NameOf(doc.ScheduleFile);
  }
  const auto chosen = DeviceDialog(true, DeviceFolder() + "\\" + proposal);
  if (!chosen) return false;
  const auto local = s_.device.Sor_ConvPathSorvaneToCache(*chosen);
  if (!local) return false;
  doc.DevicePath = *chosen;
  doc.ScheduleFile = *local;
  doc.SaveToDevice = true;
  doc.ScheduleOnPc = 0;
  const bool saved = SaveTo(doc.ScheduleFile);
  RefreshSoundList();
  s_.session.ShowTitle();
  if (saved) doc.Dirty = false;
  return saved;
}

void DocumentCommands::OpenAtStart(const std::string& path, int onPc) {
  if (CheckInputFnameSCL(path)) LoadDocument(path, onPc);
}

int DocumentCommands::OpenFileByName(const std::string& path) {
  s_.window.BringToFront();
  if (!AskSaveChanges()) return 0;
  if (!CheckInputFnameSCL(path)) return 0;
  const ResolvedFile file = ResolveFileName(s_.device, path);
  if (!file.cacheFolder.empty()) s_.cacheDir = file.cacheFolder;
  if (file.ScheduleOnPc == 1) {
    s_.state.LastPcDir = FolderOf(file.path);
  } else {
    RefreshSoundList();
  }
  return LoadDocument(file.path, file.ScheduleOnPc) ? 1 : 0;
}

void DocumentCommands::InportCSV_Click() {
  s_.window.HideScheduleList();
  if (!AskSaveChanges()) return;
  const auto chosen = PcDialog(false, texts::kImportFilter, "");
  if (!chosen) return;
  Doc().ScheduleOnPc = 1;
  s_.csv.ImportCsv(*chosen);
}

void DocumentCommands::ExportCSV_Click() {
  s_.window.HideScheduleList();
  const std::string& name = Doc().ScheduleFile;
  auto chosen =
      PcDialog(true, texts::kExportFilter, name.empty() ? texts::kUntitledName : StemOf(name));
  if (!chosen) return;
  if (!IsCsv(*chosen)) *chosen += ".csv";
  s_.csv.ExportCsv(*chosen);
}

void BindDocumentCommands(CommandSet& set, DocumentCommands& commands) {
  set.Bind(CommandId::ImportCsv, [&commands] { commands.InportCSV_Click(); });
  set.Bind(CommandId::ExportCsv, [&commands] { commands.ExportCSV_Click(); });
  set.Bind(CommandId::New, [&commands] { commands.New(); });
  set.Bind(CommandId::OpenOnPc, [&commands] { commands.OpenOnPc(); });
  set.Bind(CommandId::SaveToPc, [&commands] { commands.SaveToPc(); });
  set.Bind(CommandId::SaveAsOnPc, [&commands] { commands.SaveAsOnPc(); });
  set.Bind(CommandId::OpenOnTarvex, [&commands] { commands.OpenOnTarvex(); });
  set.Bind(CommandId::SaveToTarvex, [&commands] { commands.SaveToTarvex(); });
  set.Bind(CommandId::SaveAsOnTarvex, [&commands] { commands.SaveAsOnTarvex(); });
}

}  // namespace sched
