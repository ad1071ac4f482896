#include "sqlite/sqlite_database.h"

#include <algorithm>
#include <utility>

#include "runtime/error.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_connection.h"
#include "sqlite/sqlite_detail_query.h"
#include "sqlite/sqlite_recordset.h"

namespace zorkanca {

namespace {

constexpr std::int16_t kForwardOnly = 256;

bool HasName(const std::vector<Text>& names, const Text& name) {
  return std::any_of(names.begin(), names.end(), [&](const Text& each) { return EqualsIgnoringCase(each, name); });
}

void RequireColumns(Recordset& recordset, const SqliteColumnTypes& types, const std::vector<Text>& settledBefore) {
  std::vector<Text> names;
  for (std::int32_t index = 0; index < recordset.FieldCount(); ++index)
    names.push_back(recordset.FieldAt(index).Name());
  for (const auto& [name, type] : types) {
    if (HasName(names, name) || HasName(settledBefore, name)) continue;
    Raise(RuntimeError::kItemNotFound, NoColumn(name, names));
  }
}

}  // namespace

Text SqliteVersion() {
  return FromUtf8(sqlite3_libversion());
}

SqliteDatabase::SqliteDatabase(std::optional<std::string> path, const std::atomic<bool>* interrupted)
    : path_(std::move(path)), interrupted_(interrupted) {}

SqliteDatabase::~SqliteDatabase() = default;

const std::shared_ptr<SqliteConnection>& SqliteDatabase::connection() {
  if (!connection_) {
    auto opened = std::make_shared<SqliteConnection>(path_, interrupted_);
    if (setUp_) settledBefore_ = setUp_(*opened);
    connection_ = std::move(opened);
  }
  return connection_;
}

std::unique_ptr<DetailQuery> SqliteDatabase::PrepareDetail(TextView sql) {
  return std::make_unique<SqliteDetailQuery>(connection(), ToUtf8(sql), types_);
}

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(TextView name, RecordsetType /*type*/, std::int16_t options) {
  const bool forwardOnly = (options & kForwardOnly) != 0;
  auto recordset = std::make_unique<SqliteRecordset>(connection(), ToUtf8(name), forwardOnly, types_);
  if (std::exchange(checksTypes_, false)) RequireColumns(*recordset, types_, settledBefore_);
  return recordset;
}

}  // namespace zorkanca
