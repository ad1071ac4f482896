#include "barcode/bar_code_items.h"

#include <gtest/gtest.h>

#include "barcode/bar_code.h"
#include "support/memory_database.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

const Locale& Czech() {
  return *FindLocale(u"cs-CZ");
}

// What the items make of a record of one field F, shown through a symbology that leaves a content as it is.
Text ContentOf(TextView items, const Value& value, FieldType type = FieldType::kText) {
  MemoryDatabase database;
  database.columns = {{.name = u"F", .type = type}};
  database.rows = {{value}};
  const auto recordset = database.OpenRecordset(u"", RecordsetType::kDynaset, 0);
  cBarCode barCode(Czech());
  barCode.ParseParameters(Text(u"Code_128B_TTF;").append(items).append(u";OUT;0"));
  barCode.SetRecordset(*recordset);
  return barCode.RecordContent();
}

TEST(BarCodeItems, ParameterText) {
  const BarCodeParameters parameters = ParseBarCodeParameters(u" Code39 ;'A'; Out ; 1 ;more;fields", Czech());
  EXPECT_EQ(parameters.symbology, u" Code39 ");
  EXPECT_EQ(parameters.outputColumn, u" Out ");
  EXPECT_TRUE(parameters.checkCharacter);
  for (const TextView flag : {u"", u"0", u"11", u"-1", u"True"}) {
    EXPECT_FALSE(ParseBarCodeParameters(Text(u"Code39;'A';OUT;").append(flag), Czech()).checkCharacter) << Shown(flag);
  }

  const struct {
    TextView parameters;
    int error;
  } kErrors[] = {
      {u"", 9},
      {u"Code39;'A';OUT", 9},
      {u"Code39;F,[->05;OUT;1", 5},
      {u"Code39;F,0<-]5;OUT;1", 5},
      {u"Code39;F,32768;OUT;1", 6},
      {u"Code39;F,[-> ]1E300;OUT;1", 6},
  };
  cBarCode barCode(Czech());
  barCode.ParseParameters(u"Code39;'KEPT';OUT;0");
  for (const auto& row : kErrors) {
    EXPECT_EQ(ErrorOf([&] { barCode.ParseParameters(row.parameters); }).number(), row.error) << Shown(row.parameters);
    EXPECT_EQ(barCode.EncodeRecord(), u"*KEPT*");
  }
}

TEST(BarCodeItems, ListOfItems) {
  const struct {
    TextView items;
    TextView content;
  } kCases[] = {
      {u"", u""},
      {u"|", u""},
      {u" | 'a' | ' b ',anything | f , TRIM | ", u"a b v"},
      {u"||'a'||'b'||", u"ab"},
      {u"x,'", u"x"},
      // Without a comma the text is the kind as well; a lone apostrophe is then a literal, a field name is no kind.
      {u"'", u"'"},
      {u"''", u""},
      {u"'''", u"'"},
      {u"F", u""},
      {u"F,Trim it", u""},
      {u"UNKNOWN,no kind|'a'", u"a"},
      {u"'a'|UNKNOWN,trim", u""},
      // A literal ends where the list is split.
      {u"'a|b'", u""},
      {u"'a,b'", u""},
  };
  for (const auto& row : kCases) EXPECT_EQ(ContentOf(row.items, u" v "), row.content) << Shown(row.items);
}

TEST(BarCodeItems, Kinds) {
  const struct {
    TextView kind;
    Value value;
    TextView content;
    FieldType type = FieldType::kText;
  } kCases[] = {
      {u"trim", 12.5, u"12,5", FieldType::kDouble},
      {u"trim", Null(), u""},
      {u"[01]", u" 123 ", u"0123"},
      {u"[01]", std::int32_t{42}, u"42", FieldType::kLong},
      {u"[01]", u"", u""},
      {u"[01]", Null(), u"00"},
      {u"x[01]", u"123", u""},
      {u"[+a]", u" aBÁz1 ", u"a+bÁz1"},
      {u"-[+A]-", u"aBáZz", u"+ABáZ+Z"},
      {u"[+A]", Null(), u""},
      {u"[->0]6", u" 42 ", u"000042"},
      {u"6[->0]", u"42", u"000042"},
      {u"[x<-]4", u"42", u"42xx"},
      {u"4[x<-]", u"42", u"42xx"},
      {u"[-> ]4", Null(), u"    "},
      {u"[->0]1", u"42", u"42"},
      {u"[->0]", Null(), u"0"},
      {u"[->0]-3", u"42", u"42"},
      {u"[->0]4.5kg", u"4", u"0004"},
      {u"[->,]3", u"4", u",,4"},
      {u"[->]]3", u"4", u"]]4"},
      {u"[[<-]3", u"4", u"4[["},
      {u"3[[<-]", u"4", u"4[["},
      {u"[->]3", u"4", u">>4"},
      {u"[<-]3", u"4", u"4<<"},
      {u"[->0]3[x<-]9", u"4", u"004"},
      {u"[+a][->0]9", u"A", u"+a"},
      {u"5", std::int32_t{42}, u"00042", FieldType::kLong},
      {u"5", std::int32_t{1234567}, u"12345", FieldType::kLong},
      {u"5", std::int16_t{-42}, u"-0004", FieldType::kInteger},
      {u"3", 2.5, u"003", FieldType::kDouble},
      {u"5", u"AB", u"   AB"},
      {u"5", u"AB", u"   AB", FieldType::kMemo},
      {u"5", u" AB    ", u" AB  "},
      {u"5", true, u" True", FieldType::kBoolean},
      {u"3", Null(), u"   "},
      {u"3", Null(), u"   ", FieldType::kLong},
      {u"2,5", u"ABC", u"AB"},
      {u"0", u"ABC", u""},
      {u"-2", u"ABC", u""},
      {u"trim", Binary{std::byte{1}}, u"", FieldType::kBinary},
  };
  for (const auto& row : kCases) {
    const Text items = Text(u"F,").append(row.kind);
    EXPECT_EQ(ContentOf(items, row.value, row.type), row.content) << Shown(items);
  }
}

}  // namespace
}  // namespace zorkanca::testing
