// A document file that is there only while somebody works on it.
#pragma once

#include <unistd.h>

#include <string>

#include "host/files/native_path.h"
#include "host/files/temporary_folder.h"

namespace zorkanca::word {

/// A name in the private temporary folder; whatever stands under it is deleted with the object.
class TemporaryDocument {
 public:
  TemporaryDocument() : path_(JoinPath(PrivateTemporaryFolder(), "zorkanca-" + RandomDigits(16) + ".docx")) {}
  ~TemporaryDocument() { unlink(path_.c_str()); }
  TemporaryDocument(const TemporaryDocument&) = delete;
  TemporaryDocument& operator=(const TemporaryDocument&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace zorkanca::word
