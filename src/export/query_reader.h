// The steps that every export over a SELECT shares: running the query, counting its records, walking through them with
// the caller's multiplier, and the progress after each.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "export/export_session.h"
#include "platform/database.h"

namespace zorkanca {

/// One column of a query, for the loops over its records.
struct QueryColumn {
  Field* field;
  bool isMultiplier;  ///< written as "1": its name is the caller's multiplier to the letter
};

/// Warns where names and columns differ in number: then names stand over the wrong values.
void WarnOfNameCount(const ExportContext& context, std::size_t names, std::int32_t columns);

class QueryReader {
 public:
  /// @param session  receives the recordset and keeps it open for the whole export
  explicit QueryReader(ExportSession& session) : session_(session) {}

  /// Runs the query, counts its records and stands on the first one.
  /// @param options  DAO's options, passed on unchanged
  /// Errors: stops the export when the data cannot be accessed or there are no records.
  void Open(Database& database, TextView select, std::int16_t options);

  std::int32_t FieldCount() const { return fieldCount_; }
  std::int32_t RecordCount() const { return recordCount_; }
  /// The columns in field order; call it once, before the records are read and after `ValidateMultiplier`.
  std::vector<QueryColumn> Columns();

  /// Clears a multiplier that the current record cannot give as a 16-bit number, for this and later exports.
  void ValidateMultiplier();

  /// Whether the caller hears of the progress.
  enum class Reporting { kPercent, kSilent };

  /// Calls `write` for each record with the number of copies it is to be written (0 or less: not at all), followed by
  /// the progress step; reports 100 per cent at the end. Errors: stops the export when the caller cancels; 3265, 13, 6
  /// or 94 when the multiplier gives no number.
  void ForEachRecord(Reporting reporting, const std::function<void(std::int16_t copies)>& write);

 private:
  std::int16_t Copies();
  std::int16_t NamedCopies();
  void NoteBinaryColumn(const Error& failure);

  ExportSession& session_;
  std::int32_t fieldCount_ = 0;
  std::int32_t recordCount_ = 0;
};

}  // namespace zorkanca
