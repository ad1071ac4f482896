// What fields give: instructions and their results, in whatever shape the runs have.
#include "support/word_parts.h"

#include <gtest/gtest.h>

namespace zorkanca::testing {
namespace {

constexpr const char* kData =
    "Jm\xC3\xA9no;Plat;Datum;Prázdné;Dlouhé jméno;Znaky\r\n"
    "anna nováková;1234,5;7.3.2024;;x;\"a<b>&\r\nc\td\"\r\n"
    "petr;-7;31.12.2023 14:05:09;;y;z\r\n";

std::string ResultOf(WordFixture& bench, const std::string& paragraphContent) {
  const auto merged =
      bench.Merge({.body = P(R("[") + paragraphContent + R("]")) + "<w:sectPr/>"}, kData, MainDocumentType::kCatalog);
  const std::string text = Shown(merged->Content()->Text());
  bench.Saved(*merged);
  merged->Close(false);
  return text.substr(1, text.find("]\\r") - 1);
}

TEST(WordFields, GiveWhatTheirCodesSay) {
  struct Row {
    const char* code;
    const char* result;
  };
  const Row rows[] = {
      {" MERGEFIELD Jméno ", "anna nováková"},
      {"mergefield jméno", "anna nováková"},
      {"MERGEFIELD \"Dlouhé jméno\"", "x"},
      {"MERGEFIELD Dlouhé jméno", "x"},
      {"MERGEFIELD Dlouhé_jméno", "x"},
      {"MERGEFIELD Chybí", "Error! MergeField was not found in header record of data source."},
      {"MERGEFIELD Jméno \\b\"paní \"\\f \", \"", "paní anna nováková, "},
      {"MERGEFIELD Prázdné \\b \"před \" \\f \" po\"", ""},
      {"MERGEFIELD Jméno \\m \\v \\* MERGEFORMAT", "anna nováková"},
      {"MERGEFIELD Jméno \\* Upper", "ANNA NOVÁKOVÁ"},
      {"MERGEFIELD Jméno \\* FirstCap", "Anna nováková"},
      {"MERGEFIELD Jméno \\* Caps", "Anna Nováková"},
      {"MERGEFIELD Plat \\# \"# ##0,00\"", "1\u00A0234,50"},
      {"MERGEFIELD Plat \\# 0.0", "1234,5"},
      {"MERGEFIELD Plat \\# 00000,0", "01234,5"},
      {"MERGEFIELD Plat \\# ,00", ",50"},
      {"MERGEFIELD Plat \\# x##", "235"},
      {"MERGEFIELD Plat \\# \"+0 'Kč'\"", "+1235 Kč"},
      {"MERGEFIELD Plat \\# \"###### Kč\"", "  1235 Kč"},
      {"MERGEFIELD Jméno \\# 0,00", "anna nováková"},
      {"MERGEFIELD Plat \\#", "Error! Switch argument not specified."},
      {"MERGEFIELD Datum \\@ \"d. MMMM yyyy\"", "7. března 2024"},
      {"MERGEFIELD Datum \\@ \"MMMM yy\"", "březen 24"},
      {"MERGEFIELD Datum \\@ \"dddd dd.MM.\" \\* Upper", "ČTVRTEK 07.03."},
      {"MERGEFIELD Jméno \\@ d.M.yyyy", "anna nováková"},
      {"MERGEREC", "1"},
      {"MERGESEQ \\# 000", "001"},
      {"IF {Plat} > 1000 \"mnoho\" \"málo\"", "mnoho"},
      {"IF {Plat}=1234,50 ano ne", "ano"},
      {"IF {Jméno} = \"anna*\" \"hvězda\"", "hvězda"},
      {"IF {Jméno} = \"anna nov?ková\" \"otazník\"", "otazník"},
      {"IF {Jméno} = \"Anna*\" ano ne", "ne"},
      {"IF {Prázdné} = \"\" \"nic: {Jméno}\" \"něco\"", "nic: anna nováková"},
      {"IF {Prázdné} <> \"\" \"něco\"", ""},
      {"IF 2 < 10 \"číslo\" \"text\"", "číslo"},
      {"IF a = a \"řekl \\\"ano\\\" a „ne“\" x", "řekl \"ano\" a „ne“"},
      {"IF \"x\" = \"x\" \"{Jméno} y\" \\* Upper", "ANNA NOVÁKOVÁ Y"},
      {"MERGEFIELD Znaky", "a<b>&\vc\\td"},
      {"= 1 + {Plat}", "1235,5"},
      {"=SUM({Plat};{Plat}) \\# \"# ##0,00 'Kč'\"", "2\u00A0469,00 Kč"},
      {"=ROUND({Plat};0)*-1 \\# 0;(0)", "(1235)"},
      {"= {Plat} > 1000 \\* MERGEFORMAT", "1"},
      {"= {Prázdné} * 2", "!Syntax Error, *"},
      {"= {Jméno}", "!Undefined Bookmark, ANNA"},
      {"= {Plat} / 0", "!Zero Divide"},
      {"=", "!Syntax Error"},
      {"=SUM({Plat};1)\\# 0,00", "1235,50"},
      {"MERGEFIELD Jméno\\* Upper", "ANNA NOVÁKOVÁ"},
      {"= 1 \\#", "Error! Switch argument not specified."},
      {"QUOTE \"dne {Datum}\" \\* Upper", "DNE 7.3.2024"},
      {"QUOTE {Datum} \\@ yyyy", "2024"},
      {"QUOTE jak  se {Prázdné}máš", "jak se máš"},
  };
  WordFixture bench;
  for (const Row& row : rows) EXPECT_EQ(ResultOf(bench, F(row.code)), row.result) << row.code;
}

TEST(WordFields, AreTheSameInEveryShape) {
  const std::string begin = FieldCharacter("begin");
  const std::string end = FieldCharacter("end");
  const auto code = [](const std::string& text) { return "<w:r><w:instrText>" + text + "</w:instrText></w:r>"; };
  const std::string shapes[] = {
      "<w:fldSimple w:instr=\" MERGEFIELD Jméno \"><w:r><w:t>«Jméno»</w:t></w:r></w:fldSimple>",
      begin + code(" MERGE") + "<w:proofErr w:type=\"spellStart\"/>" + code("FIELD ") +
          "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>" + code("Jméno") + "<w:bookmarkEnd w:id=\"1\"/>" + end,
      "<w:r><w:fldChar w:fldCharType=\"begin\"/><w:instrText>MERGEFIELD Jméno</w:instrText>"
      "<w:fldChar w:fldCharType=\"separate\"/><w:t>x</w:t><w:fldChar w:fldCharType=\"end\"/></w:r>",
      "<w:ins w:id=\"5\" w:author=\"a\">" + begin + code("MERGEFIELD Jméno") + "</w:ins>" + FieldCharacter("separate") +
          R("x") + end,
      "<w:hyperlink w:anchor=\"x\">" + F("MERGEFIELD Jméno") + "</w:hyperlink>",
      "<w:sdt><w:sdtContent>" + F("MERGEFIELD Jméno") + "</w:sdtContent></w:sdt>",
      begin + code("IF \"") + "<w:fldSimple w:instr=\"MERGEFIELD Plat\"/>" + code("\" &gt; 0 \"") + R("anna nováková") +
          code("\" \"\"") + end,
      F("SET kdo {Jméno}", "") + F("REF kdo"),
      begin + code("IF 1 = 1 \"") + "<w:r><w:rPr><w:b/></w:rPr><w:t>anna</w:t></w:r>" + R(" ") +
          F("MERGEFIELD Prázdné") + R("nováková") + code("\" ne") + end,
  };
  WordFixture bench;
  for (const std::string& shape : shapes) EXPECT_EQ(ResultOf(bench, shape), "anna nováková") << shape;
  const std::string tab = "<w:r><w:rPr><w:b/></w:rPr><w:tab/></w:r><w:r><w:br/></w:r>";
  EXPECT_EQ(ResultOf(bench, begin + code("IF 1 = 1 \"a") + tab + code("b\" ne") + end), "a\\t\vb");
}

TEST(WordFields, ThatAreNotEvaluatedStayWhole) {
  WordFixture bench;
  const std::string locked =
      "<w:r><w:fldChar w:fldCharType=\"begin\" w:fldLock=\"1\" w:dirty=\"true\"/></w:r>"
      "<w:r><w:instrText>MERGEFIELD Jméno</w:instrText></w:r>" +
      FieldCharacter("separate") + R("staré") + FieldCharacter("end");
  EXPECT_EQ(ResultOf(bench, F("PAGE", "1")), "1");
  EXPECT_EQ(ResultOf(bench, locked), "staré");
  EXPECT_EQ(ResultOf(bench, F("FILLIN {Plat}", "9")), "9");
  EXPECT_NE(bench.warnings.find("The field FILLIN"), std::string::npos);
  EXPECT_EQ(ResultOf(bench, FieldCharacter("begin") + R("bez konce ") + F("MERGEFIELD Plat")), "bez konce 1234,5");

  const auto merged = bench.Merge({.body = P(F("HYPERLINK \"http://x/?{Dlouhé_jméno}\"", "odkaz") + locked)}, kData,
                                  MainDocumentType::kCatalog);
  const std::string body = bench.SavedBody(*merged);
  EXPECT_NE(
      body.find("HYPERLINK \"http://x/?</w:instrText></w:r><w:r><w:instrText xml:space=\"preserve\">x</w:instrText>"),
      std::string::npos)
      << body;
  EXPECT_EQ(body.find("w:dirty"), std::string::npos);
  EXPECT_NE(body.find("w:fldLock=\"1\""), std::string::npos);
}

TEST(WordFields, ThatNameNoColumnSaySo) {
  const std::string error = "Error! MergeField was not found in header record of data source.";
  const std::string named = FieldCharacter("begin") + "<w:r><w:instrText>MERGEFIELD </w:instrText></w:r>" +
                            F("MERGEFIELD K") + FieldCharacter("end");
  WordFixture bench;
  const auto merged = bench.Merge({.body = P(named) + P(F("NEXT", "") + named + R("."))},
                                  "K;A\r\nA;1\r\nB;2\r\nC;3\r\n", MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(merged->Content()->Text()), "1\\r" + error + ".\\r" + error + "\\r.\\r");
  bench.Saved(*merged);
  EXPECT_EQ(bench.warnings, "There is no column for the merge field B.\nThere is no column for the merge field C.\n");
}

TEST(WordFields, MayNestAsDeepAsTheyLike) {
  std::string nested = F("MERGEFIELD Plat");
  for (int depth = 0; depth < 100; ++depth) {
    nested = FieldCharacter("begin") + "<w:r><w:instrText>QUOTE </w:instrText></w:r>" + nested + FieldCharacter("end");
  }
  std::string hostile;
  for (int i = 0; i < 50000; ++i) hostile += FieldCharacter("begin");
  for (int i = 0; i < 50000; ++i) hostile += FieldCharacter("end");
  WordFixture bench;
  EXPECT_EQ(ResultOf(bench, nested + R("x") + hostile + F("MERGEFIELD Plat")), "x1234,5");
}

TEST(WordFields, TakeTheirFormattingFromTheOldResultOrFromTheCode) {
  const auto run = [](const std::string& format, const std::string& content) {
    return "<w:r><w:rPr><w:" + format + "/></w:rPr>" + content + "</w:r>";
  };
  const auto field = [&](const std::string& switches) {
    return FieldCharacter("begin") + run("b", "<w:instrText>MERGEFIELD Plat" + switches + "</w:instrText>") +
           FieldCharacter("separate") + run("i", "<w:t>x</w:t>") + FieldCharacter("end");
  };
  WordFixture bench;
  for (const auto& [switches, format] : {std::pair{"", "i"}, {" \\* MERGEFORMAT", "i"}, {" \\* CHARFORMAT", "b"}}) {
    const auto merged =
        bench.Merge({.body = P(field(switches)) + P(R("konec"))}, "Plat\r\n5\r\n", MainDocumentType::kCatalog);
    EXPECT_EQ(CountOf(bench.SavedBody(*merged), run(format, "<w:t xml:space=\"preserve\">5</w:t>")), 1u) << switches;
  }
}

TEST(WordFields, SpliceWhatTheBranchesOfIfHold) {
  WordFixture bench;
  const std::string begin = FieldCharacter("begin") + "<w:r><w:instrText>IF </w:instrText></w:r>" + F("MERGEFIELD A") +
                            "<w:r><w:instrText xml:space=\"preserve\"> = 1 \"prvá</w:instrText></w:r>";
  const std::string finish = "<w:r><w:instrText>poslední\" \"jinak\"</w:instrText></w:r>" + FieldCharacter("separate") +
                             R("old") + FieldCharacter("end");
  const std::string table = "<w:tbl><w:tr>" + Cell(P(F("MERGEFIELD B"))) + "</w:tr></w:tbl>";
  const std::string body = P(R("před ") + begin) + table + "<w:p><w:pPr><w:jc w:val=\"center\"/></w:pPr>" + finish +
                           R(" za") + "</w:p>" + P(R("."));
  const auto merged = bench.Merge({.body = body}, "A;B\r\n1;buňka\r\n2;nic\r\n", MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(merged->Content()->Text()), "před prvá\\rbuňka\\r\a\\r\aposlední za\\r.\\rpřed jinak za\\r.\\r");
  EXPECT_EQ(CountOf(bench.SavedBody(*merged), "<w:jc"), 1u);
}

}  // namespace
}  // namespace zorkanca::testing
