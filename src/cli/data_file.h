// The intermediate file between the records and an office application.
#pragma once

#include <string>

#include "cli/output_check.h"
#include "foundation/ignore_errors.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

/// Removes the file at the end unless the user asked for it with --data-file: nobody else has a use for it, and it
/// holds other people's data.
class DataFile {
 public:
  /// @param asked  the option's value, empty without it
  /// @param path   receives what the user asked for; names the file at the end
  DataFile(const CommandContext& context, const std::string& asked, Text& path)
      : files_(context.platform.files), asked_(!asked.empty()), path_(path) {
    if (!asked_) return;
    path = files_.GetAbsolutePathName(FromUtf8(asked));
    RequireWritable(context, path);
  }
  ~DataFile() {
    if (!asked_ && !path_.empty()) IgnoreErrors([&] { files_.DeleteFile(path_, /*force=*/true); });
  }
  DataFile(const DataFile&) = delete;
  DataFile& operator=(const DataFile&) = delete;

 private:
  FileSystem& files_;
  bool asked_;
  const Text& path_;
};

}  // namespace zorkanca::cli
