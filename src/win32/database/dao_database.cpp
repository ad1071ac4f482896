#include "win32/database/dao_database.h"

#include "runtime/error.h"
#include "win32/database/dao_recordset.h"

namespace zorkanca::win32 {

std::unique_ptr<Recordset> DaoDatabase::OpenRecordset(TextView name, RecordsetType type, std::int16_t options) {
  return std::make_unique<DaoRecordset>(
      object_.Child(u"OpenRecordset", name, static_cast<std::int16_t>(type), options));
}

const Text& DaoField::Name() const {
  if (!name_) name_ = AsText(object_.Get(u"Name"));
  return *name_;
}

FieldType DaoField::Type() const {
  if (!type_) type_ = static_cast<FieldType>(AsLong(object_.Get(u"Type")));
  return *type_;
}

std::int32_t DaoField::Size() const {
  return AsLong(object_.Get(u"Size"));
}

const Value& DaoField::Value() {
  value_ = ToValue(object_.Get(u"Value"));
  return value_;
}

DaoRecordset::~DaoRecordset() {
  try {
    Close();
  } catch (const std::exception&) {  // nobody is left to be told
    open_ = false;
  }
}

bool DaoRecordset::Bof() const {
  return AsBoolean(object_.Get(u"BOF"));
}

bool DaoRecordset::Eof() const {
  return AsBoolean(object_.Get(u"EOF"));
}

void DaoRecordset::MoveFirst() {
  object_.Call(u"MoveFirst");
}

void DaoRecordset::MoveNext() {
  object_.Call(u"MoveNext");
}

void DaoRecordset::MoveLast() {
  object_.Call(u"MoveLast");
}

std::int32_t DaoRecordset::RecordCount() const {
  return AsLong(object_.Get(u"RecordCount"));
}

std::int32_t DaoRecordset::FieldCount() const {
  return AsLong(object_.Child(u"Fields").Get(u"Count"));
}

Field& DaoRecordset::FieldAt(std::int32_t index) {
  const auto known = fieldsAt_.find(index);
  if (known != fieldsAt_.end()) return known->second;
  return fieldsAt_.try_emplace(index, object_.Item(u"Fields", index)).first->second;
}

Field& DaoRecordset::FieldNamed(TextView name) {
  const auto known = fieldsNamed_.find(name);
  if (known != fieldsNamed_.end()) return known->second;
  return fieldsNamed_.try_emplace(Text(name), object_.Item(u"Fields", name)).first->second;
}

void DaoRecordset::Close() {
  if (!std::exchange(open_, false)) return;
  object_.Call(u"Close");
}

}  // namespace zorkanca::win32
