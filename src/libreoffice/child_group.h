// A program that is started with helpers of its own, and ended with all of them.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace zorkanca {

/// What is started, and how long it may take.
struct ChildCommand {
  std::vector<std::string> arguments;    ///< the program's path first; no shell sees them
  std::vector<std::string> environment;  ///< "NAME=value", in place of what this process has under these names
  std::string outputFile;                ///< takes standard output and error
  std::chrono::milliseconds patience{0};
  std::function<bool()> cancelled;  ///< asked now and then; may be empty
};

/// How it ended.
enum class ChildEnd { kExited, kTimedOut, kCancelled };

/// Runs a program in a process group of its own until it ends, and never leaves one of its processes behind: at the
/// time-out the whole group is asked to end and, two seconds later, killed.
/// The exit code is not told: this program's is 0 for failures too.
/// Errors: 53 when there is no such program, 70 when it may not be started, 57.
ChildEnd RunInGroup(const ChildCommand& command);

}  // namespace zorkanca
