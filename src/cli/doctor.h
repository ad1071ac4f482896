// What the computer has of what the program can use: one look for each thing, in the order in which they are told.
#pragma once

#include <string>

#include "cli/command_line.h"
#include "runtime/text.h"

namespace zorkanca::cli {

/// What a look found.
struct Finding {
  enum class State {
    kOk,
    kMissing,  ///< not there; what needs it cannot be done, the rest can
    kBroken,   ///< there or set up, and does not work
  };
  State state = State::kOk;
  Text text{};  ///< version and place; what to install; why it does not work
};

/// Each raises what does not work, or answers `kBroken` itself.
using Look = Finding (*)(const CommandContext&);

/// One thing that the program can use.
struct DoctorRow {
  const char* name;  ///< one word, which scripts look for
  Look look;
};

}  // namespace zorkanca::cli
