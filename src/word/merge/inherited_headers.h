// The headers and footers that sections take from those before them, which in a merged document may be another copy's.
#pragma once

#include <pugixml.hpp>
#include <vector>

#include "word/document/word_package.h"

namespace zorkanca::word {

/// Makes each section of a copy name the headers and footers that it shows, so that no copy inherits from the one
/// before it: its own, else those of the section before, else empty ones where a later section of the copy has some.
/// @param package   gets the empty parts
/// @param sections  of one copy
void NameInheritedHeaders(WordPackage& package, const std::vector<pugi::xml_node>& sections);

}  // namespace zorkanca::word
