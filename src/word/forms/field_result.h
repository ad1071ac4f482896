// What form fields and content controls have in common: how a result becomes runs, and what a truth value looks like.
#pragma once

#include <pugixml.hpp>

#include "runtime/text.h"

namespace zorkanca::word {

/// Appends a text to a run: line ends and tabs become elements, what XML forbids is left out.
void AppendResultText(pugi::xml_node run, TextView text);

/// A check box's value: "1", "-1" and "True" are true, "0", "False" and "" are not, ignoring case.
/// Errors: 5 for anything else.
bool TruthOf(TextView result);

/// Raises error 5941 for a name that neither a form field nor a content control has.
[[noreturn]] void RaiseNoFormField(TextView name);

}  // namespace zorkanca::word
