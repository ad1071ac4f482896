// The records that fill a template of Excel: those of a query, or those of a prepared pair of files.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "barcode/bar_code.h"
#include "export/bar_code_specification.h"
#include "export/excel_cell_pattern.h"
#include "export/export_session.h"
#include "export/prepared_recordset.h"
#include "export/query_reader.h"

namespace zorkanca {

class TemplateRecords : public PatternSource {
 public:
  /// Opens the records and stands on the first one. Errors: stops the export when they cannot be had or there are none.
  /// @return how many records are written
  virtual std::int32_t Open() = 0;
  /// Calls `write` for each record with the number of times that it is written, 0 or less: not at all.
  virtual void ForEach(const std::function<void(std::int16_t copies)>& write) = 0;

  /// The names that placeholders may have. Only while the records are open.
  virtual std::vector<Text> ColumnNames() = 0;

  Text Code() override { return barCode_ ? barCode_->EncodeRecord() : Text(); }
  /// Name of the column that was looked up last.
  const Text& LastName() const { return lastName_; }

 protected:
  /// Takes the specification of a bar code off the names, if there is one.
  void TakeCode(Text& names, const Locale& locale) { barCode_ = TakeBarCode(names, locale); }
  void SetCodeRecordset(Recordset& recordset) {
    if (barCode_) barCode_->SetRecordset(recordset);
  }
  void NoteName(TextView name) { lastName_ = name; }

 private:
  std::unique_ptr<cBarCode> barCode_;
  Text lastName_;
};

/// The records of a query, each as often as the caller's multiplier says.
class QueryTemplateRecords final : public TemplateRecords {
 public:
  /// @param rsFieldNames  names and specification of a bar code; receives the names
  QueryTemplateRecords(ExportSession& session, Database& database, TextView select, Text& rsFieldNames,
                       std::int16_t options)
      : session_(session),
        reader_(session),
        database_(database),
        select_(select),
        rsFieldNames_(rsFieldNames),
        options_(options) {}

  std::int32_t Open() override;
  void ForEach(const std::function<void(std::int16_t copies)>& write) override;
  Field* Column(TextView name) override;
  std::vector<Text> ColumnNames() override;

 private:
  std::int32_t MultiplierSum();

  ExportSession& session_;
  QueryReader reader_;
  Database& database_;
  Text select_;
  Text& rsFieldNames_;
  std::int16_t options_;
};

/// The records of a header file and a data file. A name that the header lacks gives nothing.
class PreparedTemplateRecords final : public TemplateRecords {
 public:
  PreparedTemplateRecords(ExportSession& session, TextView headersFile, TextView dataFile)
      : session_(session), headersFile_(headersFile), dataFile_(dataFile) {}

  std::int32_t Open() override;
  void ForEach(const std::function<void(std::int16_t copies)>& write) override;
  Field* Column(TextView name) override;
  std::vector<Text> ColumnNames() override;

 private:
  ExportSession& session_;
  Text headersFile_;
  Text dataFile_;
  std::optional<PreparedData> data_;
  std::optional<PreparedRecordset> records_;
};

}  // namespace zorkanca
