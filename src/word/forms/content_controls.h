// Content controls (w:sdt): what later versions of Word have in place of form fields.
#pragma once

#include <pugixml.hpp>

#include "runtime/text.h"

namespace zorkanca::word {

/// The text of a control, "" while it shows its placeholder; "1" or "0" of a check box.
Text ContentControlResult(const pugi::xml_node& control);

/// Fills a control, in the format of its old text; its placeholder is gone then, and its link to stored data, which
/// Word would show instead. A list takes an entry's name or value. A control of paragraphs keeps the first one. Errors:
/// 5 for a list without that entry, a check box that is given no truth value, and a control that takes no text
///         (a picture, rows of a table).
void SetContentControlResult(pugi::xml_node control, TextView result);

}  // namespace zorkanca::word
