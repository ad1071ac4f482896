// The records of a CSV file. The first one names the columns.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tabular/column_names.h"
#include "tabular/csv_scanner.h"
#include "tabular/table_reader.h"
#include "tabular/text_window.h"

namespace zorkanca {

/// Nothing between two separators is Null, `""` is an empty text. A record that is shorter than the first one ends in
/// Nulls, a longer one is a fault. Lines without any character are no records where there is more than one column.
class CsvReader final : public TableReader {
 public:
  /// Reads the names.
  /// @param separator  nothing: it is found
  /// Errors: also those of `Utf8Input`.
  CsvReader(Utf8Input input, std::optional<char> separator);
  CsvReader(const CsvReader&) = delete;
  CsvReader& operator=(const CsvReader&) = delete;

  void Restart() override;
  bool Next(std::vector<Cell>& cells) override;
  const std::vector<std::string>& ColumnNames() const override { return names_.names(); }
  Error Fault(std::size_t column, std::int32_t number, const Text& reason) const override;

 private:
  char SeparatorOfStart();
  void ReadNames();
  bool ScanRecord();
  bool IsBlankLine() const;
  void RequireCharacters(std::string_view record) const;
  std::string_view Content(const CsvField& field);
  [[noreturn]] void FailAt(std::int64_t line, std::size_t field, const Text& reason) const;
  [[noreturn]] void FailScan() const;

  Utf8Input input_;
  TextWindow window_;
  CsvScanner scanner_;
  zorkanca::ColumnNames names_;
  bool isBehindNames_ = false;
  std::size_t scanned_ = 0;    // length of the record in hand
  std::int64_t line_ = 1;      // where that record begins
  std::int64_t nextLine_ = 1;  // where the next one begins
  std::string unescaped_;      // fields of the record in hand whose quotation marks were doubled
};

}  // namespace zorkanca
