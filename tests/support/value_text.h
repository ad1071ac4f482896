// Values in tables of cases.
#pragma once

#include <string>

#include "runtime/value.h"

namespace zorkanca::testing {

/// A value by its type and plain text: numbers (R8 R4 CY DEC I8 I4 I2 UI1) with ".", BOOL True or False, DATE
/// "yyyy-mm-dd[ hh:mm[:ss]]" or a serial, BSTR, EMPTY, NULL, BINARY, OBJECT. The test fails for any other type.
Value ValueFromText(const std::string& type, const std::string& text);

/// A date as "yyyy-mm-dd hh:mm:ss".
std::string IsoText(Date date);

}  // namespace zorkanca::testing
