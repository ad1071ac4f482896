#include "opc/zip_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>

#include "files/file_bytes.h"
#include "files/system_error.h"
#include "opc/inflater.h"
#include "opc/office_error.h"
#include "opc/zip_directory.h"
#include "opc/zip_format.h"

namespace zorkanca {

namespace {

constexpr std::size_t kBlock = 64 * 1024;

}  // namespace

ZipReader::ZipReader(std::string path, const ZipLimits& limits) : path_(std::move(path)) {
  // Not waiting for a writer, should the path be a pipe.
  file_ = FileDescriptor(Uninterrupted([&] { return open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
  if (!file_) RaisePathError(errno, path_);
  struct stat status {};
  if (fstat(file_.get(), &status) != 0) RaiseSystemError(errno);
  if (S_ISDIR(status.st_mode)) RaiseSystemError(EISDIR, path_);
  if (!S_ISREG(status.st_mode)) RaiseNotOfficeDocument(path_, "it is no regular file");
  if (status.st_size == 0) RaiseNotOfficeDocument(path_, "it is empty");
  const zip::ReadAt readAt = [&](std::uint64_t offset, std::size_t length) {
    std::string bytes(length, '\0');
    if (ReadAt(file_, offset, bytes.data(), length, path_) != length) {
      RaiseNotOfficeDocument(path_, "it changed while it was read");
    }
    return bytes;
  };
  entries_ = zip::ReadDirectory(path_, static_cast<std::uint64_t>(status.st_size), readAt, limits);
}

void ZipReader::ReadCompressed(const ZipEntry& entry, const Take& take) const {
  std::string block(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, entry.compressedSize)), '\0');
  for (std::uint64_t done = 0; done < entry.compressedSize;) {
    const std::size_t length =
        static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), entry.compressedSize - done));
    if (ReadAt(file_, entry.dataOffset + done, block.data(), length, path_) != length) {
      RaiseBadPart(path_, '/' + entry.name, "its data end early");
    }
    take({block.data(), length});
    done += length;
  }
}

void ZipReader::Read(const ZipEntry& entry, const Take& take) const {
  std::uint32_t crc = 0;
  if (entry.method == zip::kStored) {
    ReadCompressed(entry, [&](std::string_view bytes) {
      crc = static_cast<std::uint32_t>(crc32_z(crc, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
      take(bytes);
    });
  } else {
    Inflater inflater(take, entry.size);
    ReadCompressed(entry, [&](std::string_view bytes) {
      if (!inflater.Append(bytes)) RaiseBadPart(path_, '/' + entry.name, "its compressed data are damaged");
    });
    if (!inflater.ended() || inflater.size() != entry.size) {
      RaiseBadPart(path_, '/' + entry.name, "its compressed data are damaged");
    }
    crc = inflater.crc();
  }
  if (crc != entry.crc) RaiseBadPart(path_, '/' + entry.name, "its checksum is wrong");
}

std::string ZipReader::Read(const ZipEntry& entry) const {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(entry.size));
  Read(entry, [&](std::string_view piece) { bytes += piece; });
  return bytes;
}

}  // namespace zorkanca
