#include "files/unnamed_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "files/native_path.h"
#include "files/system_error.h"
#include "files/temporary_folder.h"

namespace zorkanca {

FileDescriptor OpenUnnamedFile() {
  const std::string folder = PrivateTemporaryFolder();
  FileDescriptor file(open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
  if (file) return file;
  // Some file systems know no files without a name.
  std::string path = JoinPath(folder, "zorkanca-XXXXXX");
  file = FileDescriptor(mkostemp(path.data(), O_CLOEXEC));
  if (!file) RaisePathError(errno, path);
  unlink(path.c_str());
  return file;
}

}  // namespace zorkanca
