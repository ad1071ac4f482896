// The database as the exports see it, under the names of DAO.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// DAO field types (numbers of `Field.Type`).
enum class FieldType : std::int16_t {
  kBoolean = 1,
  kByte = 2,
  kInteger = 3,
  kLong = 4,
  kCurrency = 5,
  kSingle = 6,
  kDouble = 7,
  kDate = 8,
  kBinary = 9,
  kText = 10,
  kLongBinary = 11,
  kMemo = 12,
  kGuid = 15,
  kBigInteger = 16,
  kVarBinary = 17,
  kChar = 18,
  kNumeric = 19,
  kDecimal = 20,
  kFloat = 21,
  kTime = 22,
  kTimeStamp = 23,
};

/// One column of a recordset; lives as long as the recordset and follows its current record.
class Field {
 public:
  virtual ~Field() = default;
  virtual const Text& Name() const = 0;
  virtual FieldType Type() const = 0;
  /// Defined length of a text column in characters; 0 where none is defined (memos, numbers).
  virtual std::int32_t Size() const = 0;
  /// Value in the current record; the reference holds until the recordset moves or the field is read again.
  /// Errors: 13 when the stored text is no text, 3021 when there is no current record.
  virtual const zorkanca::Value& Value() = 0;
};

/// The rows of a query, one of them current. Closed by its destructor at the latest.
class Recordset {
 public:
  virtual ~Recordset() = default;
  virtual bool Bof() const = 0;
  virtual bool Eof() const = 0;
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;
  virtual void MoveLast() = 0;
  /// Number of rows; exact once `MoveLast` was called.
  virtual std::int32_t RecordCount() const = 0;
  virtual std::int32_t FieldCount() const = 0;
  /// @param index  position from 0. Errors: 3265 outside the columns.
  virtual Field& FieldAt(std::int32_t index) = 0;
  /// The first field of this name, case ignored. Errors: 3265 when there is none.
  virtual Field& FieldNamed(TextView name) = 0;
  virtual void Close() = 0;
};

/// Recordset types of `OpenRecordset`.
enum class RecordsetType : std::int32_t { kDynaset = 2 };

/// An open database of the client.
class Database {
 public:
  virtual ~Database() = default;
  /// Runs a query and stands on its first row.
  /// @param name     the SQL statement
  /// @param options  DAO's options, passed on as the client gave them
  /// Errors: whatever the database says.
  virtual std::unique_ptr<Recordset> OpenRecordset(TextView name, RecordsetType type, std::int16_t options) = 0;
};

}  // namespace zorkanca
