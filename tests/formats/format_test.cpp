#include "formats/format.h"

#include <gtest/gtest.h>

#include <span>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

struct Row {
  TextView format;
  TextView value;
  TextView expected;
};

void ExpectRows(std::span<const Row> rows) {
  for (const Row& row : rows) {
    cFormat format(*FindLocale(u"cs-CZ"));
    format.format(row.format);
    EXPECT_EQ(Shown(format.Apply(Text(row.value))), Shown(row.expected))
        << Shown(row.format) << " of " << Shown(row.value);
  }
}

TEST(Format, NamedConversions) {
  const Row rows[] = {
      {u"skp", u" 123456 ", u"12.34.56"},
      {u"SKP", u"12345", u"12.34.5"},
      {u"skp", u"12.3", u"12.3"},
      {u"skp", u" ×1121", u"1121"},
      {u"skp*", u"×1121", u"1121*"},
      {u"skp*", u"1121  ", u"11.21"},
      {u"skp_nazev", u"×1121", u"CZCC: 1121"},
      {u"skp_nazev", u"1121", u"SKP: 11.21"},
      {u"odpskup", u" 11", u"1a"},
      {u"odpskup", u" 1 ", u"1"},
      {u"typ_odp", u"4 ", u"R"},
      {u"typ_odp", u"5", u"M"},
      {u"typ_odp", u"6", u"6"},
      {u"shoda", u"-1", u"U"},
      {u"shoda", u"2", u"N"},
      {u"shoda", u"0", u"R"},
      {u"shoda", u"", u" "},
      {u"0->''", u" 0 ", u" "},
      {u"0->''", u"00", u"00"},
      {u"ltrim", u" a ", u"a "},
      {u"rtrim", u" a ", u" a"},
      {u"trim$", u" a ", u"a"},
      {u"intrim", u" 1 2\u00A0345 ", u"12345"},
      {u"evidence", u"dim", u"DR"},
      {u"evidence", u"Budo", u"BU"},
      {u"evidence", u"renp", u"PA"},
      {u"evidence", u"DM ", u"DL"},
      {u"a/n", u"0", u"N"},
      {u"a/n", u"0,00", u"N"},
      {u"a/n", u"-1", u"A"},
      {u"a/n", u"0,5", u"A"},
      {u"a/n", u"1.5", u"A"},  // no number of the locale
      {u"a/n", u"0.0", u"N"},
      {u"katpoh", u"17", u"převod"},
      {u"katpoh", u"93", u"vyřazení (manko, škoda)"},
      {u"katpoh", u"18", u" "},
      {u"text", u" x", u" x"},
      {u"2", u"1,5", u"1,5"},
      {u"''", u"", u" "},
      // Follow-up formats see what the one before has left.
      {u"trim;0->''", u"  0 ", u" "},
      {u"intrim;0.00$", u"1 234,5", u"1234,50"},
      {u"katpoh;a/n", u"10", u"N"},
  };
  ExpectRows(rows);
}

TEST(Format, Patterns) {
  const Row rows[] = {
      {u"#,##0.00", u"1234,5", u"1\u00A0234,50"},
      {u"0.00", u"12.5", u"12,50"},  // not the 12th of May
      {u"0.00", u"bez.", u"bez."},
      {u"0", u"2,5", u"3"},
      {u"DD.MM.YYYY", u"1.2.2026", u"01.02.2026"},
      {u"#", u"0", u" "},
      {u"0 \"KČ\"", u"5", u"5 kč"},
      {u"", u"", u""},
  };
  ExpectRows(rows);
}

TEST(Format, DatesAreRepaired) {
  const Row rows[] = {
      {u"dd.mm.yyyy*test", u"1.2.2026", u"01.02.2026"},
      {u"d.m.yyyy*test", u" 01/02-26 ", u"1.2.2026"},
      {u"dd.mm.yyyy*test", u"24122026", u"24.12.2026"},
      {u"dd.mm.yyyy*test", u"32122026", u" "},
      {u"dd.mm.yyyy*test", u"1,2,45", u"01.02.1945"},
      {u"dd.mm.yyyy*test", u"29.02.2023", u"28.02.2023"},
      {u"dd.mm.yyyy*test", u"30.2.2024", u"29.02.2024"},
      {u"dd.mm.yyyy*test", u"31.2.2023", u"28.02.2023"},
      {u"dd.mm.yyyy*test", u"31.4.2026", u"30.04.2026"},
      {u"dd.mm.yyyy*test", u"", u" "},
      {u"dd.mm.yyyy*test", u"nikdy", u" "},
  };
  ExpectRows(rows);
}

TEST(Format, CaseTables) {
  const Row rows[] = {
      {u"case 1: ano case else: ne", u" 1 ", u"ano"},
      {u"  CASE 1: ano CASE Else: ne", u"2", u"ne"},
      {u"case 1: ano case 0: ne", u"2", u""},
      {u"case like a*: A case else: @", u"Abc", u"A"},
      {u"case like a*: A case else: @", u"xyz", u"xyz"},
      {u"case like 'A?' : A case like'[b-d]#': B", u"ab", u"A"},
      {u"case like 'A?' : A case like'[b-d]#': B", u"C7", u"B"},
      {u"case <10: malé case else: velké", u"9", u"malé"},
      {u"case <10: malé case else: velké", u"10", u"velké"},
      {u"case <10: malé case else: velké", u"100", u"velké"},
      {u"case <= 2.5: a case > 3,5: b case >=3: c", u"2,5", u"a"},
      {u"case <= 2.5: a case > 3,5: b case >=3: c", u"3.6", u"b"},
      {u"case <= 2.5: a case > 3,5: b case >=3: c", u"3", u"c"},
      {u"case <5: a case >=5: b", u"x", u""},
      {u"case >='b': dál case else: začátek", u"abc", u"začátek"},
      {u"case >='b': dál case else: začátek", u"b", u"dál"},
      {u"case '<a>': x case else: y", u"<a>", u"x"},
      {u"case '<a>': x case else: y", u" <a>", u"y"},
      {u"case 1: ' a ' case 2: 'b case 3: a:b", u"1", u" a "},
      {u"case 1: ' a ' case 2: 'b case 3: a:b", u"2", u"b"},
      {u"case 1: ' a ' case 2: 'b case 3: a:b", u"3", u"a:b"},
      {u"case >0: @;0.00 case else: @;trim", u"5", u"5,00"},
      {u"case >0: @;0.00 case else: @;trim", u" -5 ", u"-5"},
      {u"case else: x case 1: y", u"1", u"y"},
      {u"case else: x case 1: y", u"2", u""},
  };
  ExpectRows(rows);
}

TEST(Format, BooleansCountAsMinusOneAndZero) {
  const struct {
    TextView format;
    TextView ofTrue, ofFalse;
  } kRows[] = {
      {u"a/n", u"A", u"N"},
      {u"text;trim;a/n", u"A", u"N"},
      {u"case <0: a case >=0: b", u"a", u"b"},
      {u"case >-1: @;a/n case <='0': t case else: @;a/n", u"A", u"N"},
      {u"case -1: a case True: b case else: @", u"b", u"False"},  // texts are compared as texts
      {u"", u"True", u"False"},
      {u"katpoh;a/n", u"N", u"N"},  // what a conversion has left is a text
  };
  for (const auto& row : kRows) {
    cFormat format(*FindLocale(u"cs-CZ"));
    format.format(row.format);
    EXPECT_EQ(Shown(format.Apply(true)), Shown(row.ofTrue)) << Shown(row.format);
    EXPECT_EQ(Shown(format.Apply(false)), Shown(row.ofFalse)) << Shown(row.format);
  }
}

TEST(Format, Null) {
  const struct {
    TextView format;
    TextView expected;
  } kRows[] = {
      {u"", u""},
      {u"trim", u""},
      {u"case 1: a case NULL: nic case else: b", u"nic"},
      {u"case 1: a case else: b", u"b"},
      {u"case 1: a", u""},
      {u"case null: @;0->'' case 1: b", u" "},
  };
  for (const auto& row : kRows) {
    cFormat format(*FindLocale(u"cs-CZ"));
    format.format(row.format);
    EXPECT_EQ(Shown(format.Apply(Null())), Shown(row.expected)) << Shown(row.format);
  }
}

TEST(Format, MalformedFormatsAreRefusedAndTheOldOneStays) {
  cFormat format(*FindLocale(u"cs-CZ"));
  format.format(u"trim");
  EXPECT_EQ(ErrorOf([&] { format.format(u"case 1 ano"); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { format.format(u"case like [a: b"); }).number(), 93);
  EXPECT_EQ(format.format(), u"trim");
  EXPECT_EQ(format.Apply(Text(u" a ")), u"a");
}

TEST(Format, HostileFormatsEndSoon) {
  cFormat format(*FindLocale(u"cs-CZ"));
  Text chain;
  for (int index = 0; index < 100000; ++index) chain += u"trim;";
  EXPECT_EQ(ErrorOf([&] { format.format(chain); }).number(), 5);
  Text cases;
  for (int index = 0; index < 20000; ++index) cases += u"case x" + DecimalText(index) + u": y ";
  format.format(cases);
  EXPECT_EQ(format.Apply(Text(u"x19999")), u"y");
  Text stars = u"case like ";
  stars.append(2000, u'*').append(u"b: y case else: n");
  format.format(stars);
  EXPECT_EQ(format.Apply(Text(2000, u'a')), u"n");
}

}  // namespace
}  // namespace zorkanca::testing
