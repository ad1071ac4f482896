// Lines of a merged document that go because their fields are empty, and those that stay.
#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

TEST(WordLines, GoWhenTheirFieldsShowNothing) {
  const std::string bookmark = "<w:bookmarkStart w:id=\"1\" w:name=\"z\"/><w:bookmarkEnd w:id=\"1\"/>";
  struct Row {
    std::string line;
    bool stays;
  };
  // A is "x", B is empty.
  const Row rows[] = {
      {F("MERGEFIELD A"), true},
      {F("MERGEFIELD B"), false},
      {F("MERGEFIELD B") + F("MERGEFIELD A"), true},
      {F("MERGEFIELD B") + R("."), true},
      {F("MERGEFIELD B") + R(" "), true},
      {F("MERGEFIELD B") + bookmark, true},
      {"", true},  // empty from the beginning
      {F("MERGEFIELD B \\b před \\f po"), false},
      {F("MERGEFIELD B \\* Upper"), false},
      {F("MERGEREC"), true},
      {F("PAGE", ""), true},
      // what an argument holds is not shown
      {F("SET x {A}", ""), true},  // a line of its own, with nothing to merge
      {F("SET x {A}", "") + F("MERGEFIELD B"), false},
      {F("SET x \"{A} {A}\"", "") + F("MERGEFIELD B"), false},
      {F("SKIPIF {A} = \"y\"", "") + F("MERGEFIELD B"), false},
      {F("SKIPIF \"y\" = {A}", "") + F("MERGEFIELD B"), false},
      {F("NEXTIF {A} = \"y\"", "") + F("MERGEFIELD B"), false},
      {F("IF {A} = x \"{B}\" y", ""), true},
      {F("IF {A} = x y \"{B}\"", ""), true},
      {F("SET x {A}", "") + F("REF x"), true},
      {F("SET x {B}", "") + F("REF x"), true},
      {F("MERGEFIELD Chybí"), true},  // says so
  };
  for (const Row& row : rows) {
    WordFixture bench;
    const auto merged =
        bench.Merge({.body = P(R("a")) + P(row.line) + P(R("b"))}, "A;B\r\nx;\r\n", MainDocumentType::kCatalog);
    const std::string text = Shown(merged->Content()->Text());
    EXPECT_EQ(text != "a\\rb\\r", row.stays) << row.line << "\n" << text;
    EXPECT_TRUE(text.starts_with("a\\r") && text.ends_with("\\rb\\r")) << text;
  }
}

TEST(WordLines, GoOnlyWhereAnotherLineIsLeft) {
  const std::string b = F("MERGEFIELD B");
  const std::pair<std::string, const char*> rows[] = {
      {P(R("a")) + P(b), "a\\r"},
      {P(b) + P(b) + P(R("a")), "a\\r"},
      {"<w:tbl><w:tr>" + Cell(P(b)) + "</w:tr></w:tbl>" + P(R("a")), "\\r\a\\r\aa\\r"},
      {"<w:tbl><w:tr>" + Cell(P(b) + P(R("c"))) + "</w:tr></w:tbl>" + P(R("a")), "c\\r\a\\r\aa\\r"},
      {P("<w:pPr><w:sectPr/></w:pPr>" + b) + P(R("a")), "\fa\\r"},
  };
  for (const auto& [body, text] : rows) {
    WordFixture bench;
    const auto merged = bench.Merge({.body = body}, "A;B\r\nx;\r\n", MainDocumentType::kCatalog);
    EXPECT_EQ(Shown(merged->Content()->Text()), text) << body;
    bench.Saved(*merged);
  }
}

}  // namespace
}  // namespace zorkanca::testing
