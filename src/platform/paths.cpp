#include "platform/paths.h"

namespace zorkanca {

namespace {

// Length of the root that a path begins with: "C:\", "C:", "\\" or "/".
std::size_t RootLength(TextView path) {
  std::size_t length = path.size() >= 2 && path[1] == u':' ? 2 : 0;
  while (length < path.size() && IsPathSeparator(path[length])) ++length;
  return length;
}

// The path without separators at its end, the root kept.
TextView WithoutTrailingSeparators(TextView path) {
  const std::size_t root = RootLength(path);
  while (path.size() > root && IsPathSeparator(path.back())) path.remove_suffix(1);
  return path;
}

// Where the last component starts.
std::size_t NameStart(TextView path) {
  const std::size_t root = RootLength(path);
  std::size_t start = path.size();
  while (start > root && !IsPathSeparator(path[start - 1])) --start;
  return start;
}

}  // namespace

TextView GetParentFolderName(TextView path) {
  path = WithoutTrailingSeparators(path);
  const std::size_t start = NameStart(path);
  if (start == path.size()) return {};  // a root has no parent
  return WithoutTrailingSeparators(path.substr(0, start));
}

TextView GetFileName(TextView path) {
  path = WithoutTrailingSeparators(path);
  return path.substr(NameStart(path));
}

TextView GetBaseName(TextView path) {
  const TextView name = GetFileName(path);
  return name.substr(0, name.rfind(u'.'));
}

TextView GetExtensionName(TextView path) {
  const TextView name = GetFileName(path);
  const std::size_t dot = name.rfind(u'.');
  return dot == TextView::npos ? TextView() : name.substr(dot + 1);
}

Text PathInFolder(const FileSystem& files, TextView folder, TextView name) {
  Text path(folder);
  if (path.empty() || !IsPathSeparator(path.back())) path.push_back(files.PathSeparator());
  return path.append(name);
}

Text BuildPath(const FileSystem& files, TextView folder, TextView name) {
  return folder.empty() ? Text(name) : PathInFolder(files, folder, name);
}

}  // namespace zorkanca
