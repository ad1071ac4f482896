#include "host/desktop/desktop_shell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "files/file_descriptor.h"
#include "files/native_path.h"
#include "files/spawn_settings.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr const char* kOpener = "xdg-open";

// Starts a program, which is looked for in $PATH, detached from our terminal. @param missing  the reason when it is not
// there
pid_t Start(std::vector<std::string> words, const Text& missing) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const SpawnSettings settings("/dev/null", SpawnSettings::Group::kOwnSession);
  pid_t process = 0;
  const int failure =
      posix_spawnp(&process, arguments[0], settings.actions(), settings.attributes(), arguments.data(), environ);
  if (failure == ENOENT) Raise(RuntimeError::kFileNotFound, missing);
  if (failure != 0) {
    Raise(RuntimeError::kInvalidCall,
          FromUtf8(words[0]) + u" could not be started: " + FromUtf8(strerrordesc_np(failure)));
  }
  return process;
}

// The words of a command line, as the other system divides it: blanks part them outside quotation marks, and a doubled
// mark within them is the character itself.
std::vector<std::string> WordsOf(TextView commandLine) {
  std::vector<Text> words;
  bool quoted = false;
  bool inWord = false;
  for (std::size_t at = 0; at < commandLine.size(); ++at) {
    const char16_t character = commandLine[at];
    if (!quoted && (character == u' ' || character == u'\t')) {
      inWord = false;
      continue;
    }
    if (!std::exchange(inWord, true)) words.emplace_back();
    if (quoted && commandLine.substr(at, 2) == u"\"\"") {
      words.back().push_back(commandLine[at++]);
    } else if (character == u'"') {
      quoted = !quoted;
    } else {
      words.back().push_back(character);
    }
  }
  std::vector<std::string> native;
  for (const Text& word : words) native.push_back(ToUtf8(word));
  return native;
}

// Waits for the process in a thread, so that no dead process stays in the table.
void CollectLater(pid_t process) {
  std::thread([process] {
    int ignored = 0;
    Uninterrupted([&] { return waitpid(process, &ignored, 0); });
  }).detach();
}

// The exit status of a process that ends in time.
std::optional<int> StatusInTime(pid_t process, std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds kPause(10);
  const auto end = std::chrono::steady_clock::now() + patience;
  int status = 0;
  for (;;) {
    const pid_t ended = Uninterrupted([&] { return waitpid(process, &status, WNOHANG); });
    if (ended == process) return status;
    if (ended < 0) return std::nullopt;  // somebody else has collected it
    if (std::chrono::steady_clock::now() >= end) break;
    std::this_thread::sleep_for(kPause);
  }
  CollectLater(process);
  return std::nullopt;
}

// What the exit codes in xdg-open's manual page mean.
Text ReasonOf(int status) {
  if (!WIFEXITED(status)) return u"it was ended by a signal";
  switch (WEXITSTATUS(status)) {
    case 2:
      return u"the file was not found";
    case 3:
      return u"no program for this kind of file was found";
    case 4:
      return u"the program for this kind of file failed";
    default:
      return u"exit code " + DecimalText(WEXITSTATUS(status));
  }
}

// The folders of $PATH; a relative one means another place with each current folder and is left out.
void AddSearchPath(std::vector<Text>& folders) {
  const char* path = std::getenv("PATH");
  const Text all = FromUtf8(path ? path : "/usr/local/bin:/usr/bin");
  for (const TextView folder : Split(all, u':')) {
    if (folder.starts_with(u'/')) folders.emplace_back(folder);
  }
}

// A suite from its own maker's package lies in a folder that is named after its version; the latest comes first.
void AddSuitesOf(const std::string& parent, std::vector<Text>& folders) {
  std::vector<std::string> found;
  std::error_code failure;
  for (std::filesystem::directory_iterator entry(parent, failure), end; !failure && entry != end;
       entry.increment(failure)) {
    if (entry->path().filename().string().starts_with("libreoffice")) found.push_back(entry->path() / "program");
  }
  std::sort(found.rbegin(), found.rend());
  for (const std::string& folder : found) folders.push_back(FromNativePath(folder));
}

}  // namespace

void DesktopShell::OpenDocument(TextView path) {
  const std::string native = AbsolutePath(ToNativePath(path));
  if (access(native.c_str(), F_OK) != 0) Raise(RuntimeError::kFileNotFound);
  const std::optional<int> status = StatusInTime(
      Start({kOpener, native}, u"xdg-open, which opens documents, is not installed (package xdg-utils)"), patience_);
  if (status && *status != 0) {
    Raise(RuntimeError::kInvalidCall, u"xdg-open could not open " + FromNativePath(native) + u": " + ReasonOf(*status));
  }
}

void DesktopShell::StartCommandLine(TextView commandLine) {
  std::vector<std::string> words = WordsOf(commandLine);
  if (words.empty() || words[0].empty()) Raise(RuntimeError::kFileNotFound);
  words[0] = ToNativePath(FromUtf8(words[0]));
  const Text program = FromUtf8(words[0]);
  CollectLater(Start(std::move(words), u"the program " + program + u" was not found"));
}

Text DesktopShell::SearchTree(TextView rootFolder, TextView fileName) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  fs::recursive_directory_iterator entry(ToNativePath(rootFolder), fs::directory_options::skip_permission_denied,
                                         ignored);
  for (; !ignored && entry != fs::recursive_directory_iterator(); entry.increment(ignored)) {
    if (FromUtf8(entry->path().filename().string()) == fileName && !entry->is_directory(ignored)) {
      return FromNativePath(entry->path().string());
    }
  }
  return {};
}

ProgramPlaces DesktopShell::Programs() {
  ProgramPlaces places;
  AddSearchPath(places.folders);
  for (const TextView folder : {u"/usr/lib/libreoffice/program", u"/usr/lib64/libreoffice/program"}) {
    places.folders.emplace_back(folder);
  }
  AddSuitesOf("/opt", places.folders);
  return places;
}

bool DesktopShell::IsProgram(TextView path) {
  const std::string native = ToNativePath(path);
  struct stat status {};
  return stat(native.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(native.c_str(), X_OK) == 0;
}

}  // namespace zorkanca
