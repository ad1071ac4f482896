#include "win32/desktop/file_dialogs.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "runtime/error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr std::size_t kLongestPath = 32767;
constexpr DWORD kInvalidFileName = 0x3002;  // FNERR_INVALIDFILENAME, which the short form of the headers leaves out

Text WithBackslashes(TextView path) {
  return Replace(path, u"/", u"\\");
}

bool IsFolder(const Text& path) {
  const DWORD attributes = GetFileAttributesW(Wide(path));
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The folder itself, else the nearest one above it that exists; nothing when there is none.
Text NearestFolder(const Text& path) {
  for (std::size_t end = path.size(); end != Text::npos && end > 0; end = path.rfind(u'\\', end - 1)) {
    Text folder = path.substr(0, end);
    if (folder.back() == u':') folder.push_back(u'\\');
    if (IsFolder(folder)) return folder;
  }
  return {};
}

// "name|pattern|…" as the system takes it: each part ends with NUL, all of them with one more.
Text PartsOf(TextView filter) {
  Text parts(filter);
  std::replace(parts.begin(), parts.end(), u'|', u'\0');
  return parts.append(2, u'\0');
}

// The dialog's buffer for the name, with what it starts with.
Text BufferOf(TextView name) {
  Text buffer(name.substr(0, kLongestPath));
  buffer.resize(kLongestPath + 1, u'\0');
  return buffer;
}

[[noreturn]] void RaiseNoDialog(DWORD reason) {
  Text description = u"the dialog cannot be shown (";
  AppendDecimal(description, reason);
  Raise(RuntimeError::kInvalidCall, description.append(u")"));
}

int CALLBACK StartInFolder(HWND dialog, UINT message, LPARAM, LPARAM folder) {
  if (message == BFFM_INITIALIZED && folder != 0) SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, folder);
  return 0;
}

}  // namespace

Text AskForFile(const FileDialog& dialog, HWND owner) {
  const Text path = WithBackslashes(dialog.fileName);
  const std::size_t separator = path.rfind(u'\\');
  const bool withFolder = separator != Text::npos;
  const Text folder = NearestFolder(withFolder ? path.substr(0, separator) : WithBackslashes(dialog.folder));
  const Text filter = PartsOf(dialog.filter);
  const Text extension(TextView(dialog.defaultExtension).substr(dialog.defaultExtension.starts_with(u'.') ? 1 : 0));
  Text file = BufferOf(withFolder ? TextView(path).substr(separator + 1) : TextView(path));

  OPENFILENAMEW description{};
  description.lStructSize = sizeof description;
  description.hwndOwner = owner;
  description.lpstrFilter = dialog.filter.empty() ? nullptr : Wide(filter);
  description.lpstrFile = reinterpret_cast<wchar_t*>(file.data());
  description.nMaxFile = static_cast<DWORD>(file.size());
  description.lpstrInitialDir = folder.empty() ? nullptr : Wide(folder);
  description.lpstrTitle = dialog.title.empty() ? nullptr : Wide(dialog.title);
  description.lpstrDefExt = extension.empty() ? nullptr : Wide(extension);
  // The current folder is the client's.
  description.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
  if (dialog.fileMustExist) description.Flags |= OFN_FILEMUSTEXIST;

  bool chosen = GetOpenFileNameW(&description) != 0;
  if (!chosen && CommDlgExtendedError() == kInvalidFileName) {  // it cannot even be shown
    file = BufferOf({});
    description.lpstrFile = reinterpret_cast<wchar_t*>(file.data());
    chosen = GetOpenFileNameW(&description) != 0;
  }
  if (chosen) return file.substr(0, file.find(u'\0'));
  const DWORD reason = CommDlgExtendedError();
  if (reason != 0) RaiseNoDialog(reason);
  return {};
}

Text AskForFolder(TextView title, TextView startFolder, HWND owner) {
  const Text heading(title);
  const Text start = NearestFolder(WithBackslashes(startFolder));
  std::array<wchar_t, MAX_PATH> path{};
  BROWSEINFOW description{};
  description.hwndOwner = owner;
  description.pszDisplayName = path.data();
  description.lpszTitle = Wide(heading);
  description.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  description.lpfn = StartInFolder;
  description.lParam = start.empty() ? 0 : reinterpret_cast<LPARAM>(start.c_str());
  PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&description);
  if (chosen == nullptr) return {};
  const bool isPath = SHGetPathFromIDListW(chosen, path.data()) != 0;
  CoTaskMemFree(chosen);
  return isPath ? Text(FromWide(path.data())) : Text();
}

}  // namespace zorkanca::win32
