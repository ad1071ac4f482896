// Errors about arguments, and the checks that raise them. Checks stand at the top of an operation, before its guarded
// body, so that their errors reach the caller unwrapped.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// Raises `ArgumentErrorCode`. In all operations `argumentName` is the parameter at fault and the function name
/// "Class.Operation" of its owner.
class ArgumentError {
 public:
  /// Raises that the argument's value is not the expected one.
  /// @param expectedText  what it should have been, for people
  [[noreturn]] void RaiseArgumentError(TextView argumentName, TextView argumentValue, TextView expectedText,
                                       TextView sourceFunctionName) const;
  /// Raises that an object is missing.
  [[noreturn]] void RaiseArgumentIsNothingError(TextView argumentName, TextView functionName) const;

  /// Description of `RaiseArgumentError`: value, expectation, function, and `SourceInfoText` when there is one.
  Text BuildArgumentErrorDescription(TextView argumentName, TextView argumentValue, TextView expectedText,
                                     TextView sourceFunctionName) const;
  /// Description of `RaiseArgumentIsNothingError`.
  /// Errors: `ArgumentErrorCode` when either name is blank.
  Text BuildArgumentIsNothingDescription(TextView argumentName, TextView functionName) const;
  /// Description of the error that `StringArgumentMustNotBeBlank` raises.
  Text BuildStringArgumentIsBlankErrorDescription(TextView argumentName, TextView value,
                                                  TextView sourceFunctionName) const;

  /// Errors: `ArgumentErrorCode` when the value has no character, or when a name is blank.
  void StringArgumentMustNotBeEmpty(TextView value, TextView argumentName, TextView sourceFunctionName) const;
  /// Errors: `ArgumentErrorCode` when the value is empty or only spaces, or when a name is blank; its source names the
  /// application before the function.
  void StringArgumentMustNotBeBlank(TextView value, TextView argumentName, TextView sourceFunctionName) const;
  /// Errors: `ArgumentErrorCode` when the pointer is null.
  void ObjectArgumentMustNotBeNothing(const void* value, TextView argumentName, TextView sourceFunctionName) const;

  /// Where the wrong argument came from, for people; appended to descriptions unless empty.
  Text SourceInfoText;

 private:
  [[noreturn]] void RaiseBlankArgument(TextView value, TextView argumentName, TextView sourceFunctionName) const;
  void NamesMustNotBeBlank(TextView argumentName, TextView sourceFunctionName, TextView checkingFunction) const;
};

}  // namespace zorkanca
