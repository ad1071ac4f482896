// A worksheet of the workbook being made: a copy of a template sheet, filled by the client.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"
#include "xmltemplate/tagged_text.h"
#include "xmltemplate/worksheet_columns.h"
#include "xmltemplate/worksheet_sections.h"

namespace zorkanca {

class cExcel2003XmlTemplateFactory;

/// Operations on a cell take `TaggedCell` for the published arguments ColSign, RowSign, ColIndex and RowIndex; what
/// they do is told at `TaggedText`. Errors of all operations on the text: 91 when `XmlProcessFactory` was set to
/// nothing.
class cExcel2003XmlWorksheet final : public Object {
 public:
  /// A worksheet without any text. @param locale  outlives the object
  cExcel2003XmlWorksheet(Text worksheetName, const Locale& locale);

  cExcel2003XmlTemplateFactory* XmlProcessFactory() const { return factory_; }
  void XmlProcessFactory(cExcel2003XmlTemplateFactory* factory) { factory_ = factory; }
  /// As given when the worksheet was added.
  const Text& WorksheetName() const { return name_; }
  /// The current text; sections are placeholders in it.
  Text XmlCode() const { return text_.Whole(); }
  /// Sections of the template, one for each number, and those that were added.
  const cExcel2003XmlWorksheetSections& TemplateSections() const { return templateSections_; }
  cExcel2003XmlWorksheetSections& Sections() { return sections_; }

  /// Takes over a template sheet: gives it the worksheet's name and takes its sections out.
  /// Errors: 5 when the name's place is not closed by a quote, and those of `ExtractSections`.
  void Load(TextView sheet);

  void SetDataIntoTaggedCell(TextView data, const TaggedCell& cell) { Tagged().SetData(data, cell); }
  void RemoveDataFromTaggedCell(const TaggedCell& cell) { Tagged().RemoveData(cell); }
  void SetAttributeValueToTaggedCell(TextView AttributeName, TextView AttributeValue, const TaggedCell& cell) {
    Tagged().SetCellAttribute(AttributeName, AttributeValue, cell);
  }
  Text GetAttributeValueFromTaggedCell(TextView AttributeName, const TaggedCell& cell) {
    return Tagged().GetCellAttribute(AttributeName, cell);
  }
  void SetAttributeValueToTable(TextView AttributeName, TextView AttributeValue) {
    Tagged().SetTableAttribute(AttributeName, AttributeValue);
  }
  Text GetAttributeValueFromTable(TextView AttributeName) { return Tagged().GetTableAttribute(AttributeName); }
  void SetColsOfTaggedGrid(std::int16_t iColSign, std::int16_t iNumberOfCols) {
    Tagged().ExpandGrid(GridDirection::kColumns, iColSign, iNumberOfCols);
  }
  void SetRowsOfTaggedGrid(std::int16_t iRowSign, std::int16_t iNumberOfRows) {
    Tagged().ExpandGrid(GridDirection::kRows, iRowSign, iNumberOfRows);
  }
  /// Adds a copy of the section of that number behind those already added.
  /// @return null when the template sheet has no such section
  WorksheetSectionReference AddWorksheetSection(std::int16_t SectionNumber);
  /// Sets a column's width in points (0 and below: that of the template) and whether it fits itself to its content.
  /// Errors: -9999 for an index below 1.
  void SetColumnWidth(std::int16_t ColIndex, float ColWidth, bool AutoFitWidth = false) {
    columns_.Set(ColIndex, ColWidth, AutoFitWidth);
  }

  /// The finished text: with sections and column settings, without comments, left-over markers and blank lines.
  /// Changes nothing, so that a workbook can be saved again. Errors: those of `MergeSections` and `ApplyColumns`.
  Text Compose() const;

 private:
  TaggedText& Tagged();

  Text name_;
  const Locale* locale_;
  TaggedText text_;
  cExcel2003XmlWorksheetSections templateSections_;
  cExcel2003XmlWorksheetSections sections_;
  WorksheetColumns columns_;
  cExcel2003XmlTemplateFactory* factory_ = nullptr;  // only told, never used
};

using WorksheetReference = std::shared_ptr<cExcel2003XmlWorksheet>;

}  // namespace zorkanca
