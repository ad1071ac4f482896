// Rows as XML.
#pragma once

#include <string>

#include "excel/grid/cell.h"
#include "excel/grid/table_references.h"
#include "excel/grid/xml_buffer.h"
#include "excel/tables/shared_strings.h"

namespace zorkanca::excel {

class RowWriter {
 public:
  /// @param prefix  of the sheet's element names
  /// @param texts   takes the new texts
  /// @param renames  of tables' columns, followed in formulas
  RowWriter(XmlBuffer& xml, std::string prefix, TextTable& texts, const TableRenames& renames);

  /// @param height  points; 0 leaves the row's own
  void Write(const RowView& row, double height = 0);
  /// A row as the file has it.
  void WriteRaw(std::string_view rowXml) { xml_.Put(rowXml); }
  /// Cells written that refer to a shared text.
  std::uint64_t stringReferences() const { return stringReferences_; }

 private:
  void WriteCell(const CellView& cell);
  void WriteText(const CellView& cell);
  void WriteFormula(const CellView& cell);
  void PutAttributesBut(std::string_view attributes, std::initializer_list<std::string_view> names);

  XmlBuffer& xml_;
  std::string prefix_;
  TextTable& texts_;
  const TableRenames& renames_;
  std::uint64_t stringReferences_ = 0;
  std::string cellStart_, cellEnd_, valueStart_, valueCellEnd_;
  std::string rowNumber_;
  std::int32_t row_ = 0;
  std::vector<std::string> columns_;  // letters
  std::string scratch_;
};

}  // namespace zorkanca::excel
