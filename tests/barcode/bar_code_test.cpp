#include "barcode/bar_code.h"

#include <gtest/gtest.h>

#include "support/bar_code_reader.h"
#include "support/memory_database.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

const Locale& Czech() {
  return *FindLocale(u"cs-CZ");
}
const CodePage& Page() {
  return *Czech().codePage;
}

cBarCode BarCodeOf(TextView symbology, bool checkCharacter) {
  cBarCode barCode(Czech());
  barCode.ParseParameters(Text(symbology).append(u";F,trim;OUT;").append(checkCharacter ? u"1" : u"0"));
  return barCode;
}

Text FromCodes(std::initializer_list<int> codes) {
  Text text;
  for (const int code : codes) text.push_back(Page().Decode(static_cast<std::uint8_t>(code)));
  return text;
}

TEST(BarCode, Symbologies) {
  const struct {
    TextView symbology;
    bool check;
    TextView value;
    Text text;
  } kCases[] = {
      {u"Code39", true, u"A", u"*AA*"},
      {u"Code39", true, u"1 2", u"*1_2+*"},
      {u"Code39", true, u"ZZ2", u"*ZZ2T*"},
      {u"Code39", true, u"Z3", u"*Z3_*"},  // the check character is a blank
      {u"Code39", false, u"ab", u"**"},
      {u"Code39", true, u"A*", u"**"},
      {u"Code39", true, u"A_", u"**"},
      {u"Code39", false, u"12,5", u"**"},  // only a record's comma becomes a point
      {u"Code128B", false, u"a b", u"a_b"},
      {u"Code128B", true, u"ab", u"ab\x7F"},
      {u"Code128B", true, u"\x7F", FromCodes({127, 128})},
      {u"Code128B", false, u"á", u""},
      {u"Code128B", false, u"\u2212", u""},  // looks like "-" but is no character of the code page
      {u"Code_128B_TTF", true, u"a b", FromCodes({181, 'a', ' ', 'b', 'Z', 184})},
      {u"Code_128B_TTF", false, u"¦", FromCodes({181, 166, 184})},
      {u"Code_128B_TTF", false, u"", u""},
      {u"Code_128B_TTF()", false, u"a", FromCodes({181, '\'', 'a', '~', 184})},
      {u"Code_128B_TTF()", true, u"\t", u""},
      {u"Code128C", true, u" 123 ", u"0123"},
      {u"Code128C", false, u"12 3", u""},
      {u"Code128C", false, u"12a", u""},
      {u"Code128C", false, u"", u""},
      {u"Code128C", false, u"1,5", u"01,5"},
      {u"Code_128C_TTF", false, u" 12345 ", FromCodes({182, 33, 55, 77, 113, 184})},
      {u"Code_128C_TTF", false, u"A1", FromCodes({181, 'A', '1', 184})},
      {u"Code_128C_TTF", true, u"", u""},
      {u"code39", true, u"A", u""},
      {u"", true, u"A", u""},
  };
  for (const auto& row : kCases) {
    EXPECT_EQ(BarCodeOf(row.symbology, row.check).EncodeValue(Text(row.value)), row.text)
        << Shown(row.symbology) << " of " << Shown(row.value);
  }
  EXPECT_EQ(BarCodeOf(u"Code39", true).EncodeValue(Null()), u"");
  EXPECT_EQ(BarCodeOf(u"Code39", false).EncodeValue(std::int32_t{-5}), u"*-5*");
}

// Every content comes back from the font text, for each symbology, with and without check character.
TEST(BarCode, ReadBack) {
  const auto alphabet = [](std::initializer_list<std::pair<int, int>> ranges) {
    Text text;
    for (const auto& [first, last] : ranges) {
      for (int code = first; code <= last; ++code) text.push_back(Page().Decode(static_cast<std::uint8_t>(code)));
    }
    return text;
  };
  const Text first = alphabet({{32, '_' - 1}, {'_' + 1, 137}});  // "_" cannot be told from a blank
  const Text second = alphabet({{32, 127}, {166, 169}, {171, 173}});
  const struct {
    TextView symbology;
    Text alphabet;
    std::optional<Text> (*read)(TextView, bool);
  } kCases[] = {
      {u"Code39", u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%", ReadCode39},
      {u"Code128B", first, [](TextView text, bool check) { return ReadCode128First(text, check, Page()); }},
      {u"Code_128B_TTF", second, [](TextView text, bool check) { return ReadCode128Second(text, check, Page()); }},
      {u"Code_128C_TTF", second, [](TextView text, bool check) { return ReadCode128Second(text, check, Page()); }},
      {u"Code_128C_TTF", u"0123456789",
       [](TextView text, bool check) { return ReadCode128Second(text, check, Page()); }},
  };
  std::uint32_t state = 1;
  const auto next = [&state](std::size_t limit) {
    state = state * 1664525U + 1013904223U;
    return (state >> 8) % limit;
  };
  for (const auto& row : kCases) {
    for (int round = 0; round < 2000; ++round) {
      Text content(1 + next(20), u'\0');
      for (char16_t& unit : content) unit = row.alphabet[next(row.alphabet.size())];
      content.front() = content.back() = row.alphabet[1 + static_cast<std::size_t>(round) % (row.alphabet.size() - 1)];
      if (content.front() == u' ') continue;
      const bool check = round % 2 == 0;
      const Text text = BarCodeOf(row.symbology, check).EncodeValue(content);
      if (content.find_first_not_of(u"0123456789") == Text::npos && row.symbology == u"Code_128C_TTF") {
        content.insert(0, content.size() % 2, u'0');
      }
      ASSERT_EQ(row.read(text, check), content) << Shown(row.symbology) << ": " << Shown(text);
    }
  }
}

TEST(BarCode, SumOfSixteenBits) {
  const Text notEncodable = Text(100000, u'~').append(u"á");
  // 104 + 94 * (1 + ... + 25) = 30654; one more adds 2444.
  const Text fits(25, u'~');
  for (const TextView symbology : {u"Code128B", u"Code_128B_TTF", u"Code_128C_TTF"}) {
    EXPECT_NE(BarCodeOf(symbology, true).EncodeValue(fits), u"") << Shown(symbology);
    EXPECT_EQ(ErrorOf([&] { BarCodeOf(symbology, true).EncodeValue(fits + u"~"); }).number(), 6) << Shown(symbology);
    EXPECT_NE(BarCodeOf(symbology, false).EncodeValue(fits + u"~"), u"") << "no sum without check character";
    EXPECT_EQ(BarCodeOf(symbology, true).EncodeValue(notEncodable), u"") << "not encodable comes first";
  }
  // Set C has no such limit.
  EXPECT_EQ(ReadCode128Second(BarCodeOf(u"Code_128C_TTF", true).EncodeValue(Text(100000, u'9')), true, Page()),
            Text(100000, u'9'));
}

TEST(BarCode, Records) {
  MemoryDatabase database;
  database.columns = {{.name = u"Kod"}, {.name = u"Cena", .type = FieldType::kDouble}};
  database.rows = {{u"ab", 12.5}, {u"C", Null()}, {Null(), 1.0}};
  const auto recordset = database.OpenRecordset(u"", RecordsetType::kDynaset, 0);
  cBarCode barCode(Czech());
  barCode.ParseParameters(u"Code39;kod,[+A]|'-'|CENA,trim;Cena;0");
  EXPECT_EQ(barCode.EncodeRecord(), u"") << "there is no record source yet";
  barCode.SetRecordset(*recordset);
  EXPECT_EQ(barCode.EncodeRecord(), u"*+A+B-12.5*");
  EXPECT_EQ(barCode.RecordContent(), u"+A+B-12.5");
  recordset->MoveNext();
  EXPECT_EQ(barCode.EncodeRecord(), u"") << "a trimmed Null";
  recordset->MoveNext();
  EXPECT_EQ(barCode.EncodeRecord(), u"*-1*");
  EXPECT_EQ(barCode.EncodeValue(u"X"), u"*-X*") << "of a value's items only literals and trimmed ones count";
  barCode.ParseParameters(u"Code39;missing,trim|Kod,[+A];Cena;1");
  EXPECT_EQ(barCode.EncodeRecord(), u"");
}

TEST(BarCode, RefToAscii) {
  const cBarCode barCode(Czech());
  const std::pair<float, int> kCases[] = {{0, 32},    {95, 127},  {96, 166},  {99, 169}, {100, 171},
                                          {102, 173}, {103, 180}, {105, 182}, {106, 183}};
  for (const auto& [value, code] : kCases) EXPECT_EQ(barCode.RefToASCII(value), FromCodes({code})) << value;
  for (const float value : {-33.0F, 179.0F, 1e30F, std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_EQ(ErrorOf([&] { barCode.RefToASCII(value); }).number(), 5) << value;
  }
}

}  // namespace
}  // namespace zorkanca::testing
