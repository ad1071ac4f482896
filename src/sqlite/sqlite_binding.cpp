#include "sqlite/sqlite_binding.h"

#include <optional>
#include <string>
#include <type_traits>

#include "runtime/decimal_digits.h"
#include "runtime/error.h"
#include "runtime/iso_date.h"
#include "runtime/shortest_double.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

int BindText(sqlite3_stmt* statement, int parameter, const std::string& utf8) {
  return sqlite3_bind_text64(statement, parameter, utf8.data(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// Exact numbers are stored as integers or as the nearest real, and so they are found again.
int BindNumber(sqlite3_stmt* statement, int parameter, const DecimalDigits& number) {
  if (number.point >= number.count) {
    if (const std::optional<std::int64_t> whole = WholeNumber(number)) {
      return sqlite3_bind_int64(statement, parameter, *whole);
    }
  }
  return sqlite3_bind_double(statement, parameter, NearestDouble(number));
}

}  // namespace

void BindSqliteValue(sqlite3_stmt* statement, int parameter, const Value& value) {
  const auto bind = [&](const auto& bound) -> int {
    using Type = std::decay_t<decltype(bound)>;
    if constexpr (std::is_same_v<Type, Empty> || std::is_same_v<Type, Null>) {
      return sqlite3_bind_null(statement, parameter);
    } else if constexpr (std::is_integral_v<Type>) {
      return sqlite3_bind_int64(statement, parameter, bound);
    } else if constexpr (std::is_same_v<Type, float>) {
      return sqlite3_bind_double(statement, parameter, ShortestDouble(bound));
    } else if constexpr (std::is_same_v<Type, double>) {
      return sqlite3_bind_double(statement, parameter, bound);
    } else if constexpr (std::is_same_v<Type, Currency> || std::is_same_v<Type, Decimal>) {
      return BindNumber(statement, parameter, DigitsOf(bound));
    } else if constexpr (std::is_same_v<Type, Date>) {
      return BindText(statement, parameter, IsoDateText(bound));
    } else if constexpr (std::is_same_v<Type, Text>) {
      return BindText(statement, parameter, ToUtf8(bound));
    } else if constexpr (std::is_same_v<Type, Binary>) {
      // An empty vector may have no address, which SQLite would take for NULL.
      if (bound.empty()) return sqlite3_bind_zeroblob(statement, parameter, 0);
      return sqlite3_bind_blob64(statement, parameter, bound.data(), bound.size(), SQLITE_TRANSIENT);
    } else {
      static_assert(std::is_same_v<Type, ObjectReference>);
      Raise(RuntimeError::kTypeMismatch);
    }
  };
  switch (std::visit(bind, value) & 0xFF) {
    case SQLITE_OK:
      return;
    case SQLITE_NOMEM:
      Raise(RuntimeError::kOutOfMemory);
    default:
      throw Error(3146, u"SQLite", u"a parameter's value is too long");
  }
}

}  // namespace zorkanca
