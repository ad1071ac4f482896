// Which characters mark fields.
#pragma once

#include <vector>

#include "libreoffice/fields/marked_fields.h"

namespace zorkanca {

/// Characters that a document has nowhere.
/// @param used     by code, which ones it has
/// @param asBytes  whether the markers must be characters of code page 1252; else they are private ones (U+E013...)
/// Errors: 5 when there are not enough of them.
FieldMarkers ChooseMarkers(const std::vector<bool>& used, bool asBytes);

}  // namespace zorkanca
