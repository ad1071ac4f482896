// A snapshot of one error, and the texts into which it turns when it crosses an operation of the library.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

/// Number, description and source of an error, free to be changed.
///
/// The source grows into a chain: each operation that an error crosses puts its own line in front, so that the line of
/// the outermost one stands first.
class ErrData {
 public:
  /// Takes the error being handled; 0 and empty texts outside a catch block.
  ErrData();

  /// Replaces the content by the error being handled.
  void FillWithCurrentErr();
  /// A new record of the error being handled.
  static ErrData GetCurrentErrData() { return {}; }

  /// Raises `UnexpectedErrorCode` with this error wrapped into description and source.
  /// @param sourceFunctionName  "Class.Operation" of whoever caught the error
  /// @param details             arguments of that operation; empty adds nothing
  [[noreturn]] void RaiseAsInternalError(TextView sourceFunctionName, TextView details) const;

  /// The full message (description, empty line, source in brackets) without a function name and details.
  Text ToString() const { return BuildErrorMessage({}, {}); }
  /// The full message of the error that `RaiseAsInternalError` would raise.
  Text BuildErrorMessage(TextView sourceFunctionName, TextView details) const;

  std::int32_t number = 0;
  Text description;
  Text source;

 private:
  Text InternalDescription(TextView sourceFunctionName) const;
  Text InternalSource(TextView sourceFunctionName, TextView details) const;
};

}  // namespace zorkanca
