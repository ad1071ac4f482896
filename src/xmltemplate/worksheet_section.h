// One section of a worksheet: a run of its text that can be added any number of times, filled like a small worksheet.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "runtime/text.h"
#include "runtime/value.h"
#include "xmltemplate/tagged_text.h"

namespace zorkanca {

class cExcel2003XmlTemplateFactory;

/// Operations on a cell take `TaggedCell` for the published arguments ColSign, RowSign, ColIndex and RowIndex; what
/// they do is told at `TaggedText`. Errors of all of them: 91 when `XmlProcessFactory` was set to nothing.
class cExcel2003XmlWorksheetSection final : public Object {
 public:
  cExcel2003XmlWorksheetSection(TaggedText text, std::int16_t sectionNumber, std::int32_t index,
                                cExcel2003XmlTemplateFactory* factory)
      : text_(std::move(text)), sectionNumber_(sectionNumber), index_(index), factory_(factory) {}

  cExcel2003XmlTemplateFactory* XmlProcessFactory() const { return factory_; }
  void XmlProcessFactory(cExcel2003XmlTemplateFactory* factory) { factory_ = factory; }

  std::int16_t SectionNumber() const { return sectionNumber_; }
  /// From 1, among the sections of that number.
  std::int32_t Index() const { return index_; }
  /// The current text.
  Text XmlCode() const { return text_.Whole(); }

  void SetDataIntoTaggedCell(TextView data, const TaggedCell& cell) { Tagged().SetData(data, cell); }
  void RemoveDataFromTaggedCell(const TaggedCell& cell) { Tagged().RemoveData(cell); }
  void SetAttributeValueToTaggedCell(TextView AttributeName, TextView AttributeValue, const TaggedCell& cell) {
    Tagged().SetCellAttribute(AttributeName, AttributeValue, cell);
  }
  Text GetAttributeValueFromTaggedCell(TextView AttributeName, const TaggedCell& cell) {
    return Tagged().GetCellAttribute(AttributeName, cell);
  }
  void SetColsOfTaggedGrid(std::int16_t iColSign, std::int16_t iNumberOfCols) {
    Tagged().ExpandGrid(GridDirection::kColumns, iColSign, iNumberOfCols);
  }
  void SetRowsOfTaggedGrid(std::int16_t iRowSign, std::int16_t iNumberOfRows) {
    Tagged().ExpandGrid(GridDirection::kRows, iRowSign, iNumberOfRows);
  }

 private:
  TaggedText& Tagged();

  TaggedText text_;
  std::int16_t sectionNumber_;
  std::int32_t index_;
  cExcel2003XmlTemplateFactory* factory_;  // only told, never used
};

using WorksheetSectionReference = std::shared_ptr<cExcel2003XmlWorksheetSection>;

}  // namespace zorkanca
