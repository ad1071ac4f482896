#include "win32/system_message.h"

#include "win32/system.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

Text SystemMessage(std::uint32_t code) {
  wchar_t room[512];
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  TextView message = FromWide(room, FormatMessageW(kFlags, nullptr, code, 0, room, std::size(room), nullptr));
  message = message.substr(0, message.find_last_not_of(u"\r\n .") + 1);
  return Text(message);
}

}  // namespace zorkanca::win32
