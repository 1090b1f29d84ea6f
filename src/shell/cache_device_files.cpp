#include "shell/cache_device_files.h"

#include <algorithm>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "core/text_case.h"
#include "platform/std/safe_file.h"
#include "shell/folder_case.h"
#include "store/scl_format.h"

namespace sched {
namespace fs = std::filesystem;

namespace {

// An absolute path with links and "." and ".." resolved as far as the disk allows.
fs::path Normalised(const fs::path& path) {
  std::error_code error;
  fs::path absolute = fs::absolute(path, error);
  if (error) absolute = path;
  fs::path canonical = fs::weakly_canonical(absolute, error);
  return error ? absolute.lexically_normal() : canonical;
}

// The names of a path below the root, or nothing when the path is not under it.
std::optional<std::vector<std::string>> NamesBelow(const fs::path& root, const fs::path& path) {
  std::vector<std::string> rootNames;
  for (const fs::path& part : Normalised(root)) {
    if (!part.empty()) rootNames.push_back(part.string());
  }
  std::vector<std::string> names;
  for (const fs::path& part : Normalised(path)) {
    if (!part.empty()) names.push_back(part.string());
  }
  if (names.size() < rootNames.size() ||
      !std::equal(rootNames.begin(), rootNames.end(), names.begin())) {
    return std::nullopt;
  }
  names.erase(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(rootNames.size()));
  return names;
}

// "\" followed by the names joined with "\".
std::string DevicePathOf(const std::vector<std::string>& names) {
  std::string path;
  for (const std::string& name : names) path += "\\" + name;
  return path.empty() ? "\\" : path;
}

bool IsUsableFileName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of("\\/") == std::string::npos;
}

bool HasExtension(const std::string& name, const std::string& extension) {
  const std::size_t dot = name.rfind('.');
  return dot != std::string::npos && EqualsIgnoringCase(name.substr(dot + 1), extension);
}

}  // namespace

CacheDeviceFiles::CacheDeviceFiles(std::string cacheRoot, DeviceServiceWindows windows)
    : root_(std::move(cacheRoot)), windows_(windows) {}

std::optional<fs::path> CacheDeviceFiles::ToLocal(const std::string& devicePath) const {
  const std::vector<std::string> names = SplitPathNames(devicePath);
  if (std::find(names.begin(), names.end(), "..") != names.end()) return std::nullopt;
  std::string relative;
  for (const std::string& name : names) {
    if (name != ".") relative += name + "/";
  }
  return ResolveIgnoringCase(root_, relative);
}

bool CacheDeviceFiles::Sor_IsExist(const std::string& devicePath) {
  const std::optional<fs::path> local = ToLocal(devicePath);
  std::error_code error;
  return local && fs::exists(*local, error);
}

std::optional<std::string> CacheDeviceFiles::Sor_GetFile(const std::string& devicePath) {
  // The cached file is the device's file: there is nothing to fetch.
  const std::optional<fs::path> local = ToLocal(devicePath);
  std::error_code error;
  if (!local || !fs::is_regular_file(*local, error)) return std::nullopt;
  return local->string();
}

int CacheDeviceFiles::Sor_PutFile(const std::string& devicePath, const std::string& localPath) {
  const std::optional<fs::path> target = ToLocal(devicePath);
  std::error_code error;
  if (!target || SplitPathNames(devicePath).empty() || !fs::is_regular_file(localPath, error)) {
    return -1;
  }
  if (fs::equivalent(localPath, *target, error)) return 0;
  fs::create_directories(target->parent_path(), error);
  if (error) return -1;
  // The device's copy is replaced whole, as a schedule on the PC is.
  const std::optional<FileBytes> bytes = ReadWholeFile(localPath);
  return bytes && WriteFileSafely(target->string(), bytes->Span()) ? 0 : -1;
}

std::vector<std::string> CacheDeviceFiles::Sor_DirByExt(const std::string& deviceFolder,
                                                        const std::string& extension) {
  std::vector<std::string> names;
  const std::optional<fs::path> folder = ToLocal(deviceFolder);
  if (!folder) return names;
  std::error_code error;
  for (fs::directory_iterator it(*folder, error), end; !error && it != end; it.increment(error)) {
    std::error_code kindError;
    const std::string name = it->path().filename().string();
    if (it->is_regular_file(kindError) && HasExtension(name, extension)) names.push_back(name);
  }
  std::sort(names.begin(), names.end(), LessIgnoringCase);
  return names;
}

bool CacheDeviceFiles::Sor_IsOnPcFile(const std::string& path) {
  if (path.empty()) return true;
  if (path.front() == '\\') return false;  // already a device path
  return !NamesBelow(root_, path).has_value();
}

std::optional<std::string> CacheDeviceFiles::Sor_ConvPathCacheToSorvane(
    const std::string& cachePath) {
  const std::optional<std::vector<std::string>> names = NamesBelow(root_, cachePath);
  if (!names) return std::nullopt;
  return DevicePathOf(*names);
}

std::optional<std::string> CacheDeviceFiles::Sor_ConvPathSorvaneToCache(
    const std::string& devicePath) {
  const std::optional<fs::path> local = ToLocal(devicePath);
  if (!local) return std::nullopt;
  return local->string();
}

std::optional<std::string> CacheDeviceFiles::Sor_PIMOpenFileDialog(const std::string& extension,
                                                                   const std::string& startPath) {
  return RunDialog(DeviceDialogMode::Open, extension, startPath);
}

std::optional<std::string> CacheDeviceFiles::Sor_PIMSaveFileDialog(const std::string& extension,
                                                                   const std::string& proposal) {
  return RunDialog(DeviceDialogMode::Save, extension, proposal);
}

std::optional<std::string> CacheDeviceFiles::RunDialog(DeviceDialogMode mode,
                                                       const std::string& extension,
                                                       const std::string& startPath) {
  if (windows_.chooser == nullptr || windows_.messages == nullptr) return std::nullopt;
  // The start path is a folder, or a folder and the proposed name.
  std::vector<std::string> folder = SplitPathNames(startPath);
  std::erase(folder, ".");
  if (std::find(folder.begin(), folder.end(), "..") != folder.end()) return std::nullopt;
  DeviceFileRequest request;
  request.mode = mode;
  request.title = mode == DeviceDialogMode::Open ? kDeviceOpenTitle : kDeviceSaveTitle;
  request.extension = extension;
  std::error_code error;
  if (!folder.empty() && !fs::is_directory(*ToLocal(startPath), error)) {
    request.proposal = folder.back();
    folder.pop_back();
  }
  request.folder = DevicePathOf(folder);
  request.files = Sor_DirByExt(request.folder, extension);

  // As a save dialog of the PC, a No to replacing a file goes back to the dialog.
  std::optional<std::string> chosen = ChosenName(request);
  while (chosen && mode == DeviceDialogMode::Save && !MayReplace(request, *chosen)) {
    request.proposal = *chosen;
    chosen = ChosenName(request);
  }
  if (!chosen) return std::nullopt;
  folder.push_back(*chosen);
  return DevicePathOf(folder);
}

std::optional<std::string> CacheDeviceFiles::ChosenName(const DeviceFileRequest& request) const {
  std::optional<std::string> chosen = windows_.chooser->ChooseDeviceFile(request);
  if (!chosen || !IsUsableFileName(*chosen)) return std::nullopt;
  if (!request.extension.empty() && !HasExtension(*chosen, request.extension)) {
    *chosen += "." + request.extension;
  }
  return chosen;
}

bool CacheDeviceFiles::MayReplace(const DeviceFileRequest& request, const std::string& name) const {
  const auto same = [&name](const std::string& file) { return EqualsIgnoringCase(file, name); };
  if (std::none_of(request.files.begin(), request.files.end(), same)) return true;
  std::string question = kDeviceReplaceQuestion;
  question.replace(question.find("%1"), 2, name);
  return windows_.messages->Show(
             {question, request.title, MsgIcon::Exclamation, MsgButtons::YesNo}) == MsgAnswer::Yes;
}

void CacheDeviceFiles::Sor_SetupDisconnection() {
  if (windows_.setup != nullptr) windows_.setup->ShowDisconnectionSetup(root_);
}

}  // namespace sched
