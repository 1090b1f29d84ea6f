#include "app/single_instance.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QLocalServer>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/user_runtime.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kOtherUser = 65534;

// A socket that listens at a path as a running program would, open to all.
class PlantedSocket : public QLocalServer {
 public:
  explicit PlantedSocket(const fs::path& path) {
    setSocketOptions(QLocalServer::WorldAccessOption);
    EXPECT_TRUE(listen(QString::fromStdString(path.string()))) << path;
  }
};

// A test's own runtime, temporary and settings folders, as the environment names them.
struct UserFolders {
  TempDir dir;
  fs::path runtime = dir.Path() / "run";
  fs::path temp = dir.Path() / "tmp";
  fs::path own = temp / ("scheduler-" + std::to_string(::getuid()));
  TempFolder tempFolder{temp.string()};

  UserFolders() {
    fs::create_directories(temp);
    fs::create_directory(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", dir.File("config").c_str(), 1);
  }
};

TEST(UserRuntimeFolder, IsAFolderNobodyElseCanEnter) {
  struct Case {
    const char* what;
    std::string xdgRuntimeDir;  // "run" stands for the test's runtime folder
    bool needsRoot;             // only root can give a folder to another user
    std::function<bool(UserFolders&)> arrange;
    const char* expected;  // "run", "own" (the folder in the temporary one) or "none"
  };
  const auto nothing = [](UserFolders&) { return true; };
  const Case cases[] = {
      {"a runtime folder of the user's own", "run", false, nothing, "run"},
      {"no runtime folder", "", false, nothing, "own"},
      {"a relative runtime folder", "relative/run", false, nothing, "own"},
      {"a runtime folder others may enter", "run", false,
       [](UserFolders& f) { return ::chmod(f.runtime.c_str(), 0755) == 0; }, "own"},
      {"a runtime folder of another user", "run", true,
       [](UserFolders& f) { return ::chown(f.runtime.c_str(), kOtherUser, 0) == 0; }, "own"},
      {"an own folder open to all is closed", "", false,
       [](UserFolders& f) {
         return ::mkdir(f.own.c_str(), 0777) == 0 && ::chmod(f.own.c_str(), 0777) == 0;
       },
       "own"},
      {"the folder's name taken by another user", "", true,
       [](UserFolders& f) {
         return ::mkdir(f.own.c_str(), 0700) == 0 && ::chown(f.own.c_str(), kOtherUser, 0) == 0;
       },
       "none"},
      {"the folder's name taken by a file", "", false,
       [](UserFolders& f) { return std::ofstream(f.own).good(); }, "none"},
      {"the folder's name a link to a folder", "", false,
       [](UserFolders& f) { return ::symlink(f.runtime.c_str(), f.own.c_str()) == 0; }, "none"},
  };
  for (const Case& c : cases) {
    if (c.needsRoot && ::getuid() != 0) continue;
    UserFolders f;
    ASSERT_TRUE(c.arrange(f)) << c.what;
    const std::string xdg = c.xdgRuntimeDir == "run" ? f.runtime.string() : c.xdgRuntimeDir;
    const std::optional<std::string> folder = UserRuntimeFolder(xdg, f.temp);
    const std::string expected = std::string(c.expected) == "run"   ? f.runtime.string()
                                 : std::string(c.expected) == "own" ? f.own.string()
                                                                    : "none";
    EXPECT_EQ(folder.value_or("none"), expected) << c.what;
    if (folder) {
      EXPECT_EQ(fs::symlink_status(*folder).permissions(), fs::perms::owner_all) << c.what;
    }
  }
}

// Whatever lies at the socket's name, in the shared temporary folder or in the user's own
// folder, only the user's running program keeps a start from going on.
TEST(SingleInstance, OnlyThisUsersRunningProgramIsFound) {
  UserFolders f;
  fs::path socket;
  {
    SingleInstance first;
    EXPECT_FALSE(first.ActivateRunningInstance());
    first.Listen([] {});
    ASSERT_EQ(std::distance(fs::directory_iterator(f.runtime), fs::directory_iterator()), 1);
    socket = fs::directory_iterator(f.runtime)->path();
  }
  // The name the socket had in the shared temporary folder, and its name now, planted there.
  const std::string name = socket.filename().string();
  const std::string hash = name.substr(name.find('-') + 1);
  PlantedSocket sharedOld(f.temp / ("Scheduler-" + std::to_string(::getuid()) + "-" + hash));
  PlantedSocket shared(f.temp / name);

  enum class Plant { Nothing, File, OtherUsersSocket };
  for (const auto& [plant, what] : {std::pair{Plant::Nothing, "nothing"},
                                    {Plant::File, "a file"},
                                    {Plant::OtherUsersSocket, "another user's socket"}}) {
    SCOPED_TRACE(std::string("at the name in the user's folder: ") + what);
    fs::remove(socket);
    std::optional<PlantedSocket> planted;
    if (plant == Plant::File) std::ofstream(socket) << "not a socket";
    if (plant == Plant::OtherUsersSocket) {
      if (::getuid() != 0) continue;  // only root can give a socket to another user
      planted.emplace(socket);
      ASSERT_EQ(::chown(socket.c_str(), kOtherUser, kOtherUser), 0);
    }
    SingleInstance second;
    EXPECT_FALSE(second.ActivateRunningInstance());
    int activations = 0;
    second.Listen([&] { ++activations; });
    SingleInstance third;
    EXPECT_TRUE(third.ActivateRunningInstance());
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations == 1; }, 2000));
  }
}

// The program as a user starts it, offscreen, on a home of the test's own without an
// installation; each start saves a picture of its window, PICTURE.png, and ends.
class ProgramStart : public ::testing::Test {
 protected:
  UserFolders f;
  fs::path home = f.dir.Path() / "home";

  pid_t Spawn(const std::string& picture) const {
    const std::string variables[] = {
        "HOME=" + home.string(),
        "XDG_DATA_HOME=" + f.dir.File("data"),
        "XDG_CONFIG_HOME=" + f.dir.File("config"),
        "XDG_RUNTIME_DIR=" + f.runtime.string(),
        "TMPDIR=" + f.temp.string(),
        "QT_QPA_PLATFORM=offscreen",
        "SCHEDULER_SCREENSHOT=" + Picture(picture).string(),
    };
    std::vector<char*> env;
    for (const std::string& variable : variables)
      env.push_back(const_cast<char*>(variable.c_str()));
    env.push_back(nullptr);
    char* argv[] = {const_cast<char*>(SCHEDULER_PROGRAM), nullptr};
    pid_t pid = 0;
    EXPECT_EQ(::posix_spawn(&pid, SCHEDULER_PROGRAM, nullptr, nullptr, argv, env.data()), 0);
    return pid;
  }
  static int Wait(pid_t pid) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  fs::path Picture(const std::string& name) const { return f.dir.Path() / (name + ".png"); }
};

TEST_F(ProgramStart, AFreshUserGetsAnInstallationAndOneRunningProgram) {
  fs::create_directory(home);
  const pid_t first = Spawn("first");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !fs::is_empty(f.runtime); }, 20000));
  const fs::path socket = fs::directory_iterator(f.runtime)->path();
  EXPECT_EQ(Wait(Spawn("second")), 0);
  EXPECT_EQ(Wait(first), 0);
  EXPECT_TRUE(fs::exists(Picture("first")));
  EXPECT_FALSE(fs::exists(Picture("second"))) << "a second start ends at once";
  EXPECT_TRUE(fs::exists(f.dir.Path() / "data/Sorvane/Tarvex/userdata/PIMdata/Sample.scl"));

  if (::getuid() != 0) return;  // only root can give a socket to another user
  PlantedSocket other(socket);
  ASSERT_EQ(::chown(socket.c_str(), kOtherUser, kOtherUser), 0);
  EXPECT_EQ(Wait(Spawn("third")), 0);
  EXPECT_TRUE(fs::exists(Picture("third"))) << "another user's socket is no running program";
}

}  // namespace
}  // namespace sched
