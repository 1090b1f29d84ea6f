#include "shell/installer.h"

#include <fstream>
#include <system_error>

namespace sched {
namespace fs = std::filesystem;

bool Exists(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

void Installer::Note(const std::string& what, bool done) {
  (done ? report_.created : report_.failures).push_back(what);
}

void Installer::MakeFolder(const fs::path& folder) {
  if (Exists(folder)) return;
  std::error_code error;
  fs::create_directories(folder, error);
  Note(folder.string(), !error);
}

void Installer::WriteNew(const fs::path& file, const std::vector<std::uint8_t>& bytes) {
  if (Exists(file)) return;
  bool written = false;
  {
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
    written = static_cast<bool>(out.flush());
  }
  if (!written) {
    std::error_code error;
    fs::remove(file, error);
  }
  Note(file.string(), written);
}

void Installer::CopyNew(const fs::path& from, const fs::path& to) {
  if (Exists(to)) return;
  std::error_code error;
  fs::copy_file(from, to, error);
  Note(to.string(), !error);
}

void Installer::CopyTreeNew(const fs::path& from, const fs::path& to) {
  MakeFolder(to);
  std::error_code error;
  for (fs::recursive_directory_iterator it(from, error), end; !error && it != end;
       it.increment(error)) {
    const fs::path target = to / fs::relative(it->path(), from);
    std::error_code kindError;
    if (it->is_directory(kindError)) {
      MakeFolder(target);
    } else {
      CopyNew(it->path(), target);
    }
  }
  if (error) Note(from.string(), false);
}

}  // namespace sched
