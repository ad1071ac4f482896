// A rectangle of cells of one sheet, whole rows and whole columns included.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/excel/cell_grid.h"
#include "runtime/text.h"

namespace zorkanca {

/// How a cell's content stands in its cell (`XlHAlign`).
enum class ExcelAlignment : std::int16_t { kGeneral = 1, kCenter = -4108, kLeft = -4131, kRight = -4152 };

/// What `PasteSpecial` takes of the copied cells (`XlPasteType`).
enum class ExcelPasteType : std::int32_t { kFormulas = -4123, kAll = -4104 };

/// How `PasteSpecial` combines (`XlPasteSpecialOperation`).
enum class ExcelPasteOperation : std::int32_t { kNone = -4142 };

/// Arguments of `PasteSpecial`; the defaults are the object model's.
struct PasteSpecialArguments {
  ExcelPasteType Paste = ExcelPasteType::kAll;
  ExcelPasteOperation Operation = ExcelPasteOperation::kNone;
  bool SkipBlanks = false;
  bool Transpose = false;
};

/// Rows and columns are counted from 1 in the sheet. A range stays what it is when the sheet changes; after its
/// workbook was closed every member raises 424.
class ExcelRange {
 public:
  virtual ~ExcelRange() = default;

  /// `Rows.Count`, `Columns.Count`: of a whole column 1048576, of a whole row 16384.
  virtual std::int32_t RowCount() const = 0;
  virtual std::int32_t ColumnCount() const = 0;
  /// The block round the first cell, bounded by blank rows and columns; the cell alone when all round it is blank. In a
  /// workbook that `OpenText` has just imported the region of A1 is the whole import, so that a record without any text
  /// cuts nothing off.
  virtual std::unique_ptr<ExcelRange> CurrentRegion() = 0;
  /// The range moved by rows and columns. Errors: 1004 outside of the sheet.
  virtual std::unique_ptr<ExcelRange> Offset(std::int32_t rows, std::int32_t columns) = 0;
  /// A range of that size from the first cell on. Errors: 1004 outside of the sheet.
  virtual std::unique_ptr<ExcelRange> Resize(std::int32_t rows, std::int32_t columns) = 0;

  /// The first cell as it is shown, by its number format; "" when it is empty.
  virtual zorkanca::Text Text() = 0;
  /// Puts a content into all cells, as a user of the English program would type it: "" empties and keeps the format.
  virtual void Formula(TextView formula) = 0;
  /// Formulas in R1C1 notation ("=RC[-1]*2"), constants as `Value2` gives them, but numbers and truth values as English
  /// texts ("0.5", "TRUE"); "" for an empty cell. Cost and memory grow with the range: read large blocks in strips of
  /// rows (`Offset`, `Resize`).
  virtual CellGrid FormulaR1C1() = 0;
  /// Puts contents into the cells. A text that begins with "'" is that text without the apostrophe, whatever it looks
  /// like; one that begins with "=" a formula; another text what the English program would take it for; Empty empties.
  /// Formats stay. Errors: 1004 when the sizes differ, for a formula that cannot be read, for a text beyond 32767
  /// units.
  virtual void FormulaR1C1(const CellGrid& contents) = 0;
  /// Values without their formats: Empty, Double (dates too), Text, Boolean, `CellError`; of a formula its last result.
  virtual CellGrid Value2() = 0;

  /// Copies the cells to the application's clipboard, which `Paste` and `PasteSpecial` take from.
  virtual void Copy() = 0;
  /// `Copy` with a destination: copies cells with their formats to the place of the destination's first cell, in this
  /// workbook or another; the clipboard is left alone. Errors: 1004 when they do not fit into the sheet.
  virtual void Copy(ExcelRange& Destination) = 0;
  /// Pastes what was copied at the first cell. With `kFormulas` contents only: the formats of the target stay, texts
  /// stay texts. Errors: 1004 when nothing was copied or it does not fit; 438 for other operations.
  virtual void PasteSpecial(const PasteSpecialArguments& arguments) = 0;
  /// Makes the range the selection of its sheet, which must be the active one. Errors: 1004 when it is not.
  virtual void Select() = 0;

  virtual void HorizontalAlignment(ExcelAlignment alignment) = 0;
  /// `Font.Bold`.
  virtual void FontBold(bool bold) = 0;
  /// `Columns.AutoFit`: makes each column as wide as the longest text of the range in it.
  virtual void AutoFitColumns() = 0;
};

}  // namespace zorkanca
