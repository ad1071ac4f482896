// Connection strings of ODBC: "KEY=VALUE;…", values with ";" or braces in "{…}", where "}}" stands for "}".
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

class ConnectionString {
 public:
  /// @param text  without "ODBC;". Errors: 3151 for a piece without "=", an open brace, or neither DSN nor DRIVER.
  explicit ConnectionString(TextView text);

  /// The value of a key, case ignored; the first of several.
  std::optional<Text> ValueOf(TextView key) const;
  /// Adds the pair where the key does not stand there yet.
  void AddIfMissing(TextView key, TextView value);

  /// Takes the password out, so that it is only there where it is needed; nothing where there is none.
  std::optional<Text> TakePassword();

  /// As drivers take it.
  Text AsText() const;

 private:
  std::vector<std::pair<Text, Text>> pairs_;
};

}  // namespace zorkanca
