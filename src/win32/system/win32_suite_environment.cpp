#include "win32/system/win32_suite_environment.h"

#include <variant>

#include "platform/paths.h"
#include "runtime/error.h"
#include "win32/system.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr TextView kInstallationKey = u"SOFTWARE\\QRD\\Zorix\\Instalace";
constexpr TextView kTemplatesValue = u"sablony";
constexpr TextView kUsualFolder = u"C:\\Program Files\\QRD\\Zorix\\Sablony";
constexpr std::size_t kRootLength = 3;  // "C:\"

}  // namespace

Text Win32SuiteEnvironment::LogFolder() {
  wchar_t room[MAX_PATH];
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, room))) {
    Raise(RuntimeError::kPathNotFound, u"The user has no folder of application data");
  }
  return Text(FromWide(room)).append(u"\\Zorix\\Log");
}

Text Win32SuiteEnvironment::SupplyFolder() {
  return InstallationFolder(u"SupplyFolder");
}

Text Win32SuiteEnvironment::DefaultTemplatesFolder() {
  return InstallationFolder(u"DefaultPath");
}

Text Win32SuiteEnvironment::InstallationFolder(TextView valueName) const {
  for (const TextView name : {valueName, kTemplatesValue}) {
    const auto value = registry_.Read(RegistryHive::kLocalMachine, kInstallationKey, name);
    const Text* const text = value ? std::get_if<Text>(&*value) : nullptr;
    if (!text || IsBlank(*text)) continue;
    Text folder = *text;
    while (folder.size() > kRootLength && IsPathSeparator(folder.back())) folder.pop_back();
    return folder;
  }
  return Text(kUsualFolder);
}

}  // namespace zorkanca::win32
