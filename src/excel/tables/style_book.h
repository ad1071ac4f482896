// The part xl/styles.xml: cell formats that cells refer to by number. Existing formats stay as they are; a new format
// is a copy of a format with something changed, added at the end.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "opc/xml_names.h"
#include "platform/excel/excel_range.h"

namespace zorkanca::excel {

/// A number format: one of the program's own by its number (14 is the short date of the user's locale), or a pattern.
struct NumberFormatCode {
  std::int32_t id = 0;
  std::string pattern = {};  ///< UTF-8; the program's own have theirs too, as the English program shows them
};

/// The patterns of the program's own formats; "" for a number that it has none for.
std::string_view BuiltInPattern(std::int32_t id);

/// What is to become different about a cell format.
struct CellFormatChange {
  std::optional<ExcelAlignment> alignment = {};
  std::optional<bool> bold = {};
  std::optional<bool> quotePrefix = {};
  std::optional<bool> wrap = {};
  std::optional<NumberFormatCode> numberFormat = {};  ///< by `pattern` when its id is 0 and it has one

  /// Two changes with the same text are the same.
  std::string Key() const;
};

/// As far as it decides how wide texts are.
struct CellFont {
  std::string name = "Calibri";
  double size = 11;  ///< points
  bool bold = false;
};

/// How a cell breaks its text into lines.
struct LineBreaking {
  bool wraps = false;  ///< at the width of its column
  bool rotated = false;
  std::int32_t indent = 0;  ///< steps, each as wide as three blanks
};

class StyleBook {
 public:
  /// Takes the tree of the part. @param file  of the package, for errors
  StyleBook(pugi::xml_document document, std::string file);

  /// Number of cell formats; indexes are below it.
  std::size_t size() const { return formats_.size(); }
  /// The format that differs from another one by a change. Errors: 1004 when there are more than a workbook may have.
  std::uint32_t Changed(std::uint32_t style, const CellFormatChange& change);

  NumberFormatCode NumberFormatOf(std::uint32_t style) const;
  CellFont FontOf(std::uint32_t style) const;
  LineBreaking LineBreakingOf(std::uint32_t style) const;
  /// Of the style "Normal", which column widths are counted in.
  CellFont StandardFont() const;

  bool changed() const { return changed_; }
  const pugi::xml_document& document() const { return document_; }

 private:
  pugi::xml_node List(const char* name);
  pugi::xml_node AddCopy(pugi::xml_node list, pugi::xml_node original);
  std::uint32_t Add(std::uint32_t style, const CellFormatChange& change);
  std::int32_t IdOf(const NumberFormatCode& format);
  std::int32_t BoldFont(std::int32_t font, bool bold);
  CellFont FontAt(std::int32_t index) const;

  pugi::xml_document document_;
  std::string file_;
  XmlNames names_;
  std::vector<pugi::xml_node> formats_;  // xf, in the order of their indexes
  std::vector<pugi::xml_node> fonts_;
  std::map<std::int32_t, std::string> patterns_;
  std::unordered_map<std::string, std::uint32_t> made_;  // by style and change
  std::map<std::pair<std::int32_t, bool>, std::int32_t> boldFonts_;
  bool changed_ = false;
};

}  // namespace zorkanca::excel
