// The fields of a binary Word document (MS-DOC), made text in place.
#pragma once

#include <optional>
#include <string>

#include "libreoffice/fields/marked_fields.h"

namespace zorkanca {

/// Marks the fields that LibreOffice would spoil. The file keeps its length; what is no field stays as it is.
/// @param bytes  the whole file, changed in place
/// @return       nothing when there is no such field; then nothing is changed
/// Errors: 5 for a document that cannot be read or marked, with the reason as an English clause.
std::optional<MarkedFields> MarkBinaryFields(std::string& bytes);

}  // namespace zorkanca
