// Parameters of a bar code as a person types them: what the library takes for an empty text is an error here.
#pragma once

#include <string>
#include <vector>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::cli {

/// Errors: `UsageError` for a symbology that there is not, with those that there are, and for parameters that are none.
void RequireBarCode(const std::string& parameters, const Locale& locale);

/// The columns that a bar code reads. Errors: as `RequireBarCode`.
std::vector<Text> ColumnsOfBarCode(const std::string& parameters, const Locale& locale);
/// The column that it takes the place of. Errors: as `RequireBarCode`.
Text OutputOfBarCode(const std::string& parameters, const Locale& locale);
/// Those of a bar code in braces behind column names; none without it.
std::vector<Text> ColumnsOfBarCodeBehind(const std::string& names, const Locale& locale);

}  // namespace zorkanca::cli
