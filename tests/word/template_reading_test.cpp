#include "word/merge/template_reading.h"

#include <gtest/gtest.h>

#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

// The fields of a template, one a line: kind, name, how often.
std::string FieldsOf(const WordParts& parts) {
  const TemporaryFolder folder;
  WriteWordFile(folder.Path("t.dotx"), parts);
  WordEngine engine(*FindLocale(u"cs-CZ"));
  std::string lines;
  for (const TemplateField& field : engine.TemplateFields(folder.TextPath("t.dotx"))) {
    const char* const kind = field.kind == TemplateFieldKind::kField  ? "field "
                             : field.kind == TemplateFieldKind::kForm ? "form "
                                                                      : "other ";
    lines += kind + ToUtf8(field.name) + " " + std::to_string(field.count) + "\n";
  }
  return lines;
}

TEST(TemplateReading, FieldsOfEveryPlace) {
  const std::string box = "<w:r><mc:AlternateContent><mc:Choice Requires=\"wps\"><w:txbxContent>" +
                          P(F("MERGEFIELD vramci")) + "</w:txbxContent></mc:Choice><mc:Fallback><w:txbxContent>" +
                          P(F("MERGEFIELD vramci")) + "</w:txbxContent></mc:Fallback></mc:AlternateContent></w:r>";
  const struct {
    WordParts parts;
    const char* fields;
  } kRows[] = {
      {{P(R("nothing"))}, ""},
      {{P(F("MERGEFIELD a \\* MERGEFORMAT") + F("mergefield \"B c\"") + F("MERGEFIELD A"))},
       "field a 2\nfield B c 1\n"},
      {{P("<w:fldSimple w:instr=\" MERGEFIELD simple \">" + R("x") + "</w:fldSimple>")}, "field simple 1\n"},
      {{P(F("IF {x} = 1 \"{y}\" \"z\"") + F("MERGEREC") + F("DATE"))}, "field x 1\nfield y 1\n"},
      {{P(box)}, "field vramci 1\n"},
      {{"<w:tbl><w:tr>" + Cell(P(F("MERGEFIELD cell"))) + "</w:tr></w:tbl>" + P("")}, "field cell 1\n"},
      {{P(F("MERGEFIELD m")),
        {{"header", P(R("«hlava» ") + F("MERGEFIELD h", "«h»"))}, {"footer", P(R("«pa") + R("ta»"))}}},
       "field m 1\nfield h 1\nfield hlava 1\nfield pata 1\n"},
      {{P(R("x")), {{"footnotes", "<w:footnote w:id=\"2\">" + P(F("MERGEFIELD n")) + "</w:footnote>"}}}, "field n 1\n"},
      {{P("<w:r><w:fldChar w:fldCharType=\"begin\"><w:ffData><w:name w:val=\"f\"/></w:ffData></w:fldChar></w:r>"
          "<w:r><w:instrText>FORMTEXT</w:instrText></w:r>" +
          FieldCharacter("end")) +
        "<w:sdt><w:sdtPr><w:tag w:val=\"c\"/></w:sdtPr><w:sdtContent>" + P(R("x")) + "</w:sdtContent></w:sdt>"},
       "form f 1\nform c 1\n"},
  };
  for (const auto& row : kRows) EXPECT_EQ(FieldsOf(row.parts), row.fields) << row.parts.body;
}

TEST(TemplateReading, FilesThatAreNoTemplates) {
  const TemporaryFolder folder;
  folder.Write("bad.dotx", "no document");
  WordEngine engine(*FindLocale(u"cs-CZ"));
  EXPECT_EQ(ErrorOf([&] { engine.TemplateFields(folder.TextPath("none.dotx")); }).number(), 5174);
  EXPECT_EQ(ErrorOf([&] { engine.TemplateFields(folder.TextPath("bad.dotx")); }).number(), 5);
}

}  // namespace
}  // namespace zorkanca::testing
