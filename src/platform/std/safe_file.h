#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace sched {

// Puts `bytes` in the place of the file at `path` so that the file is always either whole and
// old or whole and new, even after a crash or a power cut:
// - a link at `path` is followed, and the file it points to is the one replaced (a dangling
//   link's target is created);
// - an existing file that is read-only, or no plain file, is refused and left as it was;
// - the bytes go to a new file of a unique name beside the target ("NAME.saving-XXXXXX"),
//   created exclusively and never through a link, which takes the old file's mode and group,
//   is flushed to the disk and then renamed over the target; the folder is flushed after;
// - a successful write removes what earlier writes of the same target left behind when they
//   were killed part-way.
// Gives false on any failure, with the target untouched and no file of its own left behind.
[[nodiscard]] bool WriteFileSafely(const std::string& path, std::span<const std::uint8_t> bytes);

// Where the bytes of a file go as they are made: added at the end, or put over bytes given
// before. False when the system refused them.
class FileSink {
 public:
  virtual ~FileSink() = default;
  [[nodiscard]] virtual bool Append(std::span<const std::uint8_t> bytes) = 0;
  [[nodiscard]] virtual bool WriteAt(std::uint64_t offset, std::span<const std::uint8_t> bytes) = 0;
};

// The same for bytes made while they are written, so that a large file is not held whole in
// memory: `write` gives them to the sink, and a false from it fails the write.
[[nodiscard]] bool WriteFileSafely(const std::string& path,
                                   const std::function<bool(FileSink&)>& write);

// Creates an empty file that did not exist before, never through a link, readable by the user
// only. Gives false when something of that name is already there.
[[nodiscard]] bool CreateNewFile(const std::string& path);

}  // namespace sched
