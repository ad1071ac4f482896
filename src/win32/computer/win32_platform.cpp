#include "win32/computer/win32_platform.h"

#include "runtime/utf8.h"
#include "win32/system/user_locale.h"

namespace zorkanca::win32 {

Win32Platform::Win32Platform()
    : locale_(ReadLocale(/*tag=*/{}, clock_)),
      files_(*locale_.codePage),
      environment_(FromUtf8(ZORKANCA_VERSION), registry_),
      platform_{.files = files_,
                .registry = registry_,
                .userInterface = userInterface_,
                .shell = shell_,
                .clock = clock_,
                .locale = locale_,
                .eventLog = eventLog_,
                .environment = environment_,
                .office = office_} {}

}  // namespace zorkanca::win32
