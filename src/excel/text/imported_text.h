// An imported text file as a block of contents. Nothing of it is held: rows are read from the file when somebody asks.
#pragma once

#include <memory>
#include <vector>

#include "excel/grid/cell_source.h"
#include "excel/grid/work_watch.h"
#include "excel/text/general_reader.h"
#include "excel/text/record_reader.h"
#include "platform/excel/excel_application.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

class ImportedText final : public CellSource, public std::enable_shared_from_this<ImportedText> {
 public:
  /// Reads the file once to count its rows and columns.
  /// @param path    native; ANSI or, by the argument Origin, UTF-8
  /// @param locale  outlives the block
  /// @param watch   asked and told meanwhile
  /// Errors: 1004 when it is missing, has more rows or columns than a sheet, or a value longer than a cell holds; 438
  /// for an unsupported argument; 18 when cancelled; those of files.
  static std::shared_ptr<const ImportedText> Open(const std::string& path, const OpenTextArguments& arguments,
                                                  const Locale& locale, const ExcelWatch& watch);

  std::int32_t rows() const override { return rows_; }
  std::int32_t columns() const override { return columns_; }
  std::unique_ptr<Cursor> Open() const override;
  std::string AmountPattern(bool decimals) const override;

  /// True when the first row has a content in every column and no row is without any: then all cells hang together.
  bool isConnected() const { return isConnected_; }

 private:
  class TextCursor;

  ImportedText(std::shared_ptr<const OpenedText> text, const OpenTextArguments& arguments, const Locale& locale);
  void Count(std::int32_t skippedRows, const ExcelWatch& watch);
  /// True when a cell of that format shows no more than its field has.
  bool ShowsAsSpelled(ContentFormat format, std::string_view field) const;
  bool IsText(std::size_t column) const { return column < textColumns_.size() && textColumns_[column]; }

  std::shared_ptr<const OpenedText> text_;
  const Locale& locale_;
  GeneralReader reader_;
  std::string trueWord_, falseWord_;  // as cells show them, in UTF-8
  bool shortDateIsShortest_ = false;  // the locale's short date adds no zeros and blanks
  std::vector<bool> textColumns_;
  std::vector<std::uint64_t> marks_;  // offsets of every 256th row
  std::int32_t rows_ = 0;
  std::int32_t columns_ = 1;
  bool isConnected_ = true;
};

}  // namespace zorkanca::excel
