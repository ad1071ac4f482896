// The numbers of the errors that the library itself raises, apart from the runtime's own (runtime/error.h).
#pragma once

#include <cstdint>

namespace zorkanca {

/// From here on automation lets a component number its own errors (vbObjectError, hexadecimal 80040000).
inline constexpr std::int32_t kObjectErrorBase = -2147221504;

enum ErrorCodes : std::int32_t {
  /// Something failed inside an operation; description and source carry the whole call chain.
  UnexpectedErrorCode = kObjectErrorBase + 513,
  /// An argument or another value is not what it must be.
  ArgumentErrorCode = kObjectErrorBase + 514,
  /// The operation cannot be done in this state or with these values.
  InvalidOperationErrorCode = kObjectErrorBase + 517,
};

}  // namespace zorkanca
