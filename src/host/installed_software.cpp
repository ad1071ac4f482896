#include "host/installed_software.h"

#include <chrono>
#include <set>
#include <utility>

#include "files/file_bytes.h"
#include "files/native_path.h"
#include "host/desktop/desktop_shell.h"
#include "libreoffice/child_group.h"
#include "libreoffice/libreoffice_converter.h"
#include "opc/temporary_package.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

// Both outputs of a program; what does not end in time has said nothing.
Text OutputOf(std::vector<std::string> arguments) {
  const TemporaryPackage output(".txt");
  const ChildEnd end = RunInGroup({.arguments = std::move(arguments),
                                   .environment = {},
                                   .outputFile = output.path(),
                                   .patience = std::chrono::seconds(10),
                                   .cancelled = {}});
  return end == ChildEnd::kExited ? FromUtf8(ReadFile(output.path())) : Text();
}

TextView FirstLine(TextView text) {
  return Trim(text.substr(0, text.find(u'\n')));
}

}  // namespace

InstalledProgram InstalledLibreOffice() {
  const std::string program = FindLibreOffice();
  return {.path = FromNativePath(program), .version = Text(FirstLine(OutputOf({program, "--version"})))};
}

std::vector<Text> FontFamilies(const Text& lister) {
  const Text output = OutputOf({ToNativePath(lister), ":", "family"});
  std::set<Text> families;  // a line has the names of one font in several languages
  for (const TextView line : Split(output, u'\n')) {
    for (const TextView family : Split(line, u',')) {
      if (!IsBlank(family)) families.emplace(Trim(family));
    }
  }
  return {families.begin(), families.end()};
}

Text FindProgram(TextView name) {
  DesktopShell shell;
  for (const Text& folder : shell.Programs().folders) {
    Text path = Text(folder).append(u"/").append(name);
    if (shell.IsProgram(path)) return path;
  }
  return {};
}

}  // namespace zorkanca
