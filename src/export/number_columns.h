// How the exports write the columns of numbers that people read with grouping and decimals.
#pragma once

#include "runtime/format.h"

namespace zorkanca {

/// The format of a decimal field's values (`IsDecimalType`): grouped with two to six decimals; a field named exactly
/// "ico" holds the identification number of a company and shows bare digits.
const FormatPattern& NumberFormatOf(TextView fieldName);

}  // namespace zorkanca
