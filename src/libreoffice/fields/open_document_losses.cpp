#include "libreoffice/fields/open_document_losses.h"

#include <array>
#include <cstddef>

#include "opc/zip_reader.h"

namespace zorkanca {

namespace {

struct Loss {
  std::string_view element;
  std::string_view attribute;  ///< it is lost when it has this one, or in any case
  std::string_view name;
};

constexpr std::array kLosses = {
    Loss{"text:database-display", "style:data-style-name", "number or date format of a merge field"},
    Loss{"text:database-next", "", "next record"},
    Loss{"text:database-row-select", "", "any record"},
    Loss{"text:database-row-number", "", "record number"},
    Loss{"text:conditional-text", "", "conditional text"},
    Loss{"text:hidden-text", "", "hidden text"},
    Loss{"text:hidden-paragraph", "", "hidden paragraph"},
    Loss{"text:section", "text:condition", "conditional section"},
    Loss{"text:expression", "", "formula"},
};

std::size_t CountOf(std::string_view xml, const Loss& loss) {
  constexpr std::string_view kEndsOfName = " \t\r\n/>";
  const std::string start = "<" + std::string(loss.element);
  std::size_t count = 0;
  for (std::size_t at = xml.find(start); at != xml.npos; at = xml.find(start, at + 1)) {
    const std::string_view tag = xml.substr(at + start.size(), xml.find('>', at) - at - start.size() + 1);
    if (tag.empty() || kEndsOfName.find(tag.front()) == kEndsOfName.npos) continue;
    if (tag.find(loss.attribute) != tag.npos) ++count;
  }
  return count;
}

}  // namespace

std::string OpenDocumentLosses(std::string_view xml) {
  std::string names;
  for (const Loss& loss : kLosses) {
    const std::size_t count = CountOf(xml, loss);
    if (count == 0) continue;
    if (!names.empty()) names += ", ";
    names.append(loss.name).append(" (" + std::to_string(count) + ")");
  }
  return names;
}

// Headers and footers stand in the styles.
std::string OpenDocumentLossesOf(const std::string& path) {
  const ZipReader zip(path);
  std::string xml;
  for (const ZipEntry& entry : zip.entries()) {
    if (entry.name == "content.xml" || entry.name == "styles.xml") xml += zip.Read(entry);
  }
  return OpenDocumentLosses(xml);
}

}  // namespace zorkanca
