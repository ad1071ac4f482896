// Formula fields in documents: what they know of cells, bookmarks, variables and records.
#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

std::string Row(const std::vector<std::string>& cells) {
  std::string row;
  for (const std::string& cell : cells) row += Cell(P(cell));
  return "<w:tr>" + row + "</w:tr>";
}

std::string Table(const std::string& rows) {
  return "<w:tbl>" + rows + "</w:tbl>";
}

std::string Marked(const std::string& name, const std::string& content) {
  return "<w:bookmarkStart w:id=\"1\" w:name=\"" + name + "\"/>" + content + "<w:bookmarkEnd w:id=\"1\"/>";
}

constexpr const char* kData = "A;B\r\n1;10\r\n2;20\r\n3;30\r\n";

TEST(FormulaFields, KnowWhatStandsRoundThem) {
  const std::string a = F("MERGEFIELD A");
  const std::string b = F("MERGEFIELD B");
  const std::string next = F("NEXT", "");
  struct Case {
    const char* what;
    std::string body;
    const char* text;  // of the copies
  };
  const Case cases[] = {
      {"cells before and behind",
       Table(Row({F("=SUM(BELOW)"), a}) + Row({b, F("=A2*B1")}) + Row({R("5"), F("=B2+SUM(LEFT)+A1")})) + P(""),
       "15\\r\a1\\r\a\\r\a10\\r\a10\\r\a\\r\a5\\r\a30\\r\a\\r\a\\r"
       "25\\r\a2\\r\a\\r\a20\\r\a40\\r\a\\r\a5\\r\a70\\r\a\\r\a\\r"
       "35\\r\a3\\r\a\\r\a30\\r\a90\\r\a\\r\a5\\r\a130\\r\a\\r\a\\r"},
      {"records that a table moves through",
       Table(Row({b}) + Row({next + b}) + Row({next + b}) + Row({F("=SUM(ABOVE)")})),
       "10\\r\a\\r\a20\\r\a\\r\a30\\r\a\\r\a60\\r\a\\r\a"},
      {"a column of formulas", Table(Row({a}) + Row({F("=SUM(ABOVE)")}) + Row({F("=SUM(ABOVE)")}) + Row({F("=A4")})),
       "1\\r\a\\r\a1\\r\a\\r\a2\\r\a\\r\a0\\r\a\\r\a"
       "2\\r\a\\r\a2\\r\a\\r\a4\\r\a\\r\a0\\r\a\\r\a"
       "3\\r\a\\r\a3\\r\a\\r\a6\\r\a\\r\a0\\r\a\\r\a"},
      {"bookmarks before and behind, variables",
       P(Marked("Celkem", R("asi ") + b + R(" Kč")) + F("SET dan {A}", "") + R("|") + F("=celkem*2+dan+Sazba")) +
           P("<w:bookmarkStart w:id=\"2\" w:name=\"Sazba\"/>" + R("21 %")) + P("<w:bookmarkEnd w:id=\"2\"/>"),
       "asi 10 Kč|21,21\\r21 %\\r\\rasi 20 Kč|42,21\\r21 %\\r\\rasi 30 Kč|63,21\\r21 %\\r\\r"},
      {"another table", Table(Row({Marked("Ceny", a), b})) + P(F("=SUM(Ceny A1:B1) + Ceny B1")),
       "1\\r\a10\\r\a\\r\a21\\r2\\r\a20\\r\a\\r\a42\\r3\\r\a30\\r\a\\r\a63\\r"},
  };
  for (const Case& each : cases) {
    WordFixture bench;
    const auto merged = bench.Merge({.body = each.body}, kData, MainDocumentType::kCatalog);
    EXPECT_EQ(Shown(merged->Content()->Text()), each.text) << each.what;
    bench.Saved(*merged);
    EXPECT_EQ(bench.warnings, "") << each.what;
  }
}

TEST(FormulaFields, StandInTablesInsideEachOtherAndInOtherTexts) {
  const std::string inner = Table(Row({F("MERGEFIELD A"), F("=SUM(LEFT)")})) + P("");
  const std::string box =
      "<w:r><w:pict><v:rect style=\"position:absolute\" xmlns:v=\"urn:schemas-microsoft-com:vml\"/><w:txbxContent>" +
      Table(Row({R("4"), F("=A1+1")})) + P("") + "</w:txbxContent></w:pict></w:r>";
  const std::string body = Table("<w:tr>" + Cell(inner) + Cell(P(F("=COUNT(A1:A1)*100+A1"))) + "</w:tr>") + P(box) +
                           "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rId1\"/></w:sectPr>";
  WordFixture bench;
  const auto merged = bench.Merge({body, {{"header", Table(Row({F("MERGEFIELD B"), F("=A1*2")})) + P("")}}}, kData,
                                  MainDocumentType::kFormLetters);
  const std::string text = Shown(merged->Content()->Text());
  EXPECT_EQ(text.substr(0, text.find('\f')), "1\\r\a1\\r\a\\r\a\\r\a101\\r\a\\r\a");
  EXPECT_EQ(Shown(merged->PrimaryHeader(3)->Text()), "30\\r\a60\\r\a\\r\a\\r");
  EXPECT_EQ(CountOf(bench.SavedBody(*merged), ">5</w:t>"), 3u);
}

TEST(FormulaFields, SayOnceWhatTheyCannot) {
  WordFixture bench;
  const std::string body = P(F("= {A} / 0")) + P(F("= nic")) + P(F("=SUM(ABOVE)")) + P(F("= 1 +"));
  const auto merged = bench.Merge({.body = body}, kData, MainDocumentType::kCatalog);
  const std::string text = Shown(merged->Content()->Text());
  bench.Saved(*merged);
  EXPECT_EQ(text.substr(0, text.size() / 3),
            "!Zero Divide\\r!Undefined Bookmark, NIC\\r!The Formula Not In Table\\r!Syntax Error\\r");
  EXPECT_EQ(bench.warnings,
            "A formula gives !Zero Divide.\nA formula gives !Undefined Bookmark, NIC.\n"
            "A formula gives !The Formula Not In Table.\nA formula gives !Syntax Error.\n");
}

TEST(FormulaFields, StayQuickInLargeTables) {
  std::string rows;
  for (int i = 0; i < 1500; ++i) rows += Row({R("1"), F("=SUM(A:A)")});
  WordFixture bench;
  const auto merged = bench.Merge({.body = Table(rows) + P("")}, "A\r\n1\r\n", MainDocumentType::kCatalog);
  EXPECT_EQ(CountOf(Shown(merged->Content()->Text()), "1500"), 1500u);
}

}  // namespace
}  // namespace zorkanca::testing
