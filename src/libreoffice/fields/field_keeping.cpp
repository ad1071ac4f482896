#include "libreoffice/fields/field_keeping.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <utility>

#include "files/file_bytes.h"
#include "files/system_error.h"
#include "libreoffice/fields/binary_fields.h"
#include "libreoffice/fields/open_document_losses.h"
#include "libreoffice/fields/rtf_fields.h"
#include "libreoffice/fields/xml_fields.h"
#include "opc/document_kind.h"

namespace zorkanca {

namespace {

constexpr std::uintmax_t kLargest = 256ULL << 20;  // bytes

std::string ReadDocument(const std::string& path) {
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(path, failure);
  if (failure) RaisePathError(failure.value(), path);
  if (size > kLargest) RefuseFields("it is larger than 256 MB");
  return ReadFile(path);
}

void WriteDocument(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes << std::flush;
  if (!file) RaiseSystemError(EIO);
}

// The beginning of a document that is known by its namespace: the root stands behind declarations and comments.
std::string StartOf(const std::string& path) {
  constexpr std::size_t kStart = 64 * 1024;
  std::string start = ReadStart(path, kStart);
  std::erase(start, '\0');  // one byte of two in UTF-16
  return start;
}

void RefuseLosses(const std::string& losses) {
  if (!losses.empty()) RefuseFields("LibreOffice does not bring through its " + losses);
}

std::optional<MarkedFields> Written(std::optional<MarkedText> text, const std::string& copy) {
  if (!text) return std::nullopt;
  WriteDocument(copy, text->bytes);
  return std::move(text->fields);
}

std::optional<MarkedFields> MarkXml(const std::string& document, const std::string& copy) {
  constexpr std::string_view kOpenDocument = "urn:oasis:names:tc:opendocument:xmlns:office:1.0";
  constexpr std::string_view kPackageAsXml = "http://schemas.microsoft.com/office/2006/xmlPackage";
  constexpr std::string_view kPageOfWord = "urn:schemas-microsoft-com:office:word";
  constexpr std::string_view kFieldOfPage = "mso-element:field-begin";
  const std::string start = StartOf(document);
  const auto is = [&](std::string_view name) { return start.find(name) != start.npos; };
  if (is(kWordXmlOf2003)) return Written(MarkXmlFields(ReadDocument(document)), copy);
  if (is(kOpenDocument)) RefuseLosses(OpenDocumentLosses(ReadDocument(document)));
  if (is(kPackageAsXml)) RefuseFields("it is a package written as one XML file");
  if (is(kPageOfWord) && ReadDocument(document).find(kFieldOfPage) != std::string::npos) {
    RefuseFields("it is a web page");
  }
  return std::nullopt;
}

std::optional<MarkedFields> MarkBinary(const std::string& document, const std::string& copy) {
  std::string bytes = ReadDocument(document);
  std::optional<MarkedFields> marked = MarkBinaryFields(bytes);
  if (marked) WriteDocument(copy, bytes);
  return marked;
}

}  // namespace

std::optional<MarkedFields> MarkFields(const std::string& document, const std::string& copy) {
  switch (DocumentKindOf(document)) {
    case DocumentKind::kCompound:
      return MarkBinary(document, copy);
    case DocumentKind::kRichText:
      return Written(MarkRtfFields(ReadDocument(document)), copy);
    case DocumentKind::kOpenDocument:
      RefuseLosses(OpenDocumentLossesOf(document));
      return std::nullopt;
    case DocumentKind::kOther:
      return MarkXml(document, copy);
    default:
      return std::nullopt;
  }
}

}  // namespace zorkanca
