#include "host/desktop/desktop_shell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <string>
#include <thread>

#include "host/files/file_descriptor.h"
#include "host/files/native_path.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr const char* kOpener = "xdg-open";

// How the opener is started: apart from our terminal, so that it outlives us, and without our streams, so that whoever
// reads what we print does not wait for its end.
class SpawnSettings {
 public:
  SpawnSettings() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
    posix_spawnattr_init(&attributes_);
    sigset_t none;
    sigemptyset(&none);
    sigset_t usual = none;  // an ignored signal would stay ignored in the opener and all that it starts
    for (const int number : {SIGPIPE, SIGINT, SIGQUIT, SIGHUP, SIGTERM, SIGCHLD, SIGXFSZ}) sigaddset(&usual, number);
    posix_spawnattr_setsigdefault(&attributes_, &usual);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }
  ~SpawnSettings() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  const posix_spawn_file_actions_t* actions() const { return &actions_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

pid_t StartOpener(std::string path) {
  std::string program = kOpener;
  char* const arguments[] = {program.data(), path.data(), nullptr};
  const SpawnSettings settings;
  pid_t process = 0;
  const int failure = posix_spawnp(&process, kOpener, settings.actions(), settings.attributes(), arguments, environ);
  if (failure == ENOENT) {
    Raise(RuntimeError::kFileNotFound, u"xdg-open, which opens documents, is not installed (package xdg-utils)");
  }
  if (failure != 0) {
    Raise(RuntimeError::kInvalidCall, u"xdg-open could not be started: " + FromUtf8(strerrordesc_np(failure)));
  }
  return process;
}

// The exit status of a process that ends in time. One that goes on is waited for by a thread, so that no dead process
// stays in the table.
std::optional<int> StatusInTime(pid_t process, std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds kPause(10);
  const auto end = std::chrono::steady_clock::now() + patience;
  int status = 0;
  for (;;) {
    const pid_t ended = Uninterrupted([&] { return waitpid(process, &status, WNOHANG); });
    if (ended == process) return status;
    if (ended < 0) return std::nullopt;  // somebody else has collected it
    if (std::chrono::steady_clock::now() >= end) break;
    std::this_thread::sleep_for(kPause);
  }
  std::thread([process] {
    int ignored = 0;
    Uninterrupted([&] { return waitpid(process, &ignored, 0); });
  }).detach();
  return std::nullopt;
}

// What the exit codes in xdg-open's manual page mean.
Text ReasonOf(int status) {
  if (!WIFEXITED(status)) return u"it was ended by a signal";
  switch (WEXITSTATUS(status)) {
    case 2:
      return u"the file was not found";
    case 3:
      return u"no program for this kind of file was found";
    case 4:
      return u"the program for this kind of file failed";
    default:
      return u"exit code " + DecimalText(WEXITSTATUS(status));
  }
}

}  // namespace

void DesktopShell::OpenDocument(TextView path) {
  const std::string native = AbsolutePath(ToNativePath(path));
  if (access(native.c_str(), F_OK) != 0) Raise(RuntimeError::kFileNotFound);
  const std::optional<int> status = StatusInTime(StartOpener(native), patience_);
  if (status && *status != 0) {
    Raise(RuntimeError::kInvalidCall, u"xdg-open could not open " + FromNativePath(native) + u": " + ReasonOf(*status));
  }
}

}  // namespace zorkanca
