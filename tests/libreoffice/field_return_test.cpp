// Marks in a package made fields again.
#include "libreoffice/fields/field_return.h"

#include <gtest/gtest.h>

#include "opc/package.h"
#include "support/raw_zip.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr FieldMarkers kMarkers{.begin = 0xE013, .lockedBegin = 0xE014, .separate = 0xE015, .end = 0xE016};

// XML with short names, "<t>" for "<w:t>", and the markers as "&b", "&L", "&s", "&e".
std::string Long(const std::string& brief) {
  std::string xml;
  for (std::size_t at = 0; at < brief.size(); ++at) {
    if (brief[at] == '&') {
      const std::size_t mark = std::string("bLse").find(brief[++at]);
      xml += ToUtf8(TextView(&kMarkers.All()[mark], 1));
      continue;
    }
    xml += brief[at];
    if (brief[at] == '<' && brief[at + 1] == '/') xml += brief[++at];
    if (brief[at] == '<' || (brief[at] == '/' && brief[at - 1] == '<'))
      xml += brief.compare(at + 1, 3, "mc:") ? "w:" : "";
    if (brief[at] == ' ' && brief.compare(at + 1, 11, "fldCharType") == 0) xml += "w:";
  }
  return xml;
}

std::string Brief(std::string xml) {
  const auto replace = [&](const std::string& from, const std::string& to) {
    for (std::size_t at; (at = xml.find(from)) != xml.npos;) xml.replace(at, from.size(), to);
  };
  replace("<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>", "{");
  replace("<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>", "|");
  replace("<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>", "}");
  replace(" xml:space=\"preserve\"", "");
  replace("instrText", "i");
  replace("w:", "");
  return xml;
}

class FieldReturn : public ::testing::Test {
 protected:
  bool Return(const std::string& body, std::size_t inBody, std::map<Text, Text> names = {}) {
    std::vector<RawEntry> entries = SmallDocument("");
    entries[2].data =
        "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
        " xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\"><w:body>" +
        Long(body) + "</w:body></w:document>";
    folder_.Write("a.docx", RawZip(entries));
    return ReturnFields(folder_.Path("a.docx"),
                        {.markers = kMarkers, .inBody = inBody, .englishNames = std::move(names)});
  }
  std::string Body() {
    const std::string xml = Package::Open(folder_.Path("a.docx")).ReadPart("/word/document.xml");
    const std::size_t start = xml.find("<w:body>") + 8;
    return Brief(xml.substr(start, xml.find("</w:body>") - start));
  }

  TemporaryFolder folder_;
};

TEST_F(FieldReturn, RunsAreSplitAtTheMarkers) {
  const struct {
    const char* body;
    std::size_t inBody;
    const char* outcome;
  } kRows[] = {
      {"<p><r><t>a&b M &sx&e b</t></r></p>", 1,
       "<p><r><t>a</t></r>{<r><i> M </i></r>|<r><t>x</t></r>}<r><t> b</t></r></p>"},
      {"<p><r><rPr><b/></rPr><t>&b M</t><tab/><t>&e</t><br/></r></p>", 1,
       "<p><r><rPr><b/></rPr><fldChar fldCharType=\"begin\"/></r><r><rPr><b/></rPr><i> M</i><tab/></r>"
       "<r><rPr><b/></rPr><fldChar fldCharType=\"end\"/></r><r><rPr><b/></rPr><br/></r></p>"},
      {"<p><r><t>&b IF </t></r><r><t>&b M&s1&e</t></r><r><t>=1&sx&e</t></r></p>", 2,
       "<p>{<r><i> IF </i></r>{<r><i> M</i></r>|<r><t>1</t></r>}<r><i>=1</i></r>|<r><t>x</t></r>}</p>"},
      {"<p><r><t>&b IF </t></r><r><fldChar fldCharType=\"begin\"/></r><r><instrText> PAGE</instrText></r><r>"
       "<fldChar fldCharType=\"separate\"/></r><r><t>1</t></r><r><fldChar "
       "fldCharType=\"end\"/></r><r><t>&sx&e</t></r></p>",
       1, "<p>{<r><i> IF </i></r>{<r><i> PAGE</i></r>|<r><t>1</t></r>}|<r><t>x</t></r>}</p>"},
      {"<p><r><t>&b IF</t></r></p><p><ins><r><t>a&s</t></r></ins><r><t>x&e</t></r></p>", 1,
       "<p>{<r><i> IF</i></r></p><p><ins><r><i>a</i></r>|</ins><r><t>x</t></r>}</p>"},
      {"<p><r><t>&LM&e</t></r></p>", 1,
       "<p><r><fldChar fldCharType=\"begin\" fldLock=\"true\"/></r><r><i>M</i></r>}</p>"},
      {"<p><r><t>&bA</t></r><r><pict><txbxContent><p><r><t>&bB&ex</t></r></p></txbxContent></pict></r><r><t>&e</t></"
       "r></p>",
       1,
       "<p>{<r><i>A</i></r><r><pict><txbxContent><p>{<r><i>B</i></r>}<r><t>x</t></r></p></txbxContent></pict></r>}</"
       "p>"},
      {"<p><r><delText>&bA&sx&e</delText></r></p>", 1,
       "<p>{<r><delInstrText>A</delInstrText></r>|<r><delText>x</delText></r>}</p>"},
      {"<p><r><t>plain</t></r></p>", 0, "<p><r><t>plain</t></r></p>"},
  };
  for (const auto& row : kRows) {
    EXPECT_TRUE(Return(row.body, row.inBody)) << row.body;
    EXPECT_EQ(Body(), row.outcome) << row.body;
  }
  EXPECT_TRUE(Return("<p><r><t>&b\uF041\uF020\uF0FC&s\uF041&e</t></r></p>", 1));  // in a symbol font
  EXPECT_EQ(Body(), "<p>{<r><i>A \uF0FC</i></r>|<r><t>\uF041</t></r>}</p>");
  EXPECT_TRUE(Return("<p><r><t>&b  zálož\"a\"&e&b mm&e</t></r></p>", 2, {{u"ZÁLOŽ", u"REF"}, {u"A", u"B"}}));
  EXPECT_EQ(Body(), "<p>{<r><i>  REF\"a\"</i></r>}{<r><i> mm</i></r>}</p>");
}

TEST_F(FieldReturn, WhatDidNotComeThroughWholeIsTold) {
  const struct {
    const char* body;
    std::size_t inBody;
  } kRows[] = {
      {"<p><r><t>&bA&sx</t></r></p>", 1},                              // no end
      {"<p><r><t>x&e</t></r></p>", 0},                                 // no beginning
      {"<p><r><t>&bA&s&sx&e</t></r></p>", 1},                          // two middles
      {"<p><r><t>&bA&sx&e</t></r></p>", 2},                            // one is missing
      {"<p><r><t>&bA&ex</t></r><r><t>&bB&e</t></r></p>", 1},           // one too many
      {"<p><r><fldChar fldCharType=\"begin\"/><t>&e</t></r></p>", 0},  // not of one kind
      {"<p><r><pict><txbxContent><p><r><t>&bB</t></r></p></txbxContent></pict><t>&e</t></r></p>", 0},
      {"<p><r><t>&bA&e</t></r><bookmarkStart name=\"&b\"/></p>", 1},  // a marker elsewhere
      {"<p><r><mc:Fallback><t>&bA&e</t></mc:Fallback></r></p>", 1},   // a copy of something else
  };
  for (const auto& row : kRows) EXPECT_FALSE(Return(row.body, row.inBody)) << row.body;
}

}  // namespace
}  // namespace zorkanca::testing
