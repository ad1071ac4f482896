#include "qt/screen_connection.h"

#include <dlfcn.h>

#include <QDir>
#include <QLibraryInfo>
#include <memory>

namespace zorkanca {

namespace {

using Library = std::unique_ptr<void, int (*)(void*)>;

Library Open(const char* name) {
  return {dlopen(name, RTLD_NOW | RTLD_LOCAL), dlclose};
}

template <typename Function>
Function* Entry(const Library& library, const char* name) {
  return reinterpret_cast<Function*>(dlsym(library.get(), name));
}

// The clients' own libraries know all the ways to a server and its permissions; the library of windows uses them too.
bool XServerAnswers() {
  const Library library = Open("libxcb.so.1");
  if (!library) return false;
  auto* const connect = Entry<void*(const char*, int*)>(library, "xcb_connect");
  auto* const hasError = Entry<int(void*)>(library, "xcb_connection_has_error");
  auto* const disconnect = Entry<void(void*)>(library, "xcb_disconnect");
  if (connect == nullptr || hasError == nullptr || disconnect == nullptr) return false;
  void* const connection = connect(nullptr, nullptr);
  const bool answers = hasError(connection) == 0;
  disconnect(connection);
  return answers;
}

bool WaylandAnswers() {
  const Library library = Open("libwayland-client.so.0");
  if (!library) return false;
  auto* const connect = Entry<void*(const char*)>(library, "wl_display_connect");
  auto* const disconnect = Entry<void(void*)>(library, "wl_display_disconnect");
  if (connect == nullptr || disconnect == nullptr) return false;
  void* const connection = connect(nullptr);
  if (connection != nullptr) disconnect(connection);
  return connection != nullptr;
}

bool IsInstalled(const char* pattern) {
  const QDir folder(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
  return !folder.entryList({QString::fromLatin1(pattern)}, QDir::Files).isEmpty();
}

// Offscreen and the like need no server.
bool NeedsServer(const QByteArray& wanted) {
  return wanted.isEmpty() || wanted.startsWith("xcb") || wanted.startsWith("wayland");
}

}  // namespace

// X first, which desktops of Wayland serve as well: there alone windows can come back to where they were.
std::string ReachableWindowSystem() {
  const QByteArray wanted = qgetenv("QT_QPA_PLATFORM");
  if (!NeedsServer(wanted)) return wanted.toStdString();
  const bool x = IsInstalled("libqxcb.so") && XServerAnswers();
  if (!x && !(IsInstalled("libqwayland*.so") && WaylandAnswers())) return {};
  if (!wanted.isEmpty()) return wanted.toStdString();
  return x ? "xcb" : "wayland";
}

}  // namespace zorkanca
