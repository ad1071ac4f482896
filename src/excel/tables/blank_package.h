// An empty workbook with one empty sheet, as the application makes it.
#pragma once

#include "opc/package.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

Package BlankWorkbook(const Locale& locale);

/// The usual name of a kind of part, "/xl/styles.xml" for "/xl/styles", or where that is taken one with a number. Some
/// readers look for the usual names instead of following relationships.
std::string FreePartName(Package& package, const std::string& stem);

/// The least that a part of styles holds.
std::string BlankStyles();

}  // namespace zorkanca::excel
