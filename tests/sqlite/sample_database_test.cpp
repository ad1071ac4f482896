// The sample database of examples/, read as the exports read it.
#include <gtest/gtest.h>

#include <map>

#include "sqlite/sqlite_support.h"
#include "support/file_text.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

std::int64_t Amount(Recordset& recordset, TextView column) {
  return std::get<Currency>(recordset.FieldNamed(column).Value()).tenThousandths;
}

TEST(SampleDatabase, InvoicesAgreeWithTheirItems) {
  SqliteFile file(ProjectFileText("examples/sklad.sql"));
  SqliteDatabase database(file.path());

  std::map<Text, std::int64_t> sums;
  std::map<Text, std::int64_t> hundredthsOfTax;
  const auto items = Open(database, "SELECT * FROM polozky");
  EXPECT_EQ(CountAndReturn(*items), 420);
  for (; !items->Eof(); items->MoveNext()) {
    const Text& invoice = std::get<Text>(items->FieldNamed(u"faktura").Value());
    const std::int64_t amount = Amount(*items, u"castka");
    EXPECT_EQ(amount, Amount(*items, u"cena") * std::get<std::int16_t>(items->FieldNamed(u"pocet").Value()));
    sums[invoice] += amount;
    hundredthsOfTax[invoice] += amount * std::get<std::uint8_t>(items->FieldNamed(u"sazba_dph").Value());
  }

  const auto invoices = Open(database, "SELECT * FROM faktury");
  EXPECT_EQ(CountAndReturn(*invoices), 120);
  for (; !invoices->Eof(); invoices->MoveNext()) {
    const Text& number = std::get<Text>(invoices->FieldNamed(u"cislo").Value());
    const std::int64_t tax = Amount(*invoices, u"dph");
    EXPECT_EQ(Amount(*invoices, u"zaklad"), sums[number]) << Shown(number);
    EXPECT_LE(std::abs(tax * 100 - hundredthsOfTax[number]), 50 * 100) << Shown(number) << ": to the nearest hundredth";
    EXPECT_EQ(Amount(*invoices, u"celkem"), sums[number] + tax) << Shown(number);
    EXPECT_TRUE(std::holds_alternative<Date>(invoices->FieldNamed(u"vystavena").Value())) << Shown(number);
  }
}

}  // namespace
}  // namespace zorkanca::testing
