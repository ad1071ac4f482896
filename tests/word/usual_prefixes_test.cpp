// Documents that call the vocabularies otherwise than the word processor does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "opc/xml_document.h"
#include "support/text_support.h"
#include "word/xml/word_xml.h"

namespace zorkanca::testing {
namespace {

// Namespaces in a word each: {w}, {r}, {mc}, {w14}.
std::string WithSpaces(std::string xml) {
  const std::pair<std::string, std::string> words[] = {
      {"{w}", "http://schemas.openxmlformats.org/wordprocessingml/2006/main"},
      {"{r}", "http://schemas.openxmlformats.org/officeDocument/2006/relationships"},
      {"{mc}", "http://schemas.openxmlformats.org/markup-compatibility/2006"},
      {"{w14}", "http://schemas.microsoft.com/office/word/2010/wordml"},
  };
  for (const auto& [word, uri] : words) {
    for (std::size_t at; (at = xml.find(word)) != xml.npos;) xml.replace(at, word.size(), uri);
  }
  return xml;
}

TEST(WordPrefixes, BecomeTheUsualOnes) {
  const std::pair<std::string, std::string> rows[] = {
      {R"(<w:d xmlns:w="{w}"><w:p w:a="1" b="2"/></w:d>)", R"(<w:d xmlns:w="{w}"><w:p w:a="1" b="2"/></w:d>)"},
      {R"(<d xmlns="{w}" xmlns:q="{w}"><p q:a="1" b="2"/></d>)", R"(<w:d xmlns:w="{w}"><w:p w:a="1" b="2"/></w:d>)"},
      {R"(<x:d xmlns:x="{w}" xmlns:y="{r}"><x:p y:id="rId1"/></x:d>)",
       R"(<w:d xmlns:w="{w}" xmlns:r="{r}"><w:p r:id="rId1"/></w:d>)"},
      // what is declared below the root, and what has no usual name
      {R"(<x:d xmlns:x="{w}"><o:p xmlns:o="urn:own" o:a="1"/><y:p xmlns:y="{w}" x:a="1"/></x:d>)",
       R"(<w:d xmlns:w="{w}"><o:p xmlns:o="urn:own" o:a="1"/><w:p xmlns:w="{w}" w:a="1"/></w:d>)"},
      {R"(<x:d xmlns:x="{w}"><p xmlns="urn:own" a="1"><x:r/></p></x:d>)",
       R"(<w:d xmlns:w="{w}"><p xmlns="urn:own" a="1"><w:r/></p></w:d>)"},
      // lists of prefixes: all that stand for one of ours are called otherwise, others stay
      {R"(<x:d xmlns:x="{w}" xmlns:m="{mc}" xmlns:n="{w14}" xmlns:o="urn:own" m:Ignorable="n o"/>)",
       R"(<w:d xmlns:w="{w}" xmlns:mc="{mc}" xmlns:w14="{w14}" xmlns:o="urn:own" mc:Ignorable="w14 o"/>)"},
      {R"(<x:d xmlns:x="{w}" xmlns:m="{mc}" xmlns:n="{w14}"><m:Choice Requires="n"/><x:p x:Requires="n"/></x:d>)",
       R"(<w:d xmlns:w="{w}" xmlns:mc="{mc}" xmlns:w14="{w14}"><mc:Choice Requires="w14"/>)"
       R"(<w:p w:Requires="n"/></w:d>)"},
  };
  for (const auto& [before, after] : rows) {
    pugi::xml_document document = ParseXml(WithSpaces(before), {"a.docx", "/word/document.xml"});
    word::UseUsualPrefixes(document, "a.docx");
    EXPECT_EQ(XmlBytes(document.document_element()), WithSpaces(after)) << before;
  }
}

TEST(WordPrefixes, AreRefusedWhereTheUsualOnesMeanSomethingElse) {
  for (const char* xml :
       {R"(<x:d xmlns:x="{w}" xmlns:w="urn:own"/>)", R"(<x:d xmlns:x="{w}"><w:p xmlns:w="{r}"/></x:d>)"}) {
    pugi::xml_document document = ParseXml(WithSpaces(xml), {"a.docx", "/word/document.xml"});
    const Error error = ErrorOf([&] { word::UseUsualPrefixes(document, "a.docx"); });
    EXPECT_EQ(error.number(), 5) << xml;
    EXPECT_THAT(ToUtf8(error.description()), ::testing::StartsWith("a.docx is not an Office document"));
  }
}

}  // namespace
}  // namespace zorkanca::testing
