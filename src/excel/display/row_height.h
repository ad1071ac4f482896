// How high rows are whose texts may take several lines or a large font, for readers that do not find it out themselves.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "excel/display/text_width.h"
#include "excel/sheet/column_table.h"
#include "excel/sheet/sheet_model.h"
#include "excel/tables/shared_strings.h"

namespace zorkanca::excel {

/// Heights of the rows of one sheet, asked for in ascending order.
class RowHeights {
 public:
  /// @param columns  with the widths that will be written
  /// @param merges   all merged cells, in any order
  /// The others outlive the object.
  RowHeights(const SheetModel& sheet, const SharedStrings& texts, const ColumnTable& columns,
             std::vector<CellArea> merges);

  /// The height in points that a row is to be written with; 0 for one that stays as it is, because nothing of it can
  /// need more than a usual row or because its height is set.
  double Of(const RowView& row);

 private:
  /// What counts of a cell format.
  struct Format {
    TextWidths widths;
    int linePixels = 0;
    LineBreaking breaking;
  };
  /// What a cell may do to the height of its row, the more the later.
  enum class Kind : std::uint8_t { kUnknown, kPlain, kTall, kWraps };
  /// Lines of a text of the file, which copies of its row have again and again.
  struct Remembered {
    const char* text = nullptr;
    std::uint32_t style = 0;
    std::int64_t lines = 0;
  };

  // Formats that are made while rows are composed do only what others did before, or have texts with line breaks.
  Kind KindOf(const CellView& cell);
  Kind FindKind(std::uint32_t style) const;
  const Format& FormatOf(std::uint32_t style);
  std::int64_t LinesOf(const CellView& cell, std::int32_t row);
  std::int64_t LinesIn(std::string_view utf8, const CellView& cell, std::int32_t row);
  /// Pixels of a cell's column or merged columns, margins and indent taken off; nothing for cells merged downwards.
  std::optional<double> RoomFor(const CellView& cell, std::int32_t row);
  int PixelsOfColumn(std::int32_t column);
  void ReadDefaults();

  const SheetModel& sheet_;
  const SharedStrings& texts_;
  const ColumnTable& columns_;
  std::vector<CellArea> merges_;  // by their first rows
  std::size_t passedMerges_ = 0;
  int digitPixels_;
  double defaultWidth_ = 0;                       // in digits with margins
  int defaultPixels_ = 0;                         // of a row
  bool allSet_ = false;                           // every row has a height
  bool someCount_ = false;                        // some cell format may need more than a usual row
  std::vector<Kind> kinds_;                       // by cell format
  std::vector<std::unique_ptr<Format>> formats_;  // the same, for those that were needed
  std::vector<int> columnPixels_;                 // by column; -1 while unknown
  std::vector<Remembered> remembered_;
};

}  // namespace zorkanca::excel
