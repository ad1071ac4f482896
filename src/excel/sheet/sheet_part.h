// A worksheet as its file has it: the rows as text with an index, everything round them as a tree.
#pragma once

#include <cstdint>
#include <map>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "excel/grid/cell.h"
#include "excel/grid/table_references.h"
#include "opc/xml_document.h"

namespace zorkanca::excel {

/// What the cells of a sheet may refer to.
struct CellLimits {
  std::size_t styles = 1;
  std::size_t strings = 0;
};

class SheetPart {
 public:
  /// Reads every cell once: what is wrong with a sheet is told before anything is done with it.
  /// Errors: 5 for what is no sound worksheet, for rows or cells out of order or outside of the sheet, for indexes of
  /// styles or strings that are not there.
  SheetPart(std::string xml, const XmlSource& source, const CellLimits& limits);

  /// A row's place in the text.
  struct RowEntry {
    std::int32_t row = 0;
    bool hasFormula = false;  ///< it is never written as it stands, because of its stored results
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
  };
  /// In the order of their numbers.
  const std::vector<RowEntry>& rows() const { return rows_; }
  std::string_view XmlOf(const RowEntry& entry) const {
    return std::string_view(xml_).substr(entry.begin, entry.end - entry.begin);
  }
  /// Reads a row. The views live as long as this part.
  void Read(const RowEntry& entry, RowView& row) const;

  /// The worksheet without its rows; in their place stands a processing instruction of this name.
  const pugi::xml_document& frame() const { return shell_; }
  static constexpr const char* kRowsMark = "zorkanca-rows";

  /// What stands before the names of sheet elements: "" or "x:".
  const std::string& prefix() const { return prefix_; }
  /// Covers all rows and cells; nothing for a sheet without any.
  const std::optional<CellArea>& used() const { return used_; }
  /// Cells that refer to a shared string.
  std::size_t stringReferences() const { return stringReferences_; }
  /// What array formulas fill.
  const std::vector<CellArea>& arrays() const { return arrays_; }

 private:
  friend class SheetIndexer;

  struct SharedFormula {
    Formula formula;
    CellArea area;
  };

  std::string xml_;
  std::string prefix_;
  std::vector<RowEntry> rows_;
  std::map<std::uint32_t, SharedFormula> sharedFormulas_;
  pugi::xml_document shell_;
  std::optional<CellArea> used_;
  std::size_t stringReferences_ = 0;
  std::vector<CellArea> arrays_;
};

/// A sheet as its file has it, but without the stored results of its formulas, for sheets that nobody else changes.
/// @param renames  of tables' columns, followed in formulas
/// @return         the same text when it has no formulas
std::string WithoutResults(std::string xml, const XmlSource& source, const TableRenames& renames);

}  // namespace zorkanca::excel
