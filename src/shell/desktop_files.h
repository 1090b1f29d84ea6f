#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/installer.h"

namespace sched {

// The type of a schedule file on the desktop, and the desktop entry that opens it.
inline constexpr const char* kScheduleMimeType = "application/x-scheduler-scl";
inline constexpr const char* kDesktopEntryName = "scheduler.desktop";

// The desktop entry of `entryText` with the program of its Exec line replaced by `program`.
std::string WithProgram(std::string_view entryText, const std::string& program);

// Makes the desktop know the program for one user: copies the desktop entry (its Exec line
// naming `program`), the icons and the schedule file's MIME type from `dataDir`/desktop into
// `dataHome` (applications/, icons/hicolor/, mime/packages/). A file already there is kept.
void InstallDesktopFiles(Installer& installer, const std::string& dataDir,
                         const std::string& dataHome, const std::string& program);

// The commands that make the desktop read what InstallDesktopFiles wrote, in order: its MIME
// database and its list of entries.
std::vector<std::vector<std::string>> DesktopRefreshCommands(const std::string& dataHome);

}  // namespace sched
