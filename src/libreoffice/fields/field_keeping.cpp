#include "libreoffice/fields/field_keeping.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "files/system_error.h"
#include "libreoffice/fields/binary_fields.h"
#include "opc/document_kind.h"

namespace zorkanca {

namespace {

constexpr std::uintmax_t kLargest = 256ULL << 20;  // bytes

std::string ReadDocument(const std::string& path) {
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(path, failure);
  if (failure) RaisePathError(failure.value(), path);
  if (size > kLargest) RefuseFields("it is larger than 256 MB");
  std::ifstream file(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file) RaiseSystemError(EIO);
  return bytes;
}

void WriteDocument(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes << std::flush;
  if (!file) RaiseSystemError(EIO);
}

}  // namespace

std::optional<MarkedFields> MarkFields(const std::string& document, const std::string& copy) {
  if (DocumentKindOf(document) != DocumentKind::kCompound) return std::nullopt;
  std::string bytes = ReadDocument(document);
  std::optional<MarkedFields> marked = MarkBinaryFields(bytes);
  if (marked) WriteDocument(copy, bytes);
  return marked;
}

}  // namespace zorkanca
