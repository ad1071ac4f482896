// The template that was opened last, kept ready: exports open the same one for record after record.
#pragma once

#include <sys/stat.h>

#include <functional>
#include <optional>
#include <string>

#include "word/document/word_package.h"

namespace zorkanca::word {

class LastTemplate {
 public:
  /// A document of a template: copied from the one kept, when that was made of this file as it is now.
  /// @param path  native path
  /// @param read  opens the file, or says why it cannot. Errors: those of `read`.
  WordPackage Open(const std::string& path, const std::function<WordPackage()>& read);

 private:
  std::optional<WordPackage> kept_;
  std::string path_;
  struct stat status_ {};
};

}  // namespace zorkanca::word
