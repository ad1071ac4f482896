#include "win32/forms/no_window.h"

#include <array>

#include "runtime/error.h"
#include "runtime/text.h"
#include "win32/system.h"

namespace zorkanca::win32 {

void RaiseNoWindow() {
  const DWORD failure = GetLastError();
  Text reason = u"no window can be shown here";
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, failure, 0,
                                      text.data(), static_cast<DWORD>(text.size()), nullptr);
  if (failure != ERROR_SUCCESS && length > 0) {
    reason.append(u": ").append(Trim(Replace(Text(text.begin(), text.begin() + length), kCrLf, {})));
  }
  Raise(RuntimeError::kInvalidCall, reason);
}

}  // namespace zorkanca::win32
