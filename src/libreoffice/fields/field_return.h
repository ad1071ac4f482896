// Marked fields become fields again in the package that LibreOffice wrote.
#pragma once

#include <string>

#include "libreoffice/fields/marked_fields.h"

namespace zorkanca {

/// Puts the fields back, in place.
/// @param path  native path of a Word package
/// @return      false when they did not all come through whole; then the package is of no use
/// Errors: those of packages and of the file system.
bool ReturnFields(const std::string& path, const MarkedFields& fields);

}  // namespace zorkanca
