// Numbers of DAO's errors that ODBC connections raise.
#pragma once

#include <cstdint>

namespace zorkanca {

inline constexpr std::int32_t kOdbcTooFewParameters = 3061;
inline constexpr std::int32_t kOdbcCallFailed = 3146;
inline constexpr std::int32_t kOdbcConnectionFailed = 3151;

}  // namespace zorkanca
