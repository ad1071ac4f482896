// The folder for files that nobody else may see.
#pragma once

#include <string>

namespace zorkanca {

/// $TMPDIR, or /tmp without it, where that is a folder of this user's alone; else zorkanca-UID in it, made with access
/// for its owner alone. No separator at the end.
/// Errors: 70 when zorkanca-UID is not a real folder of this user's, or open to others: somebody may have laid it out
/// to read or to exchange our files; 76 when $TMPDIR is not there.
std::string PrivateTemporaryFolder();

/// Makes a folder for its owner alone, or accepts one that is already so. Errors: 70 when it is not, 76.
void RequirePrivateFolder(const std::string& path);

}  // namespace zorkanca
