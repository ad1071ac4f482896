// The elements of a sheet's rows, taken apart.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "excel/grid/xml_scanner.h"

namespace zorkanca::excel {

/// A cell as the file has it; everything raw.
struct FileCell {
  std::optional<std::string_view> address = {};  ///< the file may leave it out
  std::optional<std::string_view> style = {};    ///< the same
  std::string_view type = {};                    ///< t
  std::string_view attributes = {};              ///< all of them
  bool hasExtra = false;                         ///< there are others than r, s, t
  std::string_view inside = {};
  bool hasFormula = false;
  std::string_view formula = {};  ///< the whole element
  std::string_view formulaAttributes = {};
  std::string_view result = {};  ///< inside of v or is
};

/// Reads a cell whose start tag a scanner has just passed.
/// @param prefix  of the sheet's element names
FileCell ReadFileCell(XmlScanner& scanner, bool isEmptyElement, std::string_view prefix, std::string_view xml);

/// The local name behind a prefix; empty for a name with another prefix.
inline std::string_view LocalPart(std::string_view name, std::string_view prefix) {
  if (!name.starts_with(prefix)) return {};
  name.remove_prefix(prefix.size());
  return name.find(':') == name.npos ? name : std::string_view();
}

/// A whole number that fills the text.
std::optional<std::uint32_t> WholeNumberOf(std::string_view text);

}  // namespace zorkanca::excel
