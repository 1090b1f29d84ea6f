#include "platform/std/safe_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <random>
#include <string_view>

#include "core/path_parts.h"

namespace sched {
namespace {

constexpr std::string_view kSavingInfix = ".saving-";
constexpr std::size_t kSuffixLength = 6;
constexpr std::size_t kMaxNameLength = 255;
constexpr int kMaxLinks = 40;
constexpr int kMaxAttempts = 100;

// A descriptor that is closed when it goes out of scope.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Get() const { return fd_; }
  bool Valid() const { return fd_ >= 0; }

 private:
  int fd_;
};

// The folder of a path; the working folder for a bare name.
std::string FolderOf(const std::string& path) {
  const std::string_view folder = SplitPath(path).folder;
  return folder.empty() ? "." : std::string(folder);
}

// The file that a path names once the links at its end are followed, as an editor saves
// through a link; nothing when the links go round in circles.
std::optional<std::string> FollowLinks(std::string path) {
  for (int i = 0; i < kMaxLinks; ++i) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
    std::array<char, 4096> buffer{};
    const ssize_t length = ::readlink(path.c_str(), buffer.data(), buffer.size());
    if (length <= 0 || static_cast<std::size_t>(length) >= buffer.size()) return std::nullopt;
    const std::string link(buffer.data(), static_cast<std::size_t>(length));
    path = link.front() == '/' ? link : FolderOf(path) + "/" + link;
  }
  return std::nullopt;
}

// What every temporary file of one target's name starts with; the name is cut so that the
// whole temporary name stays within the file system's limit.
std::string TempPrefix(std::string_view name) {
  const std::size_t room = kMaxNameLength - kSavingInfix.size() - kSuffixLength;
  return std::string(name.substr(0, std::min(name.size(), room))) + std::string(kSavingInfix);
}

std::string RandomSuffix() {
  static constexpr std::string_view kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device random;
  std::uniform_int_distribution<std::size_t> pick(0, kLetters.size() - 1);
  std::string suffix;
  for (std::size_t i = 0; i < kSuffixLength; ++i) suffix += kLetters[pick(random)];
  return suffix;
}

// Opens a file that this call creates: never one that is there already, never through a link.
int OpenNewFile(const std::string& path) {
  return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
}

mode_t CurrentUmask() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return mask;
}

// A new file of a name nobody has used, never through a link, readable by the user only while
// it is written. It stays locked while the write runs, so that another write of the same
// target does not take it for a leftover.
int CreateTempFile(const std::string& folder, const std::string& prefix, std::string& path) {
  for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
    path = folder + "/" + prefix + RandomSuffix();
    const int fd = OpenNewFile(path);
    if (fd >= 0) {
      ::flock(fd, LOCK_EX);
      return fd;
    }
    if (errno != EEXIST) return -1;
  }
  return -1;
}

// The old file's owner and group where the user may set them: only root gives a file away,
// and a user may choose only among the groups the user belongs to.
void KeepOwner(int fd, const struct stat& old) {
  if (::fchown(fd, old.st_uid, old.st_gid) == 0) return;
  if (::fchown(fd, static_cast<uid_t>(-1), old.st_gid) == 0) return;
  // Neither is the user's to set: the new file belongs to the user and the user's group.
}

bool WriteAll(int fd, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

// The bytes of a file going to its descriptor.
class DescriptorSink : public FileSink {
 public:
  explicit DescriptorSink(int fd) : fd_(fd) {}
  bool Append(std::span<const std::uint8_t> bytes) override {
    if (!WriteAll(fd_, bytes)) return false;
    appended_ += bytes.size();
    // The disk starts on what is written while the rest is made, so that the flush at the end
    // waits for the last piece only.
    if (appended_ - flushStarted_ >= kFlushStep) {
      ::sync_file_range(fd_, static_cast<off_t>(flushStarted_),
                        static_cast<off_t>(appended_ - flushStarted_), SYNC_FILE_RANGE_WRITE);
      flushStarted_ = appended_;
    }
    return true;
  }
  bool WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) override {
    while (!bytes.empty()) {
      const ssize_t written = ::pwrite(fd_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return false;
      bytes = bytes.subspan(static_cast<std::size_t>(written));
      offset += static_cast<std::uint64_t>(written);
    }
    return true;
  }

 private:
  static constexpr std::uint64_t kFlushStep = std::uint64_t{1} << 20;
  int fd_;
  std::uint64_t appended_ = 0;
  std::uint64_t flushStarted_ = 0;  // bytes before this one are on their way to the disk
};

// Makes a rename in the folder survive a power cut. The new file is in place already, so a
// folder that cannot be flushed fails nothing.
void FlushFolder(const std::string& folder) {
  const Descriptor dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (dir.Valid()) ::fsync(dir.Get());
}

// Removes the temporary files that writes of the same target left when they were killed: a
// plain file of the pattern that no running write holds locked.
void RemoveLeftovers(const std::string& folder, const std::string& prefix) {
  DIR* dir = ::opendir(folder.c_str());
  if (dir == nullptr) return;
  while (const dirent* entry = ::readdir(dir)) {
    const std::string_view name(entry->d_name);
    if (name.size() != prefix.size() + kSuffixLength || !name.starts_with(prefix)) continue;
    const Descriptor file(
        ::openat(::dirfd(dir), entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat st {};
    if (!file.Valid() || ::fstat(file.Get(), &st) != 0 || !S_ISREG(st.st_mode)) continue;
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) == 0) ::unlinkat(::dirfd(dir), entry->d_name, 0);
  }
  ::closedir(dir);
}

}  // namespace

bool WriteFileSafely(const std::string& path, std::span<const std::uint8_t> bytes) {
  return WriteFileSafely(path, [bytes](FileSink& sink) { return sink.Append(bytes); });
}

bool WriteFileSafely(const std::string& path, const std::function<bool(FileSink&)>& write) {
  const std::optional<std::string> target = FollowLinks(path);
  if (!target) return false;
  const std::string_view name = SplitPath(*target).name;
  if (name.empty()) return false;

  struct stat old {};
  const bool exists = ::stat(target->c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return false;
  // Write permission is asked of the mode as well, as root may write anything.
  if (exists && (!S_ISREG(old.st_mode) || (old.st_mode & 0222) == 0 ||
                 ::access(target->c_str(), W_OK) != 0)) {
    return false;
  }

  const std::string folder = FolderOf(*target);
  const std::string prefix = TempPrefix(name);
  std::string temp;
  const Descriptor fd(CreateTempFile(folder, prefix, temp));
  if (!fd.Valid()) return false;
  if (exists) KeepOwner(fd.Get(), old);
  const mode_t mode = exists ? (old.st_mode & 07777) : (0666 & ~CurrentUmask());
  DescriptorSink sink(fd.Get());
  if (::fchmod(fd.Get(), mode) != 0 || !write(sink) || ::fsync(fd.Get()) != 0 ||
      ::rename(temp.c_str(), target->c_str()) != 0) {
    ::unlink(temp.c_str());
    return false;
  }
  FlushFolder(folder);
  RemoveLeftovers(folder, prefix);
  return true;
}

bool CreateNewFile(const std::string& path) {
  const Descriptor fd(OpenNewFile(path));
  return fd.Valid();
}

}  // namespace sched
