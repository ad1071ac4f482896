// Fields of Word's XML of 2003 made marks; what OpenDocument loses.
#include "libreoffice/fields/xml_fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "libreoffice/fields/open_document_losses.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

std::string Document(const std::string& body) {
  return "<?xml version=\"1.0\"?><w:wordDocument xmlns:w=\"http://schemas.microsoft.com/office/word/2003/wordml\" "
         "xmlns:aml=\"a\"><w:body>" +
         body + "</w:body></w:wordDocument>";
}

std::string Runs(const std::string& brief) {
  std::string xml;
  for (const char c : brief) {
    const char* type = c == '{' ? "begin" : c == '|' ? "separate" : c == '}' ? "end" : nullptr;
    xml += type ? "<w:r><w:fldChar w:fldCharType=\"" + std::string(type) + "\"/></w:r>" : std::string(1, c);
  }
  return xml;
}

std::string C(const std::string& code) {
  return "<w:r><w:instrText>" + code + "</w:instrText></w:r>";
}

std::string Brief(std::string xml, const FieldMarkers& markers) {
  const auto replace = [&](const std::string& from, const std::string& to) {
    for (std::size_t at; (at = xml.find(from)) != xml.npos;) xml.replace(at, from.size(), to);
  };
  for (std::size_t i = 0; i < 4; ++i) replace(ToUtf8(TextView(&markers.All()[i], 1)), std::string(1, "(L#)"[i]));
  for (const auto& [mark, type] : {std::pair("{", "begin"), std::pair("|", "separate"), std::pair("}", "end")}) {
    replace("<w:r><w:fldChar w:fldCharType=\"" + std::string(type) + "\"/></w:r>", mark);
  }
  replace("<w:r><w:t>", "[");
  replace("</w:t></w:r>", "]");
  const std::size_t start = xml.find("<w:body>") + 8;
  return xml.substr(start, xml.find("</w:body>") - start);
}

TEST(XmlFields, WhatLibreOfficeWouldSpoilBecomesText) {
  const std::string date = "<w:fldSimple w:instr=\" DATE \"><w:r><w:t>x</w:t></w:r></w:fldSimple>";
  const struct {
    std::string body;
    const char* marked;
    std::size_t inBody = 1;
  } kRows[] = {
      {Runs("{" + C(" MERGEFIELD") + C(" a ") + "|[x]}"), "[(][ MERGEFIELD][ a ][#][x][)]"},
      {Runs("{" + C("IF ") + "{" + C(" PAGE ") + "|}" + C("=1") + "|}"),
       "[(][IF ]{<w:r><w:instrText> PAGE </w:instrText></w:r>|}[=1][#][)]"},
      {Runs("{" + C("PAGE ") + "|}") + date, "{<w:r><w:instrText>PAGE </w:instrText></w:r>|}[( DATE #][x][)]"},
      {"<w:fldSimple w:instr=\"IF 1\" w:fldLock=\"on\">" + date + "</w:fldSimple>", "[LIF 1#][( DATE #][x][)][)]", 2},
      {Runs("{" + C("A")) + "<w:r><w:footnote>" + Runs("{" + C("B") + "}") + "</w:footnote></w:r>" + Runs("}"),
       "[(][A]<w:r><w:footnote>[(][B][)]</w:footnote></w:r>[)]"},
      {"<w:hdr>" + date + "</w:hdr><aml:annotation w:type=\"Word.Comment\">" + date + "</aml:annotation>",
       "<w:hdr>[( DATE #][x][)]</w:hdr><aml:annotation w:type=\"Word.Comment\">[( DATE #][x][)]</aml:annotation>", 0},
  };
  for (const auto& row : kRows) {
    const std::optional<MarkedText> marked = MarkXmlFields(Document(row.body));
    ASSERT_TRUE(marked) << row.body;
    EXPECT_EQ(Brief(marked->bytes, marked->fields.markers), row.marked);
    EXPECT_EQ(marked->fields.inBody, row.inBody) << row.body;
  }
  EXPECT_FALSE(MarkXmlFields(Document(Runs("{" + C(" HYPERLINK x ") + "|}"))));
  const std::string form =
      "<w:r><w:fldChar w:fldCharType=\"begin\"><w:ffData/></w:fldChar></w:r>" + C("x") + "|" + date + "}";
  EXPECT_EQ(MarkXmlFields(Document(Runs(form)))->fields.spoiled, 1U);
  EXPECT_EQ(MarkXmlFields(Document("\uE013" + date))->fields.markers.begin, 0xE014);
}

TEST(XmlFields, HostileDocumentsAreMarkedOrRefused) {
  const std::string sound = Document(Runs("{" + C("IF ") + "{" + C(" PAGE ") + "|}" + C("=1") + "|}") +
                                     "<w:fldSimple w:instr=\"DATE\"><w:r/></w:fldSimple>");
  std::string deep;
  for (int i = 0; i < 65; ++i) deep += "{";
  for (const std::string& bad : {std::string(), sound.substr(0, 300), std::string("<!DOCTYPE a>") + sound.substr(21),
                                 Document(Runs(deep)), std::string("<w:wordDocument xmlns:w=\"x\"/>")}) {
    EXPECT_EQ(ErrorOf([&] { MarkXmlFields(bad); }).number(), 5) << bad;
  }
  // Whole elements taken away and doubled: characters of fields without their partners.
  std::mt19937 random(4);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
  const std::string pieces[] = {Runs("{"),
                                Runs("|"),
                                Runs("}"),
                                C("DATE"),
                                C("PAGE"),
                                "<w:r><w:footnote>",
                                "</w:footnote></w:r>",
                                "<w:fldSimple w:instr=\"IF\">",
                                "</w:fldSimple>"};
  for (int round = 0; round < 5000 && std::chrono::steady_clock::now() < end; ++round) {
    std::string body;
    for (std::size_t count = random() % 12; count > 0; --count) body += pieces[random() % std::size(pieces)];
    try {
      const std::optional<MarkedText> marked = MarkXmlFields(Document(body));
      if (!marked) continue;
      const Text text = FromUtf8(marked->bytes);
      const auto markers = marked->fields.markers.All();
      const auto count = [&](std::size_t i) { return std::count(text.begin(), text.end(), markers[i]); };
      EXPECT_EQ(count(0) + count(1), count(3)) << body;  // each has a beginning and an end
      EXPECT_EQ(count(3), static_cast<std::ptrdiff_t>(marked->fields.count)) << body;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 5);
    }
  }
}

TEST(OpenDocumentLosses, AreNamedWithTheirNumber) {
  const struct {
    const char* xml;
    const char* losses;
  } kRows[] = {
      {"<text:p>x</text:p><text:database-display text:column-name=\"a\">x</text:database-display>", ""},
      {"<text:database-display style:data-style-name=\"N1\"/><text:database-next a=\"b\"/><text:database-next/>",
       "number or date format of a merge field (1), next record (2)"},
      {"<text:conditional-text\n/><text:hidden-text/><text:hidden-paragraph/><text:expression>1</text:expression>",
       "conditional text (1), hidden text (1), hidden paragraph (1), formula (1)"},
      {"<text:section text:name=\"a\"/><text:section text:condition=\"b\">", "conditional section (1)"},
      {"<text:database-row-number-x/><text:database-row-number", ""},
  };
  for (const auto& row : kRows) EXPECT_EQ(OpenDocumentLosses(row.xml), row.losses) << row.xml;
}

}  // namespace
}  // namespace zorkanca::testing
