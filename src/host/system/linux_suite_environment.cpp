#include "host/system/linux_suite_environment.h"

#include <variant>

#include "files/native_path.h"
#include "runtime/utf8.h"

namespace zorkanca {

LinuxSuiteEnvironment::LinuxSuiteEnvironment(const std::string& home, const std::string& version, Registry& registry)
    : home_(AbsolutePath(home)), version_(FromUtf8(version)), registry_(registry) {}

Text LinuxSuiteEnvironment::LogFolder() {
  return FromNativePath(JoinPath(home_, "log"));
}

Text LinuxSuiteEnvironment::SupplyFolder() {
  return InstallationFolder(u"SupplyFolder");
}

Text LinuxSuiteEnvironment::DefaultTemplatesFolder() {
  return InstallationFolder(u"DefaultPath");
}

Text LinuxSuiteEnvironment::InstallationFolder(TextView valueName) const {
  const auto value = registry_.Read(RegistryHive::kLocalMachine, u"SOFTWARE\\QRD\\Zorix\\Instalace", valueName);
  const Text* text = value ? std::get_if<Text>(&*value) : nullptr;
  if (text == nullptr || Trim(*text).empty()) return FromNativePath(JoinPath(home_, "Sablony"));
  Text folder = *text;
  while (folder.size() > 1 && (folder.back() == u'\\' || folder.back() == u'/')) folder.pop_back();
  return folder;
}

}  // namespace zorkanca
