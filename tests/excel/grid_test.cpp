// Addresses, and XML taken apart.
#include <gtest/gtest.h>

#include "excel/grid/cell_address.h"
#include "excel/grid/xml_scanner.h"
#include "excel/tables/cell_reader.h"
#include "excel/tables/string_item.h"

namespace zorkanca::excel {
namespace {

TEST(CellAddressTest, AreasAreReadAndWrittenInTheirShortestForm) {
  const std::pair<const char*, const char*> rows[] = {
      {"A1", "A1"},
      {"b7", "B7"},
      {"$C$12", "C12"},
      {"C$12", "C12"},
      {"A1:C3", "A1:C3"},
      {"C3:A1", "A1:C3"},
      {"C1:A3", "A1:C3"},
      {"$A$1:B2", "A1:B2"},
      {"A1:A1", "A1"},
      {"2:5", "2:5"},
      {"$5:$2", "2:5"},
      {"3:3", "3:3"},
      {"A:C", "A:C"},
      {"$D:$D", "D:D"},
      {"Z1", "Z1"},
      {"AA1", "AA1"},
      {"AZ1", "AZ1"},
      {"BA1", "BA1"},
      {"ZZ1", "ZZ1"},
      {"AAA1", "AAA1"},
      {"XFD1048576", "XFD1048576"},
      {"A1:XFD1", "1:1"},
      {"A1:A1048576", "A:A"},
      // No areas.
      {"", ""},
      {"A", ""},
      {"5", ""},
      {"A0", ""},
      {"0", ""},
      {"XFE1", ""},
      {"A1048577", ""},
      {"AAAA1", ""},
      {"A1:", ""},
      {"A1:B", ""},
      {"A:1", ""},
      {"A1:B2:C3", ""},
      {"A1 ", ""},
      {"A-1", ""},
      {"$", ""},
      {"1A", ""},
      {"A$", ""},
  };
  for (const auto& [text, written] : rows) {
    const std::optional<CellArea> area = ParseArea(text);
    std::string shown;
    if (area) AppendArea(shown, *area);
    EXPECT_EQ(shown, written) << text;
    EXPECT_TRUE(!area || IsInSheet(*area)) << text;
  }
  // Every column, there and back.
  for (std::int32_t column = 1; column <= kLastColumn; ++column) {
    std::string letters;
    AppendColumn(letters, column);
    std::string_view rest = letters;
    ASSERT_EQ(TakeColumn(rest), column) << letters;
    ASSERT_TRUE(rest.empty());
  }
}

TEST(CellAddressTest, AreasInCommon) {
  struct Row {
    const char* a;
    const char* b;
    const char* common;
  };
  const Row rows[] = {{"A1:C3", "B2:D4", "B2:C3"}, {"A1:C3", "D1", ""},     {"A1:C3", "A4:C5", ""},
                      {"A1:C3", "C3:E5", "C3"},    {"A:B", "2:3", "A2:B3"}, {"2:5", "4:9", "4:5"},
                      {"A1:D9", "B2:C3", "B2:C3"}, {"B2", "B2", "B2"},      {"A1:A3", "A2:C2", "A2"},
                      {"B1:B9", "A5:C5", "B5"}};
  for (const Row& row : rows) {
    for (const bool swapped : {false, true}) {
      const auto common = Common(*ParseArea(swapped ? row.b : row.a), *ParseArea(swapped ? row.a : row.b));
      std::string shown;
      if (common) AppendArea(shown, *common);
      EXPECT_EQ(shown, row.common) << row.a << " and " << row.b;
    }
  }
}

// Tokens in one line: <a> start, <a/> empty, </a> end, others are texts with their references resolved.
std::string TokensOf(std::string_view xml) {
  std::string tokens;
  XmlScanner scanner(xml);
  for (auto token = scanner.Next(); token != XmlScanner::Token::kDone; token = scanner.Next()) {
    if (!tokens.empty()) tokens += " ";
    const std::string name(scanner.name());
    if (token == XmlScanner::Token::kStart) tokens += "<" + name + std::string(scanner.attributes()) + ">";
    if (token == XmlScanner::Token::kEmpty) tokens += "<" + name + std::string(scanner.attributes()) + "/>";
    if (token == XmlScanner::Token::kEnd) tokens += "</" + name + ">";
    if (token == XmlScanner::Token::kText) scanner.AppendCharacters(tokens);
  }
  return tokens;
}

TEST(XmlScannerTest, Tokens) {
  const std::pair<const char*, const char*> rows[] = {
      {"<a/>", "<a/>"},
      {"<a></a>", "<a> </a>"},
      {"<?xml version=\"1.0\"?><a><b/>x</a>", "<a> <b/> x </a>"},
      {"<a><!-- <b> --><x:c d='1'/><!----></a>", "<a> <x:c d='1'/> </a>"},
      {"<a b=\"/\">x</a >", "<a b=\"/\"> x </a>"},
      {"<a b=\">\" c='\"'/>", "<a b=\">\" c='\"'/>"},
      {"<a\n b = \"1\"\n/>", "<a\n b = \"1\"\n/>"},
      {"<a>&lt;&amp;&gt;&quot;&apos;</a>", "<a> <&>\"' </a>"},
      {"<a>&#65;&#x42;&#xE1;&#x20AC;&#x1F600;</a>", "<a> ABá€😀 </a>"},
      {"<a><![CDATA[<&]]]></a>", "<a> <&] </a>"},
      {"<a>x<![CDATA[y]]>z</a>", "<a> x y z </a>"},
      {"<a>1\r\n2\r3\n4</a>", "<a> 1\n2\n3\n4 </a>"},
      {"<a><![CDATA[1\r\n2]]></a>", "<a> 1\n2 </a>"},
      {"<a>1&#13;&#10;2</a>", "<a> 1\r\n2 </a>"},  // as references they are meant
      {"\xEF\xBB\xBF<a/>", "\xEF\xBB\xBF <a/>"},
      {"", ""},
  };
  for (const auto& [xml, tokens] : rows) EXPECT_EQ(TokensOf(xml), tokens) << xml;
}

TEST(XmlScannerTest, ElementsAndAttributes) {
  XmlScanner scanner("<a><b><c/><b>x</b></b><d>1<e>2</e>&amp;<f/></d><g/></a>");
  EXPECT_EQ(scanner.Next(), XmlScanner::Token::kStart);
  EXPECT_EQ(scanner.Next(), XmlScanner::Token::kStart);
  scanner.SkipElement();
  EXPECT_EQ(scanner.Next(), XmlScanner::Token::kStart);
  EXPECT_EQ(scanner.name(), "d");
  EXPECT_EQ(scanner.ReadCharacters(), "12&");
  EXPECT_EQ(scanner.Next(), XmlScanner::Token::kEmpty);
  EXPECT_EQ(scanner.name(), "g");

  const std::string_view attributes = " r=\"A1\" x:s = '5\"'\n t=\"\" empty=''";
  EXPECT_EQ(FindAttribute(attributes, "r"), "A1");
  EXPECT_EQ(FindAttribute(attributes, "x:s"), "5\"");
  EXPECT_EQ(FindAttribute(attributes, "t"), "");
  EXPECT_FALSE(FindAttribute(attributes, "s"));
  std::string kept;
  AppendAttributesBut(kept, attributes, {"r", "t"});
  EXPECT_EQ(kept, " x:s='5\"' empty=''");
}

TEST(CellReaderTest, PartsOfACell) {
  struct Row {
    const char* xml;
    const char* prefix;
    const char* shown;  // address style type | inside | formula | result | extra
  };
  const Row rows[] = {
      {"<c r=\"A1\" s=\"2\"/>", "", "A1 2 ||||"},
      {"<c><v>1</v></c>", "", "  |<v>1</v>||1|"},
      {"<c r=\"B2\" t=\"s\"><v>0</v></c>", "", "B2  s|<v>0</v>||0|"},
      {"<c t=\"inlineStr\"><is><t>a</t></is></c>", "", "  inlineStr|<is><t>a</t></is>||<t>a</t>|"},
      {"<c t=\"str\"><f>A1&amp;B1</f><v>x</v></c>", "", "  str|<f>A1&amp;B1</f><v>x</v>|<f>A1&amp;B1</f>|x|"},
      {"<c cm=\"1\"><f t=\"array\" ref=\"A1\">X</f></c>", "",
       "  |<f t=\"array\" ref=\"A1\">X</f>|<f t=\"array\" ref=\"A1\">X</f>||extra"},
      {"<x:c><x:f si=\"0\"/><x:v/></x:c>", "x:", "  |<x:f si=\"0\"/><x:v/>|<x:f si=\"0\"/>||"},
      {"<c><y:v>9</y:v><v>1</v><extLst><v>2</v></extLst></c>", "",
       "  |<y:v>9</y:v><v>1</v><extLst><v>2</v></extLst>||1|"},
  };
  for (const Row& row : rows) {
    const std::string_view xml = row.xml;
    XmlScanner scanner(xml);
    const auto token = scanner.Next();
    const FileCell cell = ReadFileCell(scanner, token == XmlScanner::Token::kEmpty, row.prefix, xml);
    std::string shown(cell.address.value_or(""));
    shown.append(" ").append(cell.style.value_or("")).append(" ").append(cell.type).append("|").append(cell.inside);
    shown.append("|").append(cell.hasFormula ? cell.formula : "").append("|").append(cell.result);
    EXPECT_EQ(shown.append(cell.hasExtra ? "|extra" : "|"), row.shown) << xml;
    EXPECT_EQ(scanner.Next(), XmlScanner::Token::kDone) << xml;
  }
}

TEST(StringItemTest, TextsOfItems) {
  const std::pair<const char*, const char*> rows[] = {
      {"<t>a</t>", "a"},
      {"<t/>", ""},
      {"", ""},
      {"<t xml:space=\"preserve\"> a </t>", " a "},
      {"<r><rPr><b/></rPr><t>a</t></r><r><t>b</t></r>", "ab"},
      {"<t>a</t><rPh sb=\"0\" eb=\"1\"><t>hint</t></rPh><phoneticPr fontId=\"1\"/>", "a"},
      {"<t>a&amp;_x0041__x000A_</t>", "a&A\n"},
      {"<t>_x005F_x0041_</t>", "_x0041_"},
      {"<t>_x00e1_ _x00E1 _xGGGG_</t>", "á _x00E1 _xGGGG_"},
      {"<t>_x0001_a</t>", "a"},  // no character of XML
  };
  for (const auto& [inside, text] : rows) EXPECT_EQ(StringItemText(inside, ""), text) << inside;
  EXPECT_EQ(StringItemText("<x:t>a</x:t><t>b</t>", "x:"), "a");
}

}  // namespace
}  // namespace zorkanca::excel
