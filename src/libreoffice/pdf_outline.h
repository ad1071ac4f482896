// The bookmarks of a Word document as the outline of its PDF, which LibreOffice makes of headings only.
#pragma once

#include <string>
#include <vector>

namespace zorkanca {

/// Names of the bookmarks in the main text, in its order, without Word's own hidden ones ("_GoBack", "_Toc…").
/// @param path  native path of a document; one that is no Word package has none
std::vector<std::string> VisibleBookmarks(const std::string& path);

/// Gives a PDF whose named destinations were made of bookmarks an outline of them. It is added at the end as an
/// incremental update (ISO 32000-1, 7.5.6); a PDF that is laid out in another way, or has none of the places, stays.
/// @param path   native path, written in place
/// @param names  in the order of the outline
/// @return       whether it has the outline now
/// Errors: 57 when it cannot be read or written.
bool AddOutline(const std::string& path, const std::vector<std::string>& names);

}  // namespace zorkanca
