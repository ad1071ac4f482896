#include "excel/grid/excel_errors.h"

#include "runtime/error.h"

namespace zorkanca {

void RaiseExcelError(ExcelError error, TextView description) {
  throw Error(static_cast<std::int32_t>(error), u"Excel", Text(description));
}

void RaiseExcelError(TextView description) {
  RaiseExcelError(ExcelError::kApplication, description);
}

void RaiseUnsupportedExcelMember(TextView member) {
  Raise(RuntimeError::kNotSupported, Text(u"not supported: Excel.").append(member));
}

}  // namespace zorkanca
