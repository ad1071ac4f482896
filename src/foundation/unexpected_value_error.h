// The error about a value that none of the expected cases covers.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// Raises `ArgumentErrorCode`. In error sources the class goes under "UnexpectedError".
class UnexpectedValueError {
 public:
  /// Errors: `ArgumentErrorCode` when the name is blank.
  static Text BuildDescription(TextView valueName, TextView value, TextView details);

  /// @param value    the value as text
  /// @param details  what would have been right; blank adds nothing
  [[noreturn]] static void RaiseUnexpectedValueError(TextView valueName, TextView value, TextView sourceFunctionName,
                                                     TextView details);
};

}  // namespace zorkanca
