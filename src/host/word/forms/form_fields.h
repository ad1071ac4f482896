// Form fields of a document (w:ffData) by their names.
#pragma once

#include <pugixml.hpp>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::word {

/// The result of a form field: its text; "1" or "0" of a check box; the chosen entry of a list.
/// @param body  tree of the main text
/// @param name  compared ignoring case
/// Errors: 5941 when there is no such field.
Text FormFieldResultOf(const pugi::xml_node& body, TextView name);

/// Sets it. The text takes the format of the old result; an empty one is shown as five blanks, as Word does.
/// Errors: 5941; 4609 for a text longer than the field takes; 5 for a list without that entry and for a check box that
/// is given neither "1" nor "0".
void SetFormFieldResult(pugi::xml_node body, TextView name, TextView result, const Locale& locale);

}  // namespace zorkanca::word
