// An empty workbook with one empty sheet, as the application makes it.
#pragma once

#include "opc/package.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

Package BlankWorkbook(const Locale& locale);

/// The least that a part of styles holds.
std::string BlankStyles(OfficeFamily family);

}  // namespace zorkanca::excel
