// Templates whose XML somebody laid out merge as those on one line do.
#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

// Each element on a line of its own, comments between; texts stay as they are.
std::string LaidOut(const std::string& xml) {
  std::string result = "\r\n";
  for (std::size_t i = 0; i < xml.size(); ++i) {
    result += xml[i];
    const bool between = xml[i] == '>' && i + 1 < xml.size() && xml[i + 1] == '<';
    if (between) result += "\r\n\t <!-- x -->\r\n  ";
  }
  return result + "\r\n";
}

TEST(WordXmlLayout, MeansNothing) {
  const std::string bold = "<w:rPr><w:b/></w:rPr>";
  const std::string begin = "<w:r>" + bold + "<w:fldChar w:fldCharType=\"begin\"/></w:r>";
  const auto code = [&](const std::string& text) {
    return "<w:r>" + bold + "<w:instrText xml:space=\"preserve\">" + text + "</w:instrText></w:r>";
  };
  const std::string end = FieldCharacter("end");
  const std::string bodies[] = {
      P(R("[") + begin + code(" MERGE") + code("FIELD A ") + FieldCharacter("separate") + "<w:r>" + bold +
        "<w:t>x</w:t></w:r>" + end + R(" ")) +
          "<w:sectPr><w:cols/></w:sectPr>",
      P("<w:r>" + bold +
        "<w:fldChar w:fldCharType=\"begin\"/><w:instrText>MERGEFIELD A</w:instrText>"
        "<w:fldChar w:fldCharType=\"separate\"/><w:t>x</w:t><w:fldChar w:fldCharType=\"end\"/></w:r>"),
      P(F("MERGEFIELD B")) + P(R("x") + "<w:fldSimple w:instr=\"MERGEFIELD A\">" + R("a") + "</w:fldSimple>"),
      "<w:tbl><w:tr>" + Cell(P(F("MERGEFIELD B")) + P(F("MERGEFIELD A"))) + "</w:tr></w:tbl>" + P("<w:pPr/>"),
      P(F("IF {A} = 1 \"ano") + "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>") + P(R("konec")),
      P(R("a") + "<w:r><w:t xml:space=\"preserve\"> </w:t></w:r>" + R("b")),
      P("<w:pPr><w:sectPr/></w:pPr>") + P("<w:hyperlink w:anchor=\"x\">" + F("MERGEFIELD A") + "</w:hyperlink>"),
  };
  WordFixture bench;
  for (const std::string& body : bodies) {
    for (const MainDocumentType type : {MainDocumentType::kFormLetters, MainDocumentType::kCatalog}) {
      const auto plain = bench.Merge({.body = body}, "A;B\r\n1;\r\n2;\r\n", type);
      const std::string expected = bench.SavedBody(*plain);
      const auto laidOut = bench.Merge({.body = LaidOut(body)}, "A;B\r\n1;\r\n2;\r\n", type);
      EXPECT_EQ(bench.SavedBody(*laidOut), expected);
    }
  }
}

TEST(WordXmlLayout, OfTextsStays) {
  WordFixture bench;
  const auto merged = bench.Merge({.body = P("<w:r><w:t xml:space=\"preserve\">a\r\n b</w:t></w:r>" + F("PAGE", " ") +
                                             "<m:t xmlns:m=\"m\"> </m:t>")},
                                  "A\r\n1\r\n", MainDocumentType::kCatalog);
  const std::string body = bench.SavedBody(*merged);
  for (const char* once : {">a\n b<", "preserve\"> </w:t>", "<m:t xmlns:m=\"m\"> </m:t>"}) {
    EXPECT_EQ(CountOf(body, once), 1u) << body;
  }
}

}  // namespace
}  // namespace zorkanca::testing
