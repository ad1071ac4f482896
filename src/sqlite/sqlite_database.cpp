#include "sqlite/sqlite_database.h"

#include <utility>

#include "runtime/utf8.h"
#include "sqlite/sqlite_connection.h"
#include "sqlite/sqlite_recordset.h"

namespace zorkanca {

namespace {

constexpr std::int16_t kForwardOnly = 256;

}  // namespace

SqliteDatabase::SqliteDatabase(std::string path, const std::atomic<bool>* interrupted)
    : path_(std::move(path)), interrupted_(interrupted) {}

SqliteDatabase::~SqliteDatabase() = default;

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(TextView name, RecordsetType /*type*/, std::int16_t options) {
  if (!connection_) connection_ = std::make_shared<SqliteConnection>(path_, interrupted_);
  const bool forwardOnly = (options & kForwardOnly) != 0;
  return std::make_unique<SqliteRecordset>(connection_, ToUtf8(name), forwardOnly);
}

}  // namespace zorkanca
