// What a file is by its first bytes, whatever its name ends with.
#pragma once

#include <string>

namespace zorkanca {

enum class DocumentKind {
  kPackage,       ///< a ZIP archive, as Office Open XML is
  kOpenDocument,  ///< a ZIP archive of OpenDocument
  kCompound,      ///< an OLE compound file: Word or Excel 97 to 2003, or an Open XML document behind a password
  kRichText,      ///< RTF
  kOther,         ///< anything else, an empty file too
};

/// Looks at the beginning of a file. Errors: 53, 70, 75, 76 when it cannot be read.
/// @param path  native path
DocumentKind DocumentKindOf(const std::string& path);

}  // namespace zorkanca
