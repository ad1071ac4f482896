#include "libreoffice/conversion_check.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "files/file_bytes.h"
#include "opc/document_kind.h"
#include "opc/office_error.h"
#include "opc/package.h"
#include "opc/xml_document.h"
#include "runtime/ascii.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::array<std::string_view, 10> kSheetExtensions = {".xls",  ".xlt",  ".xlsx", ".xltx", ".xlsm",
                                                               ".xltm", ".xlsb", ".ods",  ".ots",  ".fods"};
constexpr std::size_t kBlock = 64 * 1024;
constexpr std::size_t kPdfEnd = 1024;  // readers look for the end mark here

DocumentFamily FamilyByName(const std::string& path) {
  const std::string extension = AsciiLower(std::filesystem::path(path).extension().native());
  const bool sheet = std::find(kSheetExtensions.begin(), kSheetExtensions.end(), extension) != kSheetExtensions.end();
  return sheet ? DocumentFamily::kSheet : DocumentFamily::kText;
}

std::uint64_t InflatedSize(const ZipReader& zip) {
  std::uint64_t size = 0;
  for (const ZipEntry& entry : zip.entries()) size += entry.size;
  return size;
}

ConvertibleDocument CheckPackage(const std::string& path) {
  const Package package = Package::Open(path);
  const std::string type = package.ContentTypeOf(package.MainPart());
  for (const std::string& part : package.PartNames()) {
    const std::string name = AsciiLower(part);
    if (!name.ends_with(".xml") && !name.ends_with(".rels")) continue;
    RequireSoundXml(package.ReadPart(part), {.file = path, .part = part});
  }
  const bool sheet = type.find("spreadsheetml") != type.npos || type.find("ms-excel") != type.npos;
  return {.family = sheet ? DocumentFamily::kSheet : DocumentFamily::kText, .size = InflatedSize(ZipReader(path))};
}

// Documents of the office as one XML file, flat OpenDocument, web pages.
bool LooksLikeMarkup(std::string_view start) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (start.starts_with(kByteOrderMark)) start.remove_prefix(kByteOrderMark.size());
  const std::size_t first = start.find_first_not_of(" \t\r\n");
  return first != start.npos && start[first] == '<';
}

ConvertibleDocument CheckMarkup(const std::string& path, ConvertibleDocument document) {
  constexpr std::string_view kSheetOf2003 = "urn:schemas-microsoft-com:office:spreadsheet";
  const std::string start = ReadStart(path, kBlock);
  if (!LooksLikeMarkup(start)) RaiseNotOfficeDocument(path, "it is in none of the formats that are converted");
  if (start.find(kSheetOf2003) != start.npos) document.family = DocumentFamily::kSheet;
  return document;
}

// A page's own type; "/Type/Pages" is the list of them.
bool HoldsPage(std::string_view bytes) {
  for (std::size_t at = bytes.find("/Type"); at != bytes.npos; at = bytes.find("/Type", at + 1)) {
    std::string_view rest = bytes.substr(at + 5);
    rest.remove_prefix(std::min(rest.find_first_not_of(" \r\n"), rest.size()));
    if (rest.starts_with("/Page") && rest.size() > 5 && rest[5] != 's') return true;
  }
  return false;
}

}  // namespace

ConvertibleDocument RequireConvertible(const std::string& path) {
  ConvertibleDocument document{.family = FamilyByName(path)};
  switch (DocumentKindOf(path)) {
    case DocumentKind::kPackage:
      return CheckPackage(path);
    case DocumentKind::kOpenDocument:
      document.size = InflatedSize(ZipReader(path));
      return document;
    case DocumentKind::kOther:
      document = CheckMarkup(path, document);
      break;
    default:
      break;
  }
  document.size = std::filesystem::file_size(path);
  return document;
}

bool IsWholePdf(const std::string& path) {
  constexpr std::size_t kOverlap = 64;  // what a page's type needs
  std::ifstream file(path, std::ios::binary);
  std::string block(kBlock + kOverlap, '\0');
  std::string carried;
  bool started = false;
  bool page = false;
  for (;;) {
    std::copy(carried.begin(), carried.end(), block.begin());
    file.read(block.data() + carried.size(), static_cast<std::streamsize>(kBlock));
    const auto count = static_cast<std::size_t>(file.gcount());
    const std::string_view bytes(block.data(), carried.size() + count);
    if (count == 0) break;
    started = started || (carried.empty() && bytes.starts_with("%PDF-"));
    if (!started) return false;
    page = page || HoldsPage(bytes);
    carried = bytes.substr(bytes.size() - std::min(bytes.size(), kOverlap));
  }
  if (!page) return false;
  std::ifstream again(path, std::ios::binary | std::ios::ate);
  const auto size = static_cast<std::size_t>(again.tellg());
  std::string end(std::min(size, kPdfEnd), '\0');
  again.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
  again.read(end.data(), static_cast<std::streamsize>(end.size()));
  return end.find("%%EOF") != end.npos;
}

bool IsWholePackage(const std::string& path) {
  try {
    const Package package = Package::Open(path);
    return package.HasPart(package.MainPart());
  } catch (const Error&) {
    return false;
  }
}

}  // namespace zorkanca
