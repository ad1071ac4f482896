// The fields of a document in Word's XML of 2003 (WordprocessingML before it was a package), made text.
#pragma once

#include <optional>
#include <string_view>

#include "libreoffice/fields/marked_fields.h"

namespace zorkanca {

inline constexpr std::string_view kWordXmlOf2003 = "http://schemas.microsoft.com/office/word/2003/wordml";

/// Marks the fields that LibreOffice would spoil.
/// @param xml  the whole file
/// @return     nothing when there is no such field
/// Errors: 5 for XML that is not sound or too large, with the reason as an English clause.
std::optional<MarkedText> MarkXmlFields(std::string_view xml);

}  // namespace zorkanca
