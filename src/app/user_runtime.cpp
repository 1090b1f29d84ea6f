#include "app/user_runtime.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>

namespace sched {

namespace {

// The entry itself, a link not followed: nothing when there is none.
std::optional<struct stat> EntryOf(const std::string& path) {
  struct stat entry {};
  if (::lstat(path.c_str(), &entry) != 0) return std::nullopt;
  return entry;
}

bool IsOwnFolder(const std::optional<struct stat>& entry) {
  return entry && S_ISDIR(entry->st_mode) && entry->st_uid == ::getuid();
}

constexpr mode_t kOwnerOnly = S_IRWXU;

}  // namespace

std::optional<std::string> UserRuntimeFolder(const std::string& xdgRuntimeDir,
                                             const std::filesystem::path& tempFolder) {
  if (!xdgRuntimeDir.empty() && xdgRuntimeDir.front() == '/') {
    const auto entry = EntryOf(xdgRuntimeDir);
    if (IsOwnFolder(entry) && (entry->st_mode & (S_IRWXG | S_IRWXO)) == 0) return xdgRuntimeDir;
  }
  const std::string own = (tempFolder / ("scheduler-" + std::to_string(::getuid()))).string();
  if (::mkdir(own.c_str(), kOwnerOnly) != 0 && errno != EEXIST) return std::nullopt;
  const auto entry = EntryOf(own);
  if (!IsOwnFolder(entry)) return std::nullopt;
  if ((entry->st_mode & 07777) != kOwnerOnly && ::chmod(own.c_str(), kOwnerOnly) != 0) {
    return std::nullopt;
  }
  return own;
}

bool IsOwnSocket(const std::string& path) {
  const auto entry = EntryOf(path);
  return entry && S_ISSOCK(entry->st_mode) && entry->st_uid == ::getuid();
}

bool PeerIsThisUser(int socketDescriptor) {
#ifdef SO_PEERCRED
  struct ucred peer {};
  socklen_t size = sizeof peer;
  return ::getsockopt(socketDescriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
         peer.uid == ::getuid();
#else
  uid_t uid = 0;
  gid_t gid = 0;
  return ::getpeereid(socketDescriptor, &uid, &gid) == 0 && uid == ::getuid();
#endif
}

}  // namespace sched
