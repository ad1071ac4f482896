// Ctrl-C: the first one asks the running export to stop, the second one ends the program.
#pragma once

#include <atomic>

namespace zorkanca::cli {

/// Installs the handler. @return the flag that the first Ctrl-C sets
const std::atomic<bool>& WatchForInterrupt();

}  // namespace zorkanca::cli
