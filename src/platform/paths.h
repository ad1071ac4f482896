// The text side of paths, as the scripting file system object cuts and joins them. No file is touched.
#pragma once

#include "platform/file_system.h"
#include "runtime/text.h"

namespace zorkanca {

/// True for "\" and "/".
constexpr bool IsPathSeparator(char16_t unit) {
  return unit == u'\\' || unit == u'/';
}

/// The folder part of a path, without the separator that ends it except in a root ("C:\", "/"); empty without a folder.
/// A separator at the end of the path is ignored.
TextView GetParentFolderName(TextView path);
/// The last component of a path.
TextView GetFileName(TextView path);
/// The last component up to its last "."; all of it when there is none.
TextView GetBaseName(TextView path);
/// What follows the last "." of the last component; empty when there is none.
TextView GetExtensionName(TextView path);

/// Folder and name joined by exactly one separator of the file system, which an empty folder, the root, gets as well.
Text PathInFolder(const FileSystem& files, TextView folder, TextView name);
/// The same, but an empty folder gives the name.
Text BuildPath(const FileSystem& files, TextView folder, TextView name);

}  // namespace zorkanca
