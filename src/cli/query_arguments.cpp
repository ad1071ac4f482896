#include "cli/query_arguments.h"

#include "cli/command_line.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

const std::string& SqlitePath(const std::string& argument) {
  if (!argument.starts_with("ODBC;")) return argument;
  throw UsageError("--db takes an SQLite file; ODBC connections are not supported by this program yet");
}

Text Statement(const std::string& argument) {
  return FromUtf8(argument == "-" ? ReadToEnd(stdin) : argument);
}

Text NumberedName(std::int64_t number, TextView extension) {
  constexpr std::size_t kDigits = 4;
  Text name = DecimalText(number);
  if (name.size() < kDigits) name.insert(0, kDigits - name.size(), u'0');
  return name.append(extension);
}

}  // namespace zorkanca::cli
