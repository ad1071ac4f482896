#include "foundation/windows_shell_api.h"

#include "foundation/err_data.h"

namespace zorkanca {

bool WindowsShellApi::OpenInApplication(const Platform& platform, TextView fileName) {
  try {
    platform.shell.OpenDocument(fileName);
    return true;
  } catch (...) {
    Text text(u"Problém se spuštěním asociované aplikace pro soubor \"");
    text.append(fileName).append(u"\". (Chyba: ");
    AppendDecimal(text, ErrData().number);
    platform.userInterface.Show(
        {.text = text.append(u")"), .title = u"Chyba asociovaná aplikace", .icon = MessageIcon::kCritical});
    return false;
  }
}

}  // namespace zorkanca
