// Ctrl-C: the first one asks the running export to stop, the second one ends the program.
#pragma once

#include <atomic>
#include <string>

namespace zorkanca::cli {

/// Installs the handler. @return the flag that the first Ctrl-C sets
const std::atomic<bool>& WatchForInterrupt();

/// All of standard input. Errors: 18 when Ctrl-C comes while more is waited for; 57 when it cannot be read.
std::string ReadStandardInput();

}  // namespace zorkanca::cli
