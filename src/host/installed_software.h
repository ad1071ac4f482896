// Programs of the computer that we make use of, asked for what they are; for those who want to know what is missing.
#pragma once

#include <vector>

#include "runtime/text.h"

namespace zorkanca {

struct InstalledProgram {
  Text path;
  Text version;  ///< as it says itself, one line; empty when it says nothing
};

/// The office package that writes PDF and reads legacy formats. Errors: 429 with the packages to install; 53, 70 when
/// it cannot be started.
InstalledProgram InstalledLibreOffice();

/// Families of the installed fonts, in order, each once.
/// @param lister  path of fontconfig's fc-list
/// Errors: 53, 70 when it cannot be started.
std::vector<Text> FontFamilies(const Text& lister);

/// Path of the first program of that name in the folders of the search path; empty when there is none.
Text FindProgram(TextView name);

}  // namespace zorkanca
