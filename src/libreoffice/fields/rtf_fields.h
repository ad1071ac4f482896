// The fields of a document in rich text format, made text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "libreoffice/fields/marked_fields.h"

namespace zorkanca {

/// Marks the fields that LibreOffice would spoil.
/// @param rtf  the whole file
/// @return     nothing when there is no such field
/// Errors: 5 for groups or fields too deep inside each other, with the reason as an English clause.
std::optional<MarkedText> MarkRtfFields(std::string_view rtf);

}  // namespace zorkanca
