#include "shell/desktop_files.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace sched {
namespace fs = std::filesystem;

namespace {

constexpr const char* kMimePackage = "scheduler-mime.xml";
constexpr std::string_view kExecKey = "Exec=";

// The program as the first word of an Exec line: quoted when it holds a character the line
// reserves, and with backslashes doubled once more, as every value of the entry is escaped.
std::string ExecWord(const std::string& program) {
  std::string word;
  const bool quote = program.find_first_of(" \t\n\"'\\><~|&;$*?#()`") != std::string::npos;
  for (const char c : program) {
    if (c == '%') {
      word += "%%";
    } else if (quote && (c == '"' || c == '`' || c == '$' || c == '\\')) {
      word += c == '\\' ? "\\\\\\\\" : std::string("\\\\") + c;
    } else {
      word += c;
    }
  }
  return quote ? '"' + word + '"' : word;
}

}  // namespace

std::string WithProgram(std::string_view entryText, const std::string& program) {
  std::string text(entryText);
  std::size_t line = 0;
  while (line < text.size()) {
    const std::size_t end = std::min(text.find('\n', line), text.size());
    if (text.compare(line, kExecKey.size(), kExecKey) == 0) {
      const std::size_t start = line + kExecKey.size();
      const std::size_t space = std::min(text.find(' ', start), end);
      text.replace(start, space - start, ExecWord(program));
      return text;
    }
    line = end + 1;
  }
  return text;
}

void InstallDesktopFiles(Installer& installer, const std::string& dataDir,
                         const std::string& dataHome, const std::string& program) {
  const fs::path from = fs::path(dataDir) / "desktop";
  const fs::path to(dataHome);

  installer.MakeFolder(to / "applications");
  std::ifstream in(from / kDesktopEntryName, std::ios::binary);
  const std::string entry{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad() || entry.empty()) {
    installer.Note((from / kDesktopEntryName).string(), false);
  } else {
    const std::string text = WithProgram(entry, program);
    installer.WriteNew(to / "applications" / kDesktopEntryName, {text.begin(), text.end()});
  }

  installer.CopyTreeNew(from / "hicolor", to / "icons" / "hicolor");
  installer.MakeFolder(to / "mime" / "packages");
  installer.CopyNew(from / kMimePackage, to / "mime" / "packages" / kMimePackage);
}

std::vector<std::vector<std::string>> DesktopRefreshCommands(const std::string& dataHome) {
  return {{"update-mime-database", (fs::path(dataHome) / "mime").string()},
          {"update-desktop-database", (fs::path(dataHome) / "applications").string()}};
}

}  // namespace sched
