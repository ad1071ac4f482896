#include "export/office_settings.h"

#include "foundation/ignore_errors.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

constexpr TextView kSettingsKey = u"SOFTWARE\\QRD\\Zorix\\Instalace\\ZorKancA";

}  // namespace

OfficeSettings ReadOfficeSettings(Registry& registry) {
  OfficeSettings settings;
  const auto read = [&](TextView name, bool& setting) {
    IgnoreErrors([&] {
      const auto value = registry.Read(RegistryHive::kLocalMachine, kSettingsKey, name);
      const Text* text = value ? std::get_if<Text>(&*value) : nullptr;
      setting = text && Val(*text) != 0;
    });
  };
  read(u"ExcelVisibleWithinDataProcess", settings.ExcelVisibleWithinDataProcess);
  read(u"WordVisibleWithinDataProcess", settings.WordVisibleWithinDataProcess);
  read(u"XlPasteFormulasNoClipboard", settings.XlPasteFormulasNoClipboard);
  return settings;
}

}  // namespace zorkanca
