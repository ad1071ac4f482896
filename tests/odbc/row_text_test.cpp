#include "odbc/row_text.h"

#include <gtest/gtest.h>

namespace zorkanca::testing {
namespace {

TEST(RowText, ValuesOfARow) {
  struct Row {
    std::string text;
    std::vector<std::string> values;  // "-" for NULL
  };
  const Row rows[] = {
      {"(1,abc,2.5)", {"1", "abc", "2.5"}},
      {"(,\"\",)", {"-", "", "-"}},
      {"()", {"-"}},
      {"(\"a b\",\"c,d\",\"(e)\")", {"a b", "c,d", "(e)"}},
      {"(\"say \"\"x\"\"\",\"\\\\x00ff\",7)", {"say \"x\"", "\\x00ff", "7"}},
      {"(\"\"\"\",\"\\\\\")", {"\"", "\\"}},
      {"(\"řádek\r\n\",ž)", {"řádek\r\n", "ž"}},
      // no rows, but nothing goes wrong with them
      {"", {}},
      {"(", {}},
      {"(\"never closed", {"never close"}},
      {"(a,\"", {"a", "-"}},
  };
  RowText row;
  for (const Row& each : rows) {
    row.Read(each.text);
    std::vector<std::string> values;
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::string_view value = row.At(column);
      values.emplace_back(value.data() == nullptr ? "-" : value);
    }
    EXPECT_EQ(values, each.values) << each.text;
  }
}

}  // namespace
}  // namespace zorkanca::testing
