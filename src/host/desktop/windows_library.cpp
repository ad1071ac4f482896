#include "host/desktop/windows_library.h"

#include <dlfcn.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "files/native_path.h"
#include "platform/windows_plugin.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "zorkanca_windows.so";

std::string FindLibrary() {
  std::error_code ignored;
  const fs::path program = fs::read_symlink("/proc/self/exe", ignored).parent_path();
  const fs::path folders[] = {program, program / ZORKANCA_PLUGIN_FOLDER_FROM_PROGRAM, ZORKANCA_PLUGIN_FOLDER};
  for (const fs::path& folder : folders) {
    const fs::path file = (folder / kFileName).lexically_normal();
    if (fs::is_regular_file(file, ignored)) return file.string();
  }
  Raise(RuntimeError::kInvalidCall, u"the plug-in " + FromUtf8(kFileName) + u" for windows is not installed");
}

[[noreturn]] void RaiseLoaderError() {
  Raise(RuntimeError::kInvalidCall, u"windows cannot be shown: " + FromUtf8(dlerror()));
}

template <typename Function>
Function* Entry(void* library, const char* name) {
  void* const address = dlsym(library, name);
  if (address == nullptr) RaiseLoaderError();
  return reinterpret_cast<Function*>(address);
}

}  // namespace

Text WindowsLibraryPath() {
  return FromNativePath(FindLibrary());
}

std::shared_ptr<UserInterface> LoadWindows() {
  // Never unloaded: libraries of windows keep threads and exit handlers.
  void* const library = dlopen(FindLibrary().c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) RaiseLoaderError();
  auto* const create = Entry<CreateWindowsFunction>(library, kCreateWindows);
  auto* const destroy = Entry<DestroyWindowsFunction>(library, kDestroyWindows);
  std::string reason;
  UserInterface* const windows = create(ZORKANCA_VERSION, reason);
  if (windows == nullptr) Raise(RuntimeError::kInvalidCall, u"windows cannot be shown: " + FromUtf8(reason));
  return std::shared_ptr<UserInterface>(windows, destroy);
}

}  // namespace zorkanca
