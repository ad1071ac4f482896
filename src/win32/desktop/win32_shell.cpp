#include "win32/desktop/win32_shell.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/paths.h"
#include "runtime/error.h"
#include "win32/files/folder_entries.h"
#include "win32/files/native_path.h"
#include "win32/files/write_target.h"
#include "win32/system.h"
#include "win32/system_message.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr INT_PTR kLastFailure = 32;  // the shell's numbers above it mean success

// Numbers of the shell that are no error codes of the system.
Text ReasonOf(std::int32_t number) {
  switch (number) {
    case SE_ERR_NOASSOC:
    case SE_ERR_ASSOCINCOMPLETE:
      return u"no program opens such files";
    case SE_ERR_DDEBUSY:
    case SE_ERR_DDEFAIL:
    case SE_ERR_DDETIMEOUT:
      return u"the program that opens such files does not answer";
    case SE_ERR_SHARE:
      return SystemMessage(ERROR_SHARING_VIOLATION);
    case SE_ERR_DLLNOTFOUND:
      return SystemMessage(ERROR_DLL_NOT_FOUND);
    case 0:
      return SystemMessage(ERROR_NOT_ENOUGH_MEMORY);
    default:
      return SystemMessage(static_cast<std::uint32_t>(number));
  }
}

// Looks into a folder, and tells in which folders below it one has to go on; not in those that lead elsewhere.
bool HasFile(const Text& folder, TextView fileName, std::vector<Text>& foldersBelow) {
  FolderEntries entries(NativePath(folder));
  while (entries.Next()) {
    if (entries.isFolder()) {
      if (!entries.isLink()) foldersBelow.push_back(Joined(folder, entries.name()));
    } else if (EqualsIgnoringCase(entries.name(), fileName)) {
      return true;
    }
  }
  return false;
}

}  // namespace

void Win32Shell::OpenDocument(TextView path) {
  const Text document(path);
  const HINSTANCE answer = ShellExecuteW(nullptr, L"open", Wide(document), nullptr, nullptr, SW_SHOWNORMAL);
  const auto number = reinterpret_cast<INT_PTR>(answer);
  if (number > kLastFailure) return;
  const auto failure = static_cast<std::int32_t>(number);
  throw Error(failure, Text(), Text(document).append(u" could not be opened: ").append(ReasonOf(failure)));
}

void Win32Shell::StartCommandLine(TextView commandLine) {
  if (IsBlank(commandLine)) Raise(RuntimeError::kFileNotFound);
  Text line(commandLine);  // which the call may write into
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, /*bInheritHandles=*/FALSE, 0,
                      nullptr, nullptr, &start, &process)) {
    const DWORD failure = GetLastError();
    const bool missing =
        failure == ERROR_FILE_NOT_FOUND || failure == ERROR_PATH_NOT_FOUND || failure == ERROR_INVALID_NAME;
    Raise(missing ? RuntimeError::kFileNotFound : RuntimeError::kInvalidCall,
          Text(commandLine).append(u" could not be started: ").append(SystemMessage(failure)));
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

// From the top down, a folder before those in it, in the system's order.
Text Win32Shell::SearchTree(TextView rootFolder, TextView fileName) {
  std::vector<Text> waiting{Text(rootFolder)};
  while (!waiting.empty()) {
    const Text folder = std::move(waiting.back());
    waiting.pop_back();
    std::vector<Text> below;
    if (HasFile(folder, fileName, below)) return Joined(folder, fileName);
    waiting.insert(waiting.end(), std::make_move_iterator(below.rbegin()), std::make_move_iterator(below.rend()));
  }
  return {};
}

ProgramPlaces Win32Shell::Programs() {
  return {.extension = u"exe", .folders = {u"C:\\Program Files (x86)", u"C:\\Program Files"}};
}

bool Win32Shell::IsProgram(TextView path) {
  constexpr std::array<TextView, 4> kExtensions = {u"exe", u"com", u"bat", u"cmd"};
  const Text extension = LowerCase(GetExtensionName(path));
  return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end() &&
         IsFile(AttributesOf(NativePath(path)));
}

Text Win32Shell::LongPathName(TextView path) {
  const Text given(path);
  Text full;
  DWORD room = MAX_PATH;
  for (;;) {
    const DWORD length = GetLongPathNameW(Wide(given), WideRoom(full, room), room);
    if (length == 0) return given;
    full.resize(std::min(length, room));
    if (length < room) return full;
    room = length + 1;
  }
}

void Win32Shell::ClearClipboard() {
  if (!OpenClipboard(nullptr)) return;
  EmptyClipboard();
  CloseClipboard();
}

}  // namespace zorkanca::win32
