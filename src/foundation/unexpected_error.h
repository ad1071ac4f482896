// Turns a caught error into the library's internal error. Operations do so through foundation/guarded.h.
#pragma once

#include "foundation/err_data.h"
#include "runtime/text.h"

namespace zorkanca {

/// Made inside a catch block: it keeps the error being handled there, which may be raised later.
class UnexpectedError {
 public:
  /// Replaces `savedError` by the error being handled now.
  void SaveCurrentError() { savedError.FillWithCurrentErr(); }

  /// Raises `savedError` as an internal error, see `ErrData::RaiseAsInternalError`.
  [[noreturn]] void RaiseSavedErrorAsUnexpected(TextView sourceFunctionName, TextView details) const {
    savedError.RaiseAsInternalError(sourceFunctionName, details);
  }
  /// Raises the error being handled now as an internal error and leaves `savedError` alone.
  [[noreturn]] void RaiseCurrentErrorAsUnexpected(TextView sourceFunctionName, TextView details) const {
    ErrData::GetCurrentErrData().RaiseAsInternalError(sourceFunctionName, details);
  }

  ErrData savedError;
};

}  // namespace zorkanca
