// Protection for the filling of forms (w:documentProtection in the settings).
#pragma once

#include "word/document/word_package.h"

namespace zorkanca::word {

/// Errors: 4605 when the document is not protected, 5485 when a password guards it.
void Unprotect(WordPackage& package);
/// Without password. Errors: 4605 for a type other than 2 (forms) and for a document that is protected already.
void Protect(WordPackage& package, std::int32_t type);

}  // namespace zorkanca::word
