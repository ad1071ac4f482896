// The lines of the HTML table: rows and cells, each line ended by CR LF.
#pragma once

#include "platform/database.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::html {

void BeginRow(Text& row);
void EndRow(Text& row);

/// A caption, bold and centred.
void AppendHeaderCell(Text& row, TextView name);
/// A cell of an empty record.
void AppendBlankCell(Text& row);

/// A value of the current record, written and aligned as the field's type asks: numbers and dates right, texts left
/// unless they begin with a blank.
/// @param isMultiplier  the field is shown as "1", whatever its value
/// Errors: 13 for a binary value.
void AppendDataCell(Text& row, Field& field, bool isMultiplier, const Locale& locale);

}  // namespace zorkanca::html
