#include "sqlite/sqlite_types.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

#include "runtime/error.h"
#include "runtime/utf8.h"
#include "runtime/utf8_check.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kLongestText = 255;  // DAO's limit; longer texts are memos

struct NamedType {
  std::string_view name;
  FieldType type;
};

constexpr NamedType kTypes[] = {
    {"BOOLEAN", FieldType::kBoolean},
    {"BOOL", FieldType::kBoolean},
    {"BIT", FieldType::kBoolean},
    {"YESNO", FieldType::kBoolean},
    {"LOGICAL", FieldType::kBoolean},
    {"TINYINT", FieldType::kByte},
    {"BYTE", FieldType::kByte},
    {"SMALLINT", FieldType::kInteger},
    {"SHORT", FieldType::kInteger},
    {"INT2", FieldType::kInteger},
    {"INTEGER", FieldType::kLong},
    {"INT", FieldType::kLong},
    {"MEDIUMINT", FieldType::kLong},
    {"INT4", FieldType::kLong},
    {"LONG", FieldType::kLong},
    {"COUNTER", FieldType::kLong},
    {"AUTOINCREMENT", FieldType::kLong},
    {"BIGINT", FieldType::kBigInteger},
    {"INT8", FieldType::kBigInteger},
    {"UNSIGNED BIG INT", FieldType::kBigInteger},
    {"CURRENCY", FieldType::kCurrency},
    {"CURRENCY REAL", FieldType::kCurrency},
    {"CURRENCY TEXT", FieldType::kCurrency},
    {"MONEY", FieldType::kCurrency},
    {"SINGLE", FieldType::kSingle},
    {"FLOAT4", FieldType::kSingle},
    {"DOUBLE", FieldType::kDouble},
    {"DOUBLE PRECISION", FieldType::kDouble},
    {"REAL", FieldType::kDouble},
    {"FLOAT", FieldType::kDouble},
    {"FLOAT8", FieldType::kDouble},
    {"NUMBER", FieldType::kDouble},
    {"NUMERIC", FieldType::kNumeric},
    {"DECIMAL", FieldType::kDecimal},
    {"DECIMAL REAL", FieldType::kDecimal},
    {"DECIMAL TEXT", FieldType::kDecimal},
    {"DEC", FieldType::kDecimal},
    {"DATE", FieldType::kDate},
    {"DATETIME", FieldType::kDate},
    {"TIME", FieldType::kTime},
    {"TIMESTAMP", FieldType::kTimeStamp},
    {"CHAR", FieldType::kChar},
    {"CHARACTER", FieldType::kChar},
    {"NCHAR", FieldType::kChar},
    {"NATIVE CHARACTER", FieldType::kChar},
    {"VARCHAR", FieldType::kText},
    {"NVARCHAR", FieldType::kText},
    {"VARYING CHARACTER", FieldType::kText},
    {"TEXT", FieldType::kText},
    {"STRING", FieldType::kText},
    {"MEMO", FieldType::kMemo},
    {"CLOB", FieldType::kMemo},
    {"NTEXT", FieldType::kMemo},
    {"LONGTEXT", FieldType::kMemo},
    {"LONGCHAR", FieldType::kMemo},
    {"NOTE", FieldType::kMemo},
    {"BLOB", FieldType::kLongBinary},
    {"LONGBINARY", FieldType::kLongBinary},
    {"IMAGE", FieldType::kLongBinary},
    {"OLEOBJECT", FieldType::kLongBinary},
    {"GENERAL", FieldType::kLongBinary},
    {"BINARY", FieldType::kBinary},
    {"VARBINARY", FieldType::kVarBinary},
    {"GUID", FieldType::kGuid},
    {"UUID", FieldType::kGuid},
    {"UNIQUEIDENTIFIER", FieldType::kGuid},
};

// Any other name is read as SQLite reads it for its affinities: the first of these that it contains.
constexpr NamedType kAffinities[] = {
    {"INT", FieldType::kLong},    {"CHAR", FieldType::kText},       {"CLOB", FieldType::kText},
    {"TEXT", FieldType::kText},   {"BLOB", FieldType::kLongBinary}, {"REAL", FieldType::kDouble},
    {"FLOA", FieldType::kDouble}, {"DOUB", FieldType::kDouble},
};

constexpr bool IsBlankByte(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

// "  varying   character " gives "VARYING CHARACTER".
std::string NormalizedName(std::string_view name) {
  std::string result;
  for (const char byte : name) {
    if (!IsBlankByte(byte)) {
      result.push_back(byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte);
    } else if (!result.empty() && result.back() != ' ') {
      result.push_back(' ');
    }
  }
  if (result.ends_with(' ')) result.pop_back();
  return result;
}

FieldType TypeOfName(const std::string& name) {
  for (const NamedType& known : kTypes) {
    if (known.name == name) return known.type;
  }
  for (const NamedType& affinity : kAffinities) {
    if (name.find(affinity.name) != std::string::npos) return affinity.type;
  }
  return FieldType::kNumeric;
}

// The first number in the brackets "(n)" or "(p,s)"; 0 when there is none.
std::int32_t SizeInBrackets(std::string_view brackets) {
  const std::size_t digit = brackets.find_first_of("0123456789");
  if (digit == std::string_view::npos) return 0;
  std::int32_t size = 0;
  const std::from_chars_result end = std::from_chars(brackets.data() + digit, brackets.data() + brackets.size(), size);
  return end.ec == std::errc() ? size : std::numeric_limits<std::int32_t>::max();
}

bool IsLongerThanText(std::string_view utf8) {
  return utf8.size() > std::size_t{kLongestText} && Utf16Length(utf8) > std::size_t{kLongestText};
}

}  // namespace

SqliteColumnType DeclaredType(std::string_view declaration) {
  const std::size_t bracket = std::min(declaration.find('('), declaration.size());
  const FieldType type = TypeOfName(NormalizedName(declaration.substr(0, bracket)));
  if (type != FieldType::kText && type != FieldType::kChar) return {type, 0};
  const std::int32_t size = SizeInBrackets(declaration.substr(bracket));
  return size > kLongestText ? SqliteColumnType{FieldType::kMemo, 0} : SqliteColumnType{type, size};
}

SqliteColumn DescribeColumn(sqlite3_stmt* statement, int column) {
  const char* const name = sqlite3_column_name(statement, column);
  if (name == nullptr) Raise(RuntimeError::kOutOfMemory);
  SqliteColumn described{.name = FromUtf8(name), .type = std::nullopt};
  if (const char* const declaration = sqlite3_column_decltype(statement, column)) {
    described.type = DeclaredType(declaration);
  }
  return described;
}

ValueKind KindOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER: {
      const std::int64_t number = sqlite3_value_int64(value);
      return number == static_cast<std::int32_t>(number) ? ValueKind::kLong : ValueKind::kBigInteger;
    }
    case SQLITE_FLOAT:
      return ValueKind::kReal;
    case SQLITE_TEXT: {
      const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
      const bool isLong = text != nullptr && IsLongerThanText({text, size});
      return isLong ? ValueKind::kMemo : ValueKind::kText;
    }
    case SQLITE_BLOB:
      return ValueKind::kBinary;
    default:
      return ValueKind::kNull;
  }
}

FieldType TypeOfKind(ValueKind kind) {
  switch (kind) {
    case ValueKind::kLong:
      return FieldType::kLong;
    case ValueKind::kBigInteger:
      return FieldType::kBigInteger;
    case ValueKind::kReal:
      return FieldType::kDouble;
    case ValueKind::kMemo:
      return FieldType::kMemo;
    case ValueKind::kBinary:
      return FieldType::kLongBinary;
    default:
      return FieldType::kText;
  }
}

}  // namespace zorkanca
