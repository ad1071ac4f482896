// A file that replaces another one whole and at once, or not at all.
#pragma once

#include "textfiles/byte_sink.h"
#include "win32/files/file_handle.h"
#include "win32/files/write_target.h"

namespace zorkanca::win32 {

/// The new content of a path, gathered under a name of its own in the same folder and given its name by `Commit`. It is
/// open all the time, so that nobody clears it away in between. Until `Commit` the system deletes it with its handle:
/// an abandoned or killed writer leaves nothing behind.
class StagedFile final : public ByteSink {
 public:
  /// Errors: those of `FindWriteTarget`; 70 when the file is open elsewhere or the folder is read-only.
  StagedFile(TextView path, bool create);

  void Write(std::string_view bytes) override;
  void Commit() override;

 private:
  void Open();
  void DeleteWithHandle(bool deletes);
  void Rename();

  Text shownPath_;
  WriteTarget target_;
  FileHandle file_;
  DWORD failure_ = ERROR_SUCCESS;  // of the first failed write
};

}  // namespace zorkanca::win32
