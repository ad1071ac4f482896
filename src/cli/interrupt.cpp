#include "cli/interrupt.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>

#include "runtime/error.h"

namespace zorkanca::cli {

namespace {

std::atomic<bool> interruptedFlag = false;
static_assert(std::atomic<bool>::is_always_lock_free, "the flag is set inside a signal handler");

void OnInterrupt(int) {
  interruptedFlag = true;
}

}  // namespace

const std::atomic<bool>& WatchForInterrupt() {
  struct sigaction action {};
  action.sa_handler = OnInterrupt;
  // The default action is back after the first signal: the second one ends the program.
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigaction(SIGINT, &action, nullptr);
  return interruptedFlag;
}

std::string ReadStandardInput() {
  std::string bytes;
  char block[16384];
  for (;;) {
    const ssize_t count = read(STDIN_FILENO, block, sizeof block);
    if (interruptedFlag) Raise(RuntimeError::kUserInterrupt);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Raise(RuntimeError::kDeviceIo);
    if (count == 0) return bytes;
    bytes.append(block, static_cast<std::size_t>(count));
  }
}

}  // namespace zorkanca::cli
