// Blocks of contents that are laid over a sheet as a whole: an imported text, an assigned array. They are read row by
// row when somebody asks; a sheet that holds one costs no more than the block itself.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "excel/grid/cell.h"

namespace zorkanca::excel {

/// The format that a content brings along where formats are taken over.
enum class ContentFormat : std::uint8_t {
  kGeneral,
  kText,          ///< as typed, digits too
  kGeneralLines,  ///< text of several lines
  kTextLines,
  kGrouped,          ///< 1 234
  kGroupedDecimals,  ///< 1 234,50
  kPercent,
  kPercentDecimals,
  kScientific,
  kAmount,          ///< 5 Kč
  kAmountDecimals,  ///< 5,00 Kč
  kDate,
  kDayMonth,
  kMonthYear,
  kDateTime,
  kTime,
  kTimeSeconds,
  kElapsed,  ///< 25:30:00
};
inline constexpr std::size_t kContentFormats = 18;

/// One content; its texts live until the next row is read.
struct Content {
  CellKind kind = CellKind::kBlank;
  ContentFormat format = ContentFormat::kGeneral;
  bool quotePrefix = false;
  bool hasLines = false;  ///< a text with line breaks
  bool missing = false;   ///< the block has no field here; laid over a cell, it leaves the cell alone
  std::string_view text = {};
  std::string_view shown = {};  ///< what its cell shows, in UTF-8, where that is known; for the width of columns
  const Formula* formula = nullptr;
};

class CellSource {
 public:
  /// Reads rows; ascending order is cheap, any order allowed.
  class Cursor {
   public:
    virtual ~Cursor() = default;
    /// @param row  from 0
    /// @return     as many contents as the block has columns, or fewer; the rest is missing
    virtual const std::vector<Content>& Row(std::int32_t row) = 0;
  };

  virtual ~CellSource() = default;
  virtual std::int32_t rows() const = 0;
  virtual std::int32_t columns() const = 0;
  virtual std::unique_ptr<Cursor> Open() const = 0;
  /// The number format of amounts with the currency symbol.
  virtual std::string AmountPattern(bool decimals) const { return decimals ? "#,##0.00" : "#,##0"; }
};

}  // namespace zorkanca::excel
