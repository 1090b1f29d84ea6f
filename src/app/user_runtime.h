#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace sched {

// The folder for what only this user may reach, such as the program's socket:
// `xdgRuntimeDir` when it is an absolute path of a folder of the user's own that nobody else
// may enter; else "scheduler-UID" in `tempFolder`, made with mode 0700, or given that mode
// when it is the user's own folder. Nothing when that name is taken by another user or by
// anything but a folder.
std::optional<std::string> UserRuntimeFolder(const std::string& xdgRuntimeDir,
                                             const std::filesystem::path& tempFolder);

// True when `path` is a socket of this user, not a link to one and not another user's.
bool IsOwnSocket(const std::string& path);

// True when the process at the other end of a connected local socket runs as this user.
bool PeerIsThisUser(int socketDescriptor);

}  // namespace sched
