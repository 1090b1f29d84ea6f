#include "platform/std/safe_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

bool Write(const std::string& path, const std::string& text) {
  const std::vector<std::uint8_t> bytes(text.begin(), text.end());
  return WriteFileSafely(path, bytes);
}

std::string Read(const std::string& path) {
  const std::vector<std::uint8_t> bytes = ReadBytes(path);
  return {bytes.begin(), bytes.end()};
}

struct stat StatOf(const std::string& path) {
  struct stat st {};
  EXPECT_EQ(::stat(path.c_str(), &st), 0) << path;
  return st;
}

mode_t ModeOf(const std::string& path) {
  return StatOf(path).st_mode & 07777;
}

std::vector<std::string> Names(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

void Link(const std::string& to, const std::string& at) {
  ASSERT_EQ(::symlink(to.c_str(), at.c_str()), 0) << at;
}

TEST(SafeFile, ReplacesTheFileAndKeepsItsMode) {
  for (const mode_t mode : {0600, 0640, 0644, 0660, 0604, 0755}) {
    TempDir dir;
    const std::string path = dir.Write("data.scl", "old content");
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    ASSERT_TRUE(Write(path, "new"));
    EXPECT_EQ(Read(path), "new");
    EXPECT_EQ(ModeOf(path), mode) << std::oct << mode;
    EXPECT_EQ(Names(dir.Path()), std::vector<std::string>{"data.scl"});
  }
}

TEST(SafeFile, KeepsTheOwnerAndGroupWhereTheUserMaySetThem) {
  TempDir dir;
  const std::string path = dir.Write("data.scl", "old");
  uid_t owner = ::geteuid();
  gid_t group = ::getegid();
  if (owner == 0) {
    owner = 4321;  // root may give the file to anyone
    group = 4322;
  } else {
    std::vector<gid_t> groups(static_cast<std::size_t>(::getgroups(0, nullptr)));
    if (::getgroups(static_cast<int>(groups.size()), groups.data()) > 0) group = groups.back();
  }
  ASSERT_EQ(::chown(path.c_str(), owner, group), 0);
  ASSERT_TRUE(Write(path, "new"));
  EXPECT_EQ(StatOf(path).st_uid, owner);
  EXPECT_EQ(StatOf(path).st_gid, group);
}

TEST(SafeFile, ANewFileTakesTheModeTheUserAsksFor) {
  struct Case {
    mode_t umask;
    mode_t mode;
  };
  for (const Case& c : {Case{022, 0644}, Case{077, 0600}, Case{002, 0664}}) {
    TempDir dir;
    const mode_t saved = ::umask(c.umask);
    const bool written = Write(dir.File("new.scl"), "new");
    ::umask(saved);
    ASSERT_TRUE(written);
    EXPECT_EQ(ModeOf(dir.File("new.scl")), c.mode) << std::oct << c.umask;
  }
}

TEST(SafeFile, WritesThroughLinksToTheFileTheyName) {
  TempDir dir;
  fs::create_directory(dir.File("real"));
  const std::string real = dir.Write("real/data.scl", "old");
  ASSERT_EQ(::chmod(real.c_str(), 0600), 0);
  Link("real/data.scl", dir.File("relative.scl"));
  Link(dir.File("relative.scl"), dir.File("chain.scl"));  // an absolute link to a link
  for (const std::string name : {"relative.scl", "chain.scl"}) {
    ASSERT_TRUE(Write(dir.File(name), "through " + name));
    EXPECT_EQ(Read(real), "through " + name);
    EXPECT_TRUE(fs::is_symlink(dir.File("relative.scl")));
    EXPECT_TRUE(fs::is_symlink(dir.File("chain.scl")));
    EXPECT_EQ(ModeOf(real), 0600u);
  }
  EXPECT_EQ(Names(dir.File("real")), std::vector<std::string>{"data.scl"});

  Link("missing.scl", dir.File("dangling.scl"));  // its target is created
  ASSERT_TRUE(Write(dir.File("dangling.scl"), "created"));
  EXPECT_TRUE(fs::is_symlink(dir.File("dangling.scl")));
  EXPECT_EQ(Read(dir.File("missing.scl")), "created");

  Link("round2.scl", dir.File("round1.scl"));
  Link("round1.scl", dir.File("round2.scl"));
  EXPECT_FALSE(Write(dir.File("round1.scl"), "nowhere"));
}

// A name without a folder lies in the working folder, and so does the temporary file.
TEST(SafeFile, ABareNameIsWrittenInTheWorkingFolder) {
  TempDir dir;
  fs::create_directory(dir.File("real"));
  Link("real/data.scl", dir.File("link.scl"));
  const fs::path before = fs::current_path();
  fs::current_path(dir.Path());
  const bool bare = Write("bare.scl", "bare");
  const bool linked = Write("link.scl", "linked");
  fs::current_path(before);
  EXPECT_TRUE(bare);
  EXPECT_TRUE(linked);
  EXPECT_EQ(Read(dir.File("bare.scl")), "bare");
  EXPECT_EQ(Read(dir.File("real/data.scl")), "linked");
  EXPECT_EQ(Names(dir.Path()), (std::vector<std::string>{"bare.scl", "link.scl", "real"}));
}

TEST(SafeFile, ARefusedTargetIsLeftAsItWas) {
  struct Case {
    std::string name;  // what is written to
    std::string file;  // what must stay
    mode_t mode;
  };
  for (const Case& c : {Case{"ro.scl", "ro.scl", 0444}, Case{"mine.scl", "mine.scl", 0400},
                        Case{"link.scl", "ro.scl", 0444}}) {
    TempDir dir;
    const std::string file = dir.Write(c.file, "precious");
    ASSERT_EQ(::chmod(file.c_str(), c.mode), 0);
    if (c.name != c.file) Link(c.file, dir.File(c.name));
    const std::vector<std::string> before = Names(dir.Path());
    EXPECT_FALSE(Write(dir.File(c.name), "new")) << c.name;
    EXPECT_EQ(Read(file), "precious");
    EXPECT_EQ(ModeOf(file), c.mode);
    EXPECT_EQ(Names(dir.Path()), before);
  }
  TempDir dir;
  fs::create_directory(dir.File("folder.scl"));
  EXPECT_FALSE(Write(dir.File("folder.scl"), "new"));
  EXPECT_TRUE(fs::is_directory(dir.File("folder.scl")));
  EXPECT_FALSE(Write(dir.File("no such folder/x.scl"), "new"));
}

TEST(SafeFile, LinksPlantedAtTemporaryNamesAreNeverWrittenThrough) {
  TempDir dir;
  const std::string victim = dir.Write("victim", "precious");
  const std::vector<std::string> planted = {".data.scl.saving", "data.scl.saving-AAAAAA",
                                            "data.scl.saving-zzzzzz"};
  for (const std::string& name : planted) Link(victim, dir.File(name));

  ASSERT_TRUE(Write(dir.File("data.scl"), "new"));
  EXPECT_EQ(Read(dir.File("data.scl")), "new");
  for (const std::string& name : planted) {
    EXPECT_FALSE(CreateNewFile(dir.File(name))) << name;
    EXPECT_TRUE(fs::is_symlink(dir.File(name))) << name;
  }
  EXPECT_EQ(Read(victim), "precious");

  ASSERT_TRUE(CreateNewFile(dir.File("fresh")));
  EXPECT_EQ(ModeOf(dir.File("fresh")), 0600u);
  EXPECT_EQ(fs::file_size(dir.File("fresh")), 0u);
}

TEST(SafeFile, ASuccessfulWriteRemovesTheLeftoversOfItsTarget) {
  TempDir dir;
  dir.Write("data.scl", "old");
  dir.Write("data.scl.saving-k1LL3d", "half of a killed write");
  dir.Write("data.scl.saving-Xy12ab", "half of another");
  dir.Write("other.scl.saving-k1LL3d", "another file's");
  dir.Write("data.scl.saving-short", "not of the pattern");
  const std::string busy = dir.Write("data.scl.saving-BUSY00", "a write under way");
  const int fd = ::open(busy.c_str(), O_RDONLY);
  ASSERT_GE(fd, 0);
  ASSERT_EQ(::flock(fd, LOCK_EX), 0);

  ASSERT_TRUE(Write(dir.File("data.scl"), "new"));
  ::close(fd);
  EXPECT_EQ(Names(dir.Path()),
            (std::vector<std::string>{"data.scl", "data.scl.saving-BUSY00", "data.scl.saving-short",
                                      "other.scl.saving-k1LL3d"}));
}

TEST(SafeFile, AVeryLongNameStillGetsItsTemporaryFile) {
  TempDir dir;
  const std::string name = std::string(250, 'n') + ".scl";
  ASSERT_TRUE(Write(dir.File(name), "first"));
  ASSERT_TRUE(Write(dir.File(name), "second"));
  EXPECT_EQ(Read(dir.File(name)), "second");
  EXPECT_EQ(Names(dir.Path()), std::vector<std::string>{name});
}

TEST(SafeFile, AFailedWriteLeavesTheOldFileAndNoTemporaryFile) {
  TempDir dir;
  const std::string path = dir.Write("data.scl", "old");
  // A file size limit makes the write fail part-way, as a full disk would.
  rlimit saved{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100, saved.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const bool written = WriteFileSafely(path, std::vector<std::uint8_t>(5000, 0xAB));
  ::setrlimit(RLIMIT_FSIZE, &saved);
  std::signal(SIGXFSZ, previous);
  EXPECT_FALSE(written);
  EXPECT_EQ(Read(path), "old");
  EXPECT_EQ(Names(dir.Path()), std::vector<std::string>{"data.scl"});
}

}  // namespace
}  // namespace sched
