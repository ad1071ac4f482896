// The folder for files that nobody else may see.
#pragma once

#include <string>

namespace zorkanca {

/// $TMPDIR where it is set, else /tmp/zorkanca-UID, made with access for its owner alone. No separator at the end.
/// Errors: 70 when that folder is not a real one of this user's, or open to others: somebody may have laid it out to
/// read or to exchange our files.
std::string PrivateTemporaryFolder();

/// Makes a folder for its owner alone, or accepts one that is already so. Errors: 70 when it is not, 76.
void RequirePrivateFolder(const std::string& path);

}  // namespace zorkanca
