#include "export/column_names.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(ColumnNames, CaptionsFollowTheSelectList) {
  const struct {
    TextView select;
    TextView captions;
  } kCases[] = {
      {u"SELECT a.kod, b.kod, nazev AS jmeno, 'x,y' AS c FROM t", u"a_kod;b_kod;jmeno;c"},
      {u"  select Kod From t", u"kod"},
      {u"SELECT t.* FROM t", u"*"},
      // Literals hold no commas, an apostrophe without a partner does.
      {u"select 'a,b' , 'c''d,e' as x, y from t", u"X;x;y"},
      {u"select 'a,b from t", u"'a;b"},
      {u"select a  'x' , b  'y' as c, d from t", u"aX;c;d"},  // blanks before a literal go with it
      {u"select a as b  'x' 'y', ' c' from t", u"bXX;X"},
      // The text after the first " as " is the name; brackets do not hold a list together.
      {u"select cast(x as int) as y from t", u"int) as y"},
      {u"select round(a, 2) as b, c.d.e from t", u"round(a;b;d.e"},
      {u"select datum_from, kod from t", u"datum_"},
      // Equal names: qualifiers on either side, numbers without any, numbers counted on in the second pass.
      {u"select kod, kod, kod from t", u"kod_1;kod_2;kod"},
      {u"select kod, a.kod from t", u"kod;a_kod"},
      {u"select a.kod, a.kod from t", u"a_kod_1;a_kod_2"},
      {u"select kod, kod, kod, kod from t", u"kod_1;kod_2;kod_3;kod_4"},
      {u"select x as a_2, x as a_2 from t", u"a_2_1;a_2_2"},
      {u"select a.n_9, a.n_9 from t", u"a_n_9;a_n_10"},
      {u"select a, , b from t", u"a;;b"},
      {u"select from t", u""},
  };
  for (const auto& row : kCases)
    EXPECT_EQ(ColumnCaptionsFromSelect(row.select, u";"), row.captions) << Shown(row.select);
  EXPECT_EQ(ColumnCaptionsFromSelect(u"select a, b from t", u" | "), u"a | b");
  EXPECT_EQ(ErrorOf([] { ColumnCaptionsFromSelect(u"select 1", u";"); }).number(), 5);
  EXPECT_EQ(ErrorOf([] { ColumnCaptionsFromSelect(u"", u";"); }).number(), 5);
}

TEST(ColumnNames, SourceOfTheNames) {
  Text names;
  EXPECT_EQ(ChooseColumnNames(u"SELECT * FROM t", names), ColumnNameSource::kFieldNames);
  EXPECT_EQ(names, u"");
  names = u"  ";
  EXPECT_EQ(ChooseColumnNames(u"SELECT a FROM t", names), ColumnNameSource::kFieldList);
  EXPECT_EQ(names, u"a") << "blank names are no names, and the derived ones go back to the caller";
  names = u"X;Y";
  EXPECT_EQ(ChooseColumnNames(u"SELECT * FROM t", names), ColumnNameSource::kFieldList);
  EXPECT_EQ(names, u"X;Y");
  names.clear();
  EXPECT_EQ(ErrorOf([&] { ChooseColumnNames(u"SELECT FROM t", names); }).description(),
            u"Chyba při sestavování hlavičky souboru !");
}

TEST(ColumnNames, PositionOfAName) {
  const std::vector<Text> names = {u"nazev", u" KOD ", u"kod"};
  EXPECT_EQ(IndexOfName(u"  Kod ", names), 1);
  EXPECT_EQ(IndexOfName(u"cena", names), -1);
}

}  // namespace
}  // namespace zorkanca::testing
