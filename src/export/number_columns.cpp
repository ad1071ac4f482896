#include "export/number_columns.h"

namespace zorkanca {

const FormatPattern& NumberFormatOf(TextView fieldName) {
  static const FormatPattern decimals(u"###,##0.00####");
  static const FormatPattern digits(u"#");
  return fieldName == u"ico" ? digits : decimals;
}

}  // namespace zorkanca
