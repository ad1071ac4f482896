#include "files/native_path.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

std::string ToNativePath(TextView path) {
  std::string bytes = ToUtf8(path);
  if (bytes.find('\0') != std::string::npos) Raise(RuntimeError::kBadFileName);
  std::replace(bytes.begin(), bytes.end(), '\\', '/');
  return bytes;
}

Text FromNativePath(std::string_view path) {
  return FromUtf8(path);
}

std::string ParentFolder(const std::string& path) {
  const std::size_t last = path.find_last_not_of('/');
  if (last == std::string::npos) return path.empty() ? "." : "/";
  const std::size_t separator = path.rfind('/', last);
  if (separator == std::string::npos) return ".";
  const std::size_t end = path.find_last_not_of('/', separator);
  return end == std::string::npos ? "/" : path.substr(0, end + 1);
}

std::string JoinPath(const std::string& folder, std::string_view name) {
  std::string path = folder;
  if (!path.ends_with('/')) path.push_back('/');
  return path.append(name);
}

std::string AbsolutePath(const std::string& path) {
  std::string whole = path;
  if (!path.starts_with('/')) whole = JoinPath(std::filesystem::current_path().native(), path);
  std::string result;
  for (std::size_t start = 0; start < whole.size();) {
    const std::size_t end = std::min(whole.find('/', start), whole.size());
    const std::string_view part = std::string_view(whole).substr(start, end - start);
    start = end + 1;
    if (part.empty() || part == ".") continue;
    struct stat status {};
    const bool beforeIsLink = lstat(result.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
    if (part == ".." && !beforeIsLink) {
      if (!result.empty()) result.resize(result.rfind('/'));
    } else {
      result.append("/").append(part);
    }
  }
  return result.empty() ? "/" : result;
}

std::string RandomDigits(std::size_t count) {
  std::random_device device;  // the system's random numbers
  std::string digits;
  while (digits.size() < count) digits.push_back("0123456789ABCDEF"[device() & 0xF]);
  return digits;
}

}  // namespace zorkanca
