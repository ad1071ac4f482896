// Column settings of a worksheet, and how they are written into its `Column` elements.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// What is set for one column; an empty text leaves what the template says.
struct WorksheetColumn {
  Text Width;
  Text AutoFitWidth;
};

/// Columns from the first one on.
class WorksheetColumns {
 public:
  /// Sets a column, which is numbered from 1; those before it get empty settings as far as they have none.
  /// @param ColWidth  in points; 0 and below set no width
  /// Errors: -9999 for a number below 1.
  void Set(std::int16_t ColIndex, float ColWidth, bool AutoFitWidth);

  const std::vector<WorksheetColumn>& columns() const { return columns_; }

 private:
  std::vector<WorksheetColumn> columns_;
};

/// A worksheet's text with the settings in its `Column` elements, which are added as far as they are missing.
/// Errors: 5 when there are settings but no `Worksheet`, or no `Table` in it.
Text ApplyColumns(Text text, const WorksheetColumns& columns);

}  // namespace zorkanca
