#include "cli/interrupt.h"

#include <signal.h>

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

}  // namespace zorkanca::cli
