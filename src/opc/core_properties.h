// The core properties of a package (ECMA-376 part 2, clause 11): title, author, when it was made.
#pragma once

#include <string>
#include <string_view>

#include "opc/package.h"

namespace zorkanca {

/// Says that a document was made and changed today, which is what a document of a template is: the author stays, the
/// template's own days and whoever changed it last do not. The time of day is left at midnight, so that equal work of
/// one day makes equal files. A package without core properties, or with ones that cannot be read, stays as it is.
/// @param date  "2026-11-24"
void SetDayOfOrigin(Package& package, std::string_view date);

/// The day of now in the local time zone, "2026-11-24".
std::string Today();

}  // namespace zorkanca
