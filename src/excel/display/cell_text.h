// Cells as they are shown.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "excel/display/number_format.h"
#include "excel/sheet/sheet_model.h"
#include "excel/tables/shared_strings.h"

namespace zorkanca::excel {

/// Shows cells of one sheet; each number format is compiled once.
class CellTexts {
 public:
  /// All of them outlive the object.
  CellTexts(const SheetModel& sheet, const SharedStrings& texts, const Locale& locale)
      : sheet_(sheet), texts_(texts), locale_(locale) {}

  Text Show(const CellView& cell);

 private:
  const SheetModel& sheet_;
  const SharedStrings& texts_;
  const Locale& locale_;
  std::map<std::uint32_t, std::unique_ptr<NumberFormat>> formats_;  // by cell format
};

}  // namespace zorkanca::excel
