// The private user profile that a LibreOffice runs on.
#pragma once

#include <string>

#include "files/file_descriptor.h"

namespace zorkanca {

/// One of a few profiles of this user, ours alone for the lifetime of the object: two programs on one profile lose one
/// of their results without a word. It says that documents may run no macros and reach neither network nor other files.
class OfficeProfile {
 public:
  /// Takes the first free profile; waits for one when all are in use.
  /// @param folder     private folder that holds them
  /// @param localeTag  of the user whose numbers and dates documents show ("cs-CZ"); the program's own when empty
  /// Errors: those of the file system.
  OfficeProfile(const std::string& folder, const std::string& localeTag);

  /// The profile's place as the program's option wants it: "file:///...".
  std::string Url() const;
  /// Throws the profile away, after a program that was ended by force; the next one starts afresh.
  void Discard();

 private:
  void WriteSettings(const std::string& localeTag) const;

  std::string path_;
  FileDescriptor lock_;
};

}  // namespace zorkanca
