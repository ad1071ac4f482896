#include "opc/document_kind.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "files/file_bytes.h"
#include "files/file_descriptor.h"
#include "files/system_error.h"

namespace zorkanca {

namespace {
using namespace std::string_view_literals;
constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;
constexpr std::string_view kRtf = "{\\rtf";
// OpenDocument puts its type first, uncompressed, so that it stands behind the first entry's header.
constexpr std::string_view kMimeType = "mimetypeapplication/vnd.oasis.opendocument";
constexpr std::size_t kZipHeaderLength = 30;
}  // namespace

DocumentKind DocumentKindOf(const std::string& path) {
  // Not waiting for a writer, should the path be a pipe.
  const FileDescriptor file(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
  if (!file) RaisePathError(errno, path);
  struct stat status {};
  if (fstat(file.get(), &status) != 0) RaiseSystemError(errno, path);
  if (S_ISDIR(status.st_mode)) RaiseSystemError(EISDIR, path);
  if (!S_ISREG(status.st_mode)) return DocumentKind::kOther;

  std::array<char, 128> buffer{};
  const std::string_view start(buffer.data(), ReadAt(file, 0, buffer.data(), buffer.size(), path));
  if (start.starts_with(kZip)) {
    const bool openDocument = start.size() > kZipHeaderLength && start.substr(kZipHeaderLength).starts_with(kMimeType);
    return openDocument ? DocumentKind::kOpenDocument : DocumentKind::kPackage;
  }
  if (start.starts_with(kCompoundFile)) return DocumentKind::kCompound;
  return start.starts_with(kRtf) ? DocumentKind::kRichText : DocumentKind::kOther;
}

}  // namespace zorkanca
