// What the application calls new workbooks and sheets in the user's language.
#pragma once

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::excel {

/// "Sešit", "Book": a number follows.
Text NewWorkbookName(const Locale& locale);
/// "List", "Sheet": a number follows.
Text NewSheetName(const Locale& locale);

/// "Sloupec", "Column": of tables; a number follows.
Text NewColumnName(const Locale& locale);

}  // namespace zorkanca::excel
