#include "platform/std/child_process.h"

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>

extern char** environ;

namespace sched {
namespace {

// Both ends of a pipe, closed when it goes.
struct Pipe {
  std::array<int, 2> fd{-1, -1};
  bool Open() { return pipe(fd.data()) == 0; }
  void Close(int end) {
    if (fd[end] >= 0) close(fd[end]);
    fd[end] = -1;
  }
  ~Pipe() {
    Close(0);
    Close(1);
  }
};

// Copies what the child writes on both pipes until it closes them.
void Drain(Pipe& outPipe, std::ostream& out, Pipe& errPipe, std::ostream& err) {
  std::array<pollfd, 2> fds{pollfd{outPipe.fd[0], POLLIN, 0}, pollfd{errPipe.fd[0], POLLIN, 0}};
  std::array<std::ostream*, 2> streams{&out, &err};
  char buffer[4096];
  while (fds[0].fd >= 0 || fds[1].fd >= 0) {
    if (poll(fds.data(), fds.size(), -1) < 0) {
      if (errno == EINTR) continue;
      return;
    }
    for (std::size_t i = 0; i < fds.size(); ++i) {
      if (fds[i].fd < 0 || fds[i].revents == 0) continue;
      const ssize_t got = read(fds[i].fd, buffer, sizeof buffer);
      if (got > 0) {
        streams[i]->write(buffer, got);
      } else if (got == 0 || errno != EINTR) {
        fds[i].fd = -1;
      }
    }
  }
}

}  // namespace

std::optional<int> RunChild(const std::string& path, const std::vector<std::string>& args,
                            std::ostream& out, std::ostream& err) {
  Pipe outPipe;
  Pipe errPipe;
  if (!outPipe.Open() || !errPipe.Open()) return std::nullopt;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, outPipe.fd[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errPipe.fd[1], STDERR_FILENO);
  posix_spawn_file_actions_addclose(&actions, outPipe.fd[0]);
  posix_spawn_file_actions_addclose(&actions, errPipe.fd[0]);
  std::vector<char*> argv{const_cast<char*>(path.c_str())};
  for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
  argv.push_back(nullptr);
  pid_t pid = 0;
  const int spawned = posix_spawn(&pid, path.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (spawned != 0) return std::nullopt;
  outPipe.Close(1);
  errPipe.Close(1);
  Drain(outPipe, out, errPipe, err);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return std::nullopt;
  }
  if (!WIFEXITED(status)) return std::nullopt;
  return WEXITSTATUS(status);
}

std::string OwnFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

}  // namespace sched
