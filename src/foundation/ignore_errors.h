// Errors that are ignored on purpose go through here, so that they can be searched for.
#pragma once

namespace zorkanca {

/// Runs the body and drops any error that it raises.
/// @return true when the body ran to its end
template <typename Body>
bool IgnoreErrors(Body&& body) noexcept {
  try {
    body();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace zorkanca
