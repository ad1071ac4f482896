#include "cli/output_file.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "cli/output_check.h"
#include "foundation/ignore_errors.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

std::string ListOf(const std::vector<Text>& extensions) {
  std::string list;
  for (std::size_t index = 0; index < extensions.size(); ++index) {
    if (index > 0) list += index + 1 == extensions.size() ? " or " : ", ";
    list += "." + ToUtf8(extensions[index]);
  }
  return list;
}

void RequireReader(const CommandContext& context, TextView extension) {
  if (context.options.json) throw UsageError("-o - and --json do not go together: both write standard output");
  const bool isText = extension == u"htm" || extension == u"xml" || extension == u"svg";
  if (!isText && isatty(STDOUT_FILENO)) {
    throw UsageError(
        "-o - writes binary data, and standard output is a terminal; name a file, or a program: | PROGRAM");
  }
}

}  // namespace

bool NamesFolder(const CommandContext& context, const std::string& argument) {
  return argument.ends_with('/') ||
         context.platform.files.FolderExists(context.platform.files.GetAbsolutePathName(FromUtf8(argument)));
}

OutputFile::OutputFile(const CommandContext& context, const std::string& argument, const std::vector<Text>& extensions)
    : context_(context) {
  FileSystem& files = context.platform.files;
  if (argument == "-") {
    RequireReader(context, extensions.front());
    path_ = BuildPath(files, files.TemporaryFolder(), files.GetTempName() + u"." + extensions.front());
    isCopied_ = true;
    return;
  }
  if (NamesFolder(context, argument)) throw UsageError("-o names a folder, not a file: " + argument);
  path_ = files.GetAbsolutePathName(FromUtf8(argument));
  const Text extension = LowerCase(GetExtensionName(path_));
  if (!extensions.empty() && std::find(extensions.begin(), extensions.end(), extension) == extensions.end()) {
    throw UsageError("-o takes " + ListOf(extensions) + ", not " + argument);
  }
  RequireWritable(context, path_);
}

OutputFile::~OutputFile() {
  if (isCopied_) IgnoreErrors([&] { context_.platform.files.DeleteFile(path_, /*force=*/true); });
}

void OutputFile::Written(const Text& path) {
  if (!isCopied_) return context_.report.File(path);
  const std::string bytes = BytesOf(ToUtf8(path));
  context_.report.statusLine().Erase();
  if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) Raise(RuntimeError::kDeviceIo);
}

}  // namespace zorkanca::cli
