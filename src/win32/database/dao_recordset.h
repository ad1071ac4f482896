// A recordset of DAO and its fields.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "platform/database.h"
#include "win32/automation/automation_object.h"

namespace zorkanca::win32 {

class DaoField final : public Field, public Automation {
 public:
  using Automation::Automation;
  const Text& Name() const override;
  FieldType Type() const override;
  std::int32_t Size() const override;
  const zorkanca::Value& Value() override;

 private:
  mutable std::optional<Text> name_;  // neither changes while the recordset is open
  mutable std::optional<FieldType> type_;
  zorkanca::Value value_;
};

/// Keeps the object of each field that was asked for: it follows the current record.
class DaoRecordset final : public Recordset, public Automation {
 public:
  using Automation::Automation;
  ~DaoRecordset() override;
  bool Bof() const override;
  bool Eof() const override;
  void MoveFirst() override;
  void MoveNext() override;
  void MoveLast() override;
  std::int32_t RecordCount() const override;
  std::int32_t FieldCount() const override;
  Field& FieldAt(std::int32_t index) override;
  Field& FieldNamed(TextView name) override;
  void Close() override;

 private:
  std::map<std::int32_t, DaoField> fieldsAt_;
  std::map<Text, DaoField, std::less<>> fieldsNamed_;
  bool open_ = true;
};

}  // namespace zorkanca::win32
