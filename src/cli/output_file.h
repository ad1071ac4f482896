// The one file that a command writes: where -o says, under a name of its own, or to standard output.
#pragma once

#include <string>
#include <vector>

#include "cli/command_line.h"

namespace zorkanca::cli {

class OutputFile {
 public:
  /// @param argument    of -o; "-" is standard output, to which the finished file is copied
  /// @param extensions  that the name may have, without points; the first one is that of standard output. None: any
  /// Errors: `UsageError` for a folder, another extension, or binary contents for a terminal; those of
  /// `RequireWritable`.
  OutputFile(const CommandContext& context, const std::string& argument, const std::vector<Text>& extensions);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Where the file is to be written.
  const Text& path() const { return path_; }
  /// The file stands there: it is reported, or copied to standard output. @param path  where it was written in the end
  void Written(const Text& path);

 private:
  const CommandContext& context_;
  Text path_;
  bool isCopied_ = false;  // to standard output, from a file that goes
};

/// Whether an argument of -o names a folder: it ends with "/", or there is such a folder.
bool NamesFolder(const CommandContext& context, const std::string& argument);

}  // namespace zorkanca::cli
