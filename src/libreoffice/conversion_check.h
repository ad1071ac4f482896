// What LibreOffice is given, and what it gave: its exit code says nothing, and of an empty file it makes a fine PDF.
#pragma once

#include <cstdint>
#include <string>

namespace zorkanca {

/// What a document is for the filters.
enum class DocumentFamily { kText, kSheet };

/// A document that may be handed over.
struct ConvertibleDocument {
  DocumentFamily family = DocumentFamily::kText;
  std::uint64_t size = 0;  ///< bytes that will have to be read, inflated
};

/// Looks at a document before the call. Packages are checked as thoroughly as our own engines check them.
/// @param path  native path
/// Errors: 5 for what is no document; 53, 70, 75, 76 when it cannot be read.
ConvertibleDocument RequireConvertible(const std::string& path);

/// True for a whole PDF of at least one page.
bool IsWholePdf(const std::string& path);
/// True for a package with a main part.
bool IsWholePackage(const std::string& path);

}  // namespace zorkanca
