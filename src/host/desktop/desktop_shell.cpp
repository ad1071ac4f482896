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
#include "host/process/spawn_settings.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr const char* kOpener = "xdg-open";

pid_t StartOpener(std::string path) {
  std::string program = kOpener;
  char* const arguments[] = {program.data(), path.data(), nullptr};
  const SpawnSettings settings("/dev/null", SpawnSettings::Group::kOwnSession);
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
