// Where a write to a path goes, checked before the first byte.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace zorkanca {

/// The file behind a path, with all links followed, and what stands there now.
struct WriteTarget {
  std::string path;
  std::optional<struct stat> existing;

  bool IsDevice() const { return existing && !S_ISREG(existing->st_mode); }
};

/// Follows the links of a path and makes sure that what is there may be written. The permission bits count for the
/// superuser too: whoever made a file read-only meant it.
/// @param create  whether a missing file is to be made
/// Errors: 52 for an empty path, 53 when the file is missing and not to be made, 70 when it is read-only, 75 for a
/// folder, 76 when the folder is missing.
WriteTarget FindWriteTarget(const std::string& path, bool create);

/// Makes sure that files can be made in a folder. Errors: 70, 76.
void RequireWritableFolder(const std::string& folder);

}  // namespace zorkanca
