// Which office application a file belongs to.
#pragma once

#include <string_view>

#include "runtime/text.h"

namespace zorkanca::cli {

/// True for a workbook, false for a document, by the name; of an XML file by what it begins with.
/// Errors: `UsageError` for any other name.
bool IsForExcel(TextView path);

/// Whether the text of an XML file has the root of a workbook.
bool IsSpreadsheetXml(std::string_view bytes);

}  // namespace zorkanca::cli
