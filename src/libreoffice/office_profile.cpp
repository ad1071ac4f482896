#include "libreoffice/office_profile.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <filesystem>
#include <string_view>

#include "files/atomic_file.h"
#include "files/native_path.h"
#include "files/system_error.h"
#include "files/temporary_folder.h"
#include "runtime/ascii.h"

namespace zorkanca {

namespace {

constexpr int kProfiles = 8;

// Linked pictures and sections would be fetched from wherever a document says, from the network or from this computer.
// Headless, LibreOffice never records that its version was started before, and therefore tests its drawing at each
// start for two thirds of a second. A version that was never released stands for every one that may be installed.
constexpr std::string_view kSettings =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="BlockUntrustedRefererLinks" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="MacroSecurityLevel" oor:op="fuse"><value>3</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="DisableMacrosExecution" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="ooSetupLastVersion" oor:op="fuse"><value>99.9</value></prop></item>
<item oor:path="/org.openoffice.Setup/L10N"><prop oor:name="ooSetupSystemLocale" oor:op="fuse"><value>)";
constexpr std::string_view kSettingsEnd = R"(</value></prop></item>
</oor:items>
)";

FileDescriptor OpenLock(const std::string& path) {
  FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!file) RaisePathError(errno, path);
  return file;
}

}  // namespace

OfficeProfile::OfficeProfile(const std::string& folder, const std::string& localeTag) {
  bool ours = false;
  for (int number = 0; number < kProfiles && !ours; ++number) {
    path_ = JoinPath(folder, "profile-" + std::to_string(number));
    lock_ = OpenLock(path_ + ".lock");
    ours = flock(lock_.get(), LOCK_EX | LOCK_NB) == 0;
  }
  if (!ours && Uninterrupted([&] { return flock(lock_.get(), LOCK_EX); }) != 0) RaiseSystemError(errno);
  WriteSettings(localeTag);
}

// Before each start: the program writes its own settings into the same file.
void OfficeProfile::WriteSettings(const std::string& localeTag) const {
  RequirePrivateFolder(path_);
  const std::string user = JoinPath(path_, "user");
  RequirePrivateFolder(user);
  AtomicFile file(JoinPath(user, "registrymodifications.xcu"), {});
  file.Write(std::string(kSettings).append(localeTag).append(kSettingsEnd));
  file.Commit();
}

std::string OfficeProfile::Url() const {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::string_view kPlainMarks = "-._~/";
  std::string url = "file://";
  for (const char c : path_) {
    if (IsAlphanumeric(c) || kPlainMarks.find(c) != kPlainMarks.npos) {
      url += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      url += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
  return url;
}

void OfficeProfile::Discard() {
  std::error_code ignored;  // what is left is tried by the next run
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace zorkanca
