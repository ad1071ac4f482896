// The locale of the user, as the system's settings have it.
#pragma once

#include "platform/clock.h"
#include "runtime/locale.h"

namespace zorkanca::win32 {

/// What the system tells of a locale; what it does not tell is our own data of the same tag, else American: the words
/// for yes and no.
/// @param tag    for example "de-DE", as the system's own data have it; empty for the user's own, with all that the
///               user changed
/// @param clock  gives the current year
/// Errors: 5 for a locale that the system does not know.
Locale ReadLocale(TextView tag, Clock& clock);

/// Our pattern of one of the system's: "HH':'mm" becomes "hh\":\"nn".
Text DatePatternOf(TextView picture);
Text TimePatternOf(TextView picture, bool designatorsAreEnglish);

}  // namespace zorkanca::win32
