#include "foundation/base_services.h"

#include "foundation/application_name.h"
#include "foundation/err_data.h"

namespace zorkanca {

namespace {

constexpr TextView kTitle = u"Zorix - sf_ZakladStart";

Text FailureText(const ErrData& error) {
  Text text(u"Chyba: ");
  AppendDecimal(text, error.number);
  return text.append(u" - ").append(error.description).append(kCrLf).append(u"při startu základních prvků úlohy.");
}

}  // namespace

BaseServices::BaseServices(const Platform& platform) : registryAccess_(platform.registry), files_(platform.files) {
  registryAccess_.SetApplicationName(kApplicationName);
}

bool sf_ZakladStart(const Platform& platform, std::unique_ptr<BaseServices>& services) {
  services.reset();
  try {
    services = std::make_unique<BaseServices>(platform);
    return true;
  } catch (...) {
    platform.userInterface.Show(
        {.text = FailureText(ErrData()), .title = Text(kTitle), .icon = MessageIcon::kCritical});
    return false;
  }
}

void sf_ZakladKonec(std::unique_ptr<BaseServices>& services) {
  services.reset();
}

}  // namespace zorkanca
