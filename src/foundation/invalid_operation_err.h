// The error about an operation that cannot be done in this state or with these values.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// Raises `InvalidOperationErrorCode`.
class InvalidOperationErr {
 public:
  /// The source of the error is the function with the application's name before it.
  /// @param details  blank adds nothing to the description
  /// Errors: `ArgumentErrorCode` when the description or the function name is blank.
  [[noreturn]] static void RaiseError(TextView errorDescription, TextView sourceFunctionName, TextView details);

  static Text BuildDescription(TextView errorDescription, TextView details);
};

}  // namespace zorkanca
