// A file that replaces another one whole and at once, or not at all.
#pragma once

#include <string>

#include "files/file_descriptor.h"
#include "files/write_target.h"
#include "textfiles/byte_sink.h"

namespace zorkanca {

/// The new content of a path, gathered in a file without a name in the same folder and given the name by `Commit`.
/// An abandoned or killed writer leaves nothing behind. Readers see the old file or the new one. The new file is locked
/// exclusively until the object is gone. A replaced file keeps its permissions and, where the system lets us, its
/// owner; a link keeps leading to the file. A device or a pipe is written directly.
class AtomicFile final : public ByteSink {
 public:
  /// How the content is kept until it has its name. File systems without files that have no name get a file with a
  /// temporary name, which a killed writer leaves behind.
  enum class Staging { kUnnamed, kNamed };
  /// Whether `Commit` waits until the disk has it all.
  enum class Durability { kCached, kSynced };

  struct Options {
    bool create = true;  ///< make a file that is not there
    Staging staging = Staging::kUnnamed;
    Durability durability = Durability::kCached;
  };

  /// Errors: those of `FindWriteTarget` and `RequireWritableFolder`.
  AtomicFile(const std::string& path, const Options& options);
  ~AtomicFile() override;
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  void Write(std::string_view bytes) override;
  void Commit() override;

 private:
  void OpenUnnamed();
  void OpenNamed();
  void KeepOwnerAndMode();
  void GiveName();
  void RequireStored();

  Options options_;
  WriteTarget target_;
  std::string folder_;
  FileDescriptor file_;
  std::string temporaryPath_;  // not empty while a temporary name is in the folder
  int failure_ = 0;            // errno of the first failed write
};

}  // namespace zorkanca
