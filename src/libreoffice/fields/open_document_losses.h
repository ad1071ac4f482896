// OpenDocument has elements of its own for what fields of Word say in their codes. LibreOffice writes few of them into
// a Word package; this names the others, so that nobody is surprised.
#pragma once

#include <string>
#include <string_view>

namespace zorkanca {

/// What is lost of a document, with the number of each: "conditional text (2), next record (1)"; empty for nothing.
/// @param xml  the XML parts that hold text, one behind the other
std::string OpenDocumentLosses(std::string_view xml);
/// The same of a file. Errors: 5 for a damaged archive; those of the file system.
/// @param path  native path of an archive
std::string OpenDocumentLossesOf(const std::string& path);

}  // namespace zorkanca
