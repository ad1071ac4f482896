// The worksheets added to a workbook, in their order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"
#include "xmltemplate/worksheet.h"

namespace zorkanca {

/// A worksheet is told by its position, from 1, or by its name, case ignored. Of several with one name only the first
/// goes by it.
class cExcel2003XmlWorksheets final : public Object {
 public:
  /// @param locale  outlives the object
  explicit cExcel2003XmlWorksheets(const Locale& locale) : locale_(&locale) {}

  /// Adds an empty worksheet as the last one.
  const WorksheetReference& Add(Text name);
  /// Errors: 9 when there is none at the position, 5 when none goes by the name.
  const WorksheetReference& Item(std::int32_t vntIndexKey) const { return worksheets_[OffsetOf(vntIndexKey)]; }
  const WorksheetReference& Item(TextView vntIndexKey) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(worksheets_.size()); }
  /// Errors: as `Item`.
  void Remove(std::int32_t vntIndexKey);
  void Remove(TextView vntIndexKey);
  auto begin() const { return worksheets_.begin(); }
  auto end() const { return worksheets_.end(); }

 private:
  std::size_t OffsetOf(std::int32_t position) const;

  const Locale* locale_;
  std::vector<WorksheetReference> worksheets_;
  std::unordered_map<Text, WorksheetReference> names_;  // by lower-cased name
};

}  // namespace zorkanca
