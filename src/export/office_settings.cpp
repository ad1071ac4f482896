#include "export/office_settings.h"

#include "foundation/ignore_errors.h"
#include "foundation/registry_access.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

constexpr TextView kSettingsKey = u"SOFTWARE\\QRD\\Zorix\\Instalace\\ZorKancA";

}  // namespace

OfficeSettings ReadOfficeSettings(Registry& registry) {
  OfficeSettings settings;
  const RegistryAccess access(registry);
  const auto read = [&](TextView name, bool& setting) {
    IgnoreErrors([&] { setting = Val(access.ReadValue(RegistryHive::kLocalMachine, kSettingsKey, name, u"0")) != 0; });
  };
  read(u"ExcelVisibleWithinDataProcess", settings.ExcelVisibleWithinDataProcess);
  read(u"WordVisibleWithinDataProcess", settings.WordVisibleWithinDataProcess);
  read(u"XlPasteFormulasNoClipboard", settings.XlPasteFormulasNoClipboard);
  return settings;
}

}  // namespace zorkanca
