// Start tags as texts: finding them, and reading and setting their attributes.
#pragma once

#include <cstddef>
#include <optional>

#include "runtime/text.h"
#include "xmltemplate/markers.h"

namespace zorkanca {

/// The first start tag of the element at or after `from`, up to and with its ">": a "<", the name in any case, then a
/// space or ">". Nothing when there is none.
std::optional<TextRange> FindNextStartTag(TextView text, TextView element, std::size_t from = 0);

/// The attribute's value between its double quotes; "" when it is absent. The name's case is ignored.
Text GetAttribute(TextView tag, TextView name);
/// The tag with the attribute set: the value replaced where the attribute stands, else the attribute put right behind
/// the element's name. Name and value are taken as they are, nothing in them is escaped.
Text SetAttribute(TextView tag, TextView name, TextView value);

}  // namespace zorkanca
