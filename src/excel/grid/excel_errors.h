// The application's own errors, with the numbers of its object model.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

enum class ExcelError : std::int32_t {
  kObjectRequired = 424,  ///< the workbook was closed
  kApplication = 1004,    ///< everything that the application itself refuses
};

[[noreturn]] void RaiseExcelError(ExcelError error, TextView description);
/// Error 1004 with that description.
[[noreturn]] void RaiseExcelError(TextView description);
/// Error 438 "not supported: Excel.MEMBER".
[[noreturn]] void RaiseUnsupportedExcelMember(TextView member);

}  // namespace zorkanca
