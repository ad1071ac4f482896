#include "runtime/format.h"

#include "support/case_table.h"
#include "support/text_support.h"
#include "support/value_text.h"

namespace zorkanca::testing {
namespace {

std::string ResultOf(const CaseRow& row) {
  const Locale* const locale = FindLocale(FromUtf8(row.Cell(1)));
  if (locale == nullptr) return "no such locale";
  try {
    return ToUtf8(Format(ValueFromText(row.Cell(2), row.Cell(3)), FromUtf8(row.Cell(4)), *locale));
  } catch (const Error& error) {
    return "!" + std::to_string(error.number());
  }
}

TEST(Format, EachCaseOfTheTable) {
  for (const CaseRow& row : ReadCaseTable("runtime/data/format.tsv")) {
    EXPECT_EQ(ResultOf(row), row.Cell(5)) << "line " << row.line << ": " << row.Cell(1) << " " << row.Cell(2) << " '"
                                          << row.Cell(3) << "' by '" << row.Cell(4) << "'";
  }
}

}  // namespace
}  // namespace zorkanca::testing
