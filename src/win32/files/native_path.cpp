#include "win32/files/native_path.h"

#include <algorithm>

#include "platform/paths.h"
#include "win32/system.h"
#include "win32/system_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

// A folder may not be longer than this without the long form; a file may have 12 units more.
constexpr std::size_t kShortLimit = MAX_PATH - 12 - 1;
constexpr TextView kLongForm = u"\\\\?\\";
constexpr TextView kDeviceForm = u"\\\\.\\";
constexpr TextView kShare = u"\\\\";

}  // namespace

Text AbsolutePath(TextView path) {
  if (path.find(u'\0') != TextView::npos) Raise(RuntimeError::kBadFileName);
  if (path.starts_with(kLongForm)) return Text(path);
  const Text given(path.empty() ? TextView(u".") : path);
  Text absolute;
  DWORD room = MAX_PATH;
  for (;;) {
    const DWORD length = GetFullPathNameW(Wide(given), room, WideRoom(absolute, room), nullptr);
    if (length == 0) RaiseSystemError(GetLastError(), path);
    absolute.resize(std::min<std::size_t>(length, room));
    if (length < room) return absolute;
    room = length + 1;
  }
}

Text NativePath(TextView path) {
  if (path.empty()) return {};
  Text absolute = AbsolutePath(path);
  if (absolute.size() <= kShortLimit || absolute.starts_with(kLongForm) || absolute.starts_with(kDeviceForm)) {
    return absolute;
  }
  if (absolute.starts_with(kShare)) return Text(kLongForm).append(u"UNC").append(absolute, 1);
  return Text(kLongForm).append(absolute);
}

Text FolderOf(const Text& nativePath) {
  return Text(GetParentFolderName(nativePath));
}

}  // namespace zorkanca::win32
