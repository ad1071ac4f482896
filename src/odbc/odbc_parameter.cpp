#include "odbc/odbc_parameter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "runtime/decimal_digits.h"
#include "runtime/error.h"
#include "runtime/iso_date.h"
#include "runtime/shortest_double.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

// "12.5", with as many digits as there are.
template <typename Number>
std::string ExactText(const Number& number) {
  Text text;
  AppendDigits(text, DigitsOf(number), u".");
  return ToUtf8(text);
}

}  // namespace

void OdbcParameter::TakeText(const std::string& text, SQLSMALLINT type, SQLULEN size, SQLSMALLINT decimals) {
  cType = SQL_C_CHAR;
  sqlType = type;
  columnSize = std::max<SQLULEN>(size, 1);
  digits = decimals;
  buffer_.assign(text.begin(), text.end());
  length = indicator = static_cast<SQLLEN>(text.size());
  buffer_.push_back('\0');
}

void OdbcParameter::TakeWide(const Text& text) {
  cType = SQL_C_WCHAR;
  sqlType = SQL_WVARCHAR;
  columnSize = std::max<SQLULEN>(text.size(), 1);
  digits = 0;
  buffer_.resize((text.size() + 1) * sizeof(char16_t));
  std::memcpy(buffer_.data(), text.c_str(), buffer_.size());
  length = indicator = static_cast<SQLLEN>(text.size() * sizeof(char16_t));
}

template <typename Number>
void OdbcParameter::TakeNumber(Number number, SQLSMALLINT c, SQLSMALLINT sql) {
  cType = c;
  sqlType = sql;
  columnSize = 0;
  digits = 0;
  buffer_.resize(sizeof number);
  std::memcpy(buffer_.data(), &number, sizeof number);
  length = indicator = sizeof number;
}

void OdbcParameter::Take(const Value& value, const OdbcDriver& driver) {
  const auto take = [&](const auto& bound) {
    using Type = std::decay_t<decltype(bound)>;
    if constexpr (std::is_same_v<Type, Empty> || std::is_same_v<Type, Null>) {
      TakeText("", SQL_VARCHAR, 1, 0);
      indicator = SQL_NULL_DATA;
    } else if constexpr (std::is_same_v<Type, bool>) {
      TakeNumber(static_cast<unsigned char>(bound), SQL_C_BIT, SQL_BIT);
    } else if constexpr (std::is_integral_v<Type>) {
      const auto number = static_cast<std::int64_t>(bound);
      if (number == static_cast<std::int32_t>(number)) {
        TakeNumber(static_cast<std::int32_t>(number), SQL_C_SLONG, SQL_INTEGER);
      } else {
        TakeNumber(number, SQL_C_SBIGINT, SQL_BIGINT);
      }
    } else if constexpr (std::is_same_v<Type, float>) {
      TakeNumber(ShortestDouble(bound), SQL_C_DOUBLE, SQL_DOUBLE);
    } else if constexpr (std::is_same_v<Type, double>) {
      TakeNumber(bound, SQL_C_DOUBLE, SQL_DOUBLE);
    } else if constexpr (std::is_same_v<Type, Currency> || std::is_same_v<Type, Decimal>) {
      const std::string text = ExactText(bound);
      const std::size_t point = std::min(text.find('.'), text.size() - 1);
      TakeText(text, SQL_DECIMAL, text.size(), static_cast<SQLSMALLINT>(text.size() - 1 - point));
    } else if constexpr (std::is_same_v<Type, Date>) {
      const std::string text = IsoDateText(bound);
      const bool isTime = text.find('-') == std::string::npos;
      const bool isDay = text.find(':') == std::string::npos;
      TakeText(text, isTime ? SQL_TYPE_TIME : isDay ? SQL_TYPE_DATE : SQL_TYPE_TIMESTAMP, text.size(), 0);
    } else if constexpr (std::is_same_v<Type, Text>) {
      if (!driver.givesUtf8) return TakeWide(bound);
      const std::string text = ToUtf8(bound);
      TakeText(text, SQL_VARCHAR, bound.size(), 0);
    } else if constexpr (std::is_same_v<Type, Binary>) {
      cType = SQL_C_BINARY;
      sqlType = SQL_VARBINARY;
      columnSize = std::max<SQLULEN>(bound.size(), 1);
      digits = 0;
      buffer_.resize(bound.size() + 1);
      if (!bound.empty()) std::memcpy(buffer_.data(), bound.data(), bound.size());
      length = indicator = static_cast<SQLLEN>(bound.size());
    } else {
      static_assert(std::is_same_v<Type, ObjectReference>);
      Raise(RuntimeError::kTypeMismatch);
    }
  };
  std::visit(take, value);
}

}  // namespace zorkanca
