// Dates and exact numbers out of the forms in which SQLite keeps them. Each gives nothing when the stored form is none
// of the type or lies outside its range.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "runtime/value.h"

namespace zorkanca {

/// The date of seconds since 1.1.1970 0:00.
std::optional<Date> DateOfUnixSeconds(std::int64_t seconds);
/// The date of a Julian day (days since noon of 24.11.4714 B.C.), to the nearest second.
std::optional<Date> DateOfJulianDay(double julianDay);

std::optional<Currency> CurrencyOf(std::int64_t number);
/// Halves of a ten-thousandth are rounded to even.
std::optional<Currency> CurrencyOf(double number);

/// Of a plain number of at most four decimals, "-12.50".
std::optional<Currency> CurrencyOf(std::string_view text);

Decimal DecimalOf(std::int64_t number);
/// The decimal number of the 15 significant digits of a real, without trailing zeros; at most 28 decimals.
std::optional<Decimal> DecimalOf(double number);
/// Of a plain number of at most 28 digits, "-12.50"; with as many decimals as it has.
std::optional<Decimal> DecimalOf(std::string_view text);

}  // namespace zorkanca
