// The database object that a client hands over, with the members of DAO.
#pragma once

#include "platform/database.h"
#include "win32/automation/automation_object.h"

namespace zorkanca::win32 {

/// Any object with the members of DAO's Database will do: OpenRecordset, and of what it returns BOF, EOF, MoveFirst,
/// MoveNext, MoveLast, RecordCount, Fields, Close; of fields Name, Type, Size, Value. Each value costs one call to the
/// object, each record two more.
/// Errors of every call: 91 for "Nothing", 438 for a missing member, whatever the object says.
class DaoDatabase final : public Database, public Automation {
 public:
  using Automation::Automation;
  std::unique_ptr<Recordset> OpenRecordset(TextView name, RecordsetType type, std::int16_t options) override;
};

}  // namespace zorkanca::win32
