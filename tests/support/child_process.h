// Parts of a test that run in a process of their own.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <exception>

namespace zorkanca::testing {

/// Starts a child that runs the body; its exit code is what the body returns, 99 when it throws.
template <typename Body>
pid_t StartChild(Body body) {
  const pid_t child = fork();
  if (child != 0) return child;
  int code = 99;
  try {
    code = body();
  } catch (const std::exception&) {
    code = 99;
  }
  _exit(code);
}

/// Waits for a child. @return its exit code, or minus the number of the signal that ended it
inline int ExitOf(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) return -1000;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// In a child: from now on no file grows beyond this size, as on a full disk.
inline void LimitFileSize(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace zorkanca::testing
