// The texts of the library's errors, in one place; who raises them stands in argument_error.h and its neighbours.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

/// Stateless builder of descriptions and sources.
class ErrorRoutines {
 public:
  /// "[application].function"
  static Text BuildErrorSourceText(TextView appExeName, TextView functionName);

  /// An error's number and description with the place where it came up, as one sentence.
  /// Errors: `ArgumentErrorCode` when the description or the application name is blank.
  static Text BuildUnexpectedErrorDescription(std::int32_t errorNumber, TextView errorDescription,
                                              TextView functionName, TextView appExeName);

  /// A sentence that a value is not what the named thing may hold.
  /// @param details  blank adds nothing
  /// Errors: `ArgumentErrorCode` when the name is blank.
  static Text BuildUnexpectedValueErrorDescription(TextView value, TextView valueName, TextView details);

  /// The text, then " [Detaily: details]" unless the details are blank.
  static Text AppendDetailsIfTheyAreNotBlank(TextView text, TextView details);
  /// "[name: details]"
  static Text BuildDetailsText(TextView name, TextView details);
  /// The text, then " [details]" unless the details are blank.
  static Text AppendDetails(TextView text, TextView details);

  /// A source chain of the library with the function's line in front of the previous source.
  static Text BuildErrorSource(TextView functionName, TextView previousSource, TextView details);
};

}  // namespace zorkanca
