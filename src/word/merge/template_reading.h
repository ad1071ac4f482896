// What a Word template asks for: its merge fields, form fields and placeholders.
#pragma once

#include <vector>

#include "platform/template_fields.h"
#include "word/document/word_package.h"

namespace zorkanca::word {

/// The fields of the main text with its text boxes, then of headers and footers, then of notes. A merge field inside
/// the code of another field counts, too; one that is locked does not, for no merge evaluates it.
/// @param package  its trees are changed; not to be used for anything else afterwards
/// Errors: 5 for a part that is missing or not sound.
std::vector<TemplateField> ReadTemplateFields(WordPackage& package);

}  // namespace zorkanca::word
