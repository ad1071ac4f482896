// Which office application a file belongs to.
#pragma once

#include "runtime/text.h"

namespace zorkanca::cli {

/// True for a workbook, false for a document, by the name; of an XML file by what it begins with.
/// Errors: `UsageError` for any other name.
bool IsForExcel(TextView path);

}  // namespace zorkanca::cli
