// What fields say is kept while LibreOffice makes a Word package of a document in another format.
#pragma once

#include <optional>
#include <string>

#include "libreoffice/fields/marked_fields.h"

namespace zorkanca {

/// Writes a copy of a document in which the fields that LibreOffice would spoil are marked (see marked_fields.h).
/// @param document  native path
/// @param copy      native path, written only when something is marked
/// @return          nothing when the document has no such field
/// Errors: 5 when it has some, or may have, and they cannot be marked, with the reason as an English clause, which
/// OpenDocument is always; those of the file system.
std::optional<MarkedFields> MarkFields(const std::string& document, const std::string& copy);

}  // namespace zorkanca
