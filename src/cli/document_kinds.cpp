#include "cli/document_kinds.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include "cli/command_line.h"
#include "platform/paths.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

constexpr std::array<TextView, 8> kWordExtensions = {u"doc",  u"dot",  u"docx", u"dotx",
                                                     u"docm", u"dotm", u"rtf",  u"odt"};
constexpr std::array<TextView, 8> kExcelExtensions = {u"xls",  u"xlt",  u"xlsx", u"xltx",
                                                      u"xlsm", u"xltm", u"xlsb", u"ods"};

// The namespace of spreadsheet-XML stands in the first element.
bool BeginsAsWorkbook(const std::string& path) {
  constexpr std::size_t kBeginning = 64 * 1024;
  std::string start(kBeginning, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  start.resize(static_cast<std::size_t>(file.gcount()));
  return start.find("urn:schemas-microsoft-com:office:spreadsheet") != std::string::npos;
}

}  // namespace

bool IsForExcel(TextView path) {
  const Text extension = LowerCase(GetExtensionName(path));
  const auto isOne = [&extension](TextView known) { return known == extension; };
  if (extension == u"xml") return BeginsAsWorkbook(ToUtf8(path));
  if (std::any_of(kExcelExtensions.begin(), kExcelExtensions.end(), isOne)) return true;
  if (std::any_of(kWordExtensions.begin(), kWordExtensions.end(), isOne)) return false;
  std::error_code none;
  if (std::filesystem::is_directory(ToUtf8(path), none)) throw UsageError("a folder, not a document: " + ToUtf8(path));
  throw UsageError("neither a Word document nor an Excel workbook by its name: " + ToUtf8(path));
}

bool IsSpreadsheetXml(std::string_view bytes) {
  return bytes.find("<Workbook") != std::string_view::npos || bytes.find(":Workbook") != std::string_view::npos;
}

}  // namespace zorkanca::cli
