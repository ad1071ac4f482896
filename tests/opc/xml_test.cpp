// XML parts: the gate, the tree, names by meaning, and escaping.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "opc/xml_document.h"
#include "opc/xml_escape.h"
#include "opc/xml_names.h"
#include "opc/xml_tree.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using namespace std::string_literals;
using ::testing::HasSubstr;

const XmlSource kSource{.file = "f.docx", .part = "/p.xml"};

std::string Nested(int depth) {
  std::string xml;
  for (int i = 0; i < depth; ++i) xml += "<a>";
  for (int i = 0; i < depth; ++i) xml += "</a>";
  return xml;
}

std::string Utf16(const std::string& ascii, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii) bytes += bigEndian ? "\0"s + c : c + "\0"s;
  return bytes;
}

TEST(OpcXml, OnlySoundXmlPasses) {
  const std::pair<std::string, const char*> rows[] = {
      {"", "not well-formed XML: no element found (line 1)"},
      {"<a>\n</b>",
       "f.docx is not an Office document: part /p.xml: it is not well-formed XML: mismatched tag (line 2)"},
      {"<a/><b/>", "not well-formed"},
      {"<a b='1' b='2'/>", "not well-formed"},
      {"<a>&undeclared;</a>", "not well-formed"},
      {"<p:a/>", "not well-formed"},
      {"<a>\x01</a>", "not well-formed"},
      {"<a>\xC0\xAF</a>", "not well-formed"},
      {"<a>\xED\xA0\x80</a>", "not well-formed"},
      {"<a>\xEF\xBF\xBF</a>", "not well-formed"},
      {"<a>&#1;</a>", "not well-formed"},
      {"<a>\0</a>"s, "not well-formed"},
      {Utf16("<a>", false), "not well-formed"},
      {"<!DOCTYPE a [<!ENTITY x 'y'>]><a>&x;</a>", "it declares a document type"},
      {"<!DOCTYPE a SYSTEM 'http://x/y'><a/>", "it declares a document type"},
      {"<?xml version='1.0' encoding='windows-1250'?><a/>", "encoding is windows-1250"},
      {"<?xml version='1.0' encoding='iso-8859-1'?><a>\xE1</a>", "encoding is iso-8859-1"},
      {Nested(257), "nested too deeply"},
  };
  for (const auto& [xml, reason] : rows) {
    const Error error = ErrorOf([&bytes = xml] { ParseXml(bytes, kSource); });
    EXPECT_EQ(error.number(), 5) << xml;
    EXPECT_THAT(ToUtf8(error.description()), HasSubstr(reason)) << xml;
  }
  EXPECT_NO_THROW(ParseXml(Nested(256), kSource));
  const std::string crowded = "<a b='1' xmlns:c='u'><d/><e f='1' g='2'/><h i='1' j='2' k='3'/></a>";
  EXPECT_NO_THROW(ParseXml(crowded, kSource, {.attributes = 5}));
  EXPECT_THAT(ToUtf8(ErrorOf([&] { ParseXml(crowded, kSource, {.attributes = 4}); }).description()),
              HasSubstr("too many attributes"));
  for (const char* flood : {"<a><b/><b/><b/><b/></a>", "<a b='' c='' d='' e='' f='' g=''/>", "<a><!----><!----></a>",
                            "<a><?b?><?b?><?b?></a>", "<a><![CDATA[]]>x<![CDATA[]]></a>"}) {
    EXPECT_THAT(ToUtf8(ErrorOf([&] { ParseXml(flood, kSource, {.nodes = 5}); }).description()),
                HasSubstr("too many elements"))
        << flood;
  }
}

TEST(OpcXml, ATreeIsWrittenAsItWasRead) {
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n";
  const std::string body =
      "<!--c--><?pi x?><w:t xmlns:w=\"u\" xml:space=\"preserve\" b=\"1 &lt; &quot;2&quot;\"> </w:t>";
  const std::string inner = "<a> <b>\n\t</b><![CDATA[<&]]>P\xC5\x99\xF0\x9F\x98\x80 &amp; &lt;<c/>  </a>";
  for (const std::string& xml : {body, inner}) {
    EXPECT_EQ(XmlBytes(ParseXml(xml, kSource)), declaration + xml);
    EXPECT_EQ(XmlBytes(ParseXml("\xEF\xBB\xBF" + declaration + xml, kSource)), declaration + xml);
  }
  for (const bool bigEndian : {false, true}) {
    const std::string xml = Utf16("<?xml version='1.0' encoding='UTF-16'?><a>x</a>", bigEndian);
    EXPECT_EQ(XmlBytes(ParseXml(xml, kSource)), declaration + "<a>x</a>");
  }
  const pugi::xml_document ends = ParseXml("<a>1\r\n2\r3&#13;</a>", kSource);
  EXPECT_STREQ(ends.document_element().child_value(), "1\n2\n3\r");
}

TEST(OpcXml, NamesAreFoundByTheirMeaning) {
  const std::string transitional = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
  const std::string strict = "http://purl.oclc.org/ooxml/wordprocessingml/main";
  const std::string rows[] = {
      "<w:d xmlns:w='" + transitional + "'><w:p w:val='1' val='2'/></w:d>",
      "<q:d xmlns:q='" + strict + "'><q:p q:val='1' val='2'/></q:d>",
      "<d xmlns='" + transitional + "' xmlns:x='" + transitional +
          "'><other xmlns='u'><p/></other><p x:val='1' val='2'/></d>",
      // One prefix with two meanings, a foreign one first.
      "<w:d xmlns:w='" + strict + "'><w:p xmlns:w='urn:other' w:val='9'/><w:p w:val='1' val='2'/></w:d>",
  };
  for (const std::string& xml : rows) {
    const pugi::xml_document document = ParseXml(xml, kSource);
    const XmlNames names(document);
    const pugi::xml_node root = document.document_element();
    EXPECT_TRUE(names.Is(root, XmlSpace::kWord, "d")) << xml;
    EXPECT_FALSE(names.Is(root, XmlSpace::kSheet, "d")) << xml;
    const pugi::xml_node p = names.Child(root, XmlSpace::kWord, "p");
    EXPECT_EQ(names.Attribute(p, XmlSpace::kWord, "val").value(), "1"s) << xml;
    EXPECT_EQ(names.Attribute(p, XmlSpace::kNone, "val").value(), "2"s) << xml;
    EXPECT_FALSE(names.NextSibling(p, XmlSpace::kWord, "p")) << xml;
    EXPECT_FALSE(names.Child(p, XmlSpace::kWord, "p")) << xml;
  }
  const pugi::xml_document plain = ParseXml("<a><b xmlns='" + transitional + "'/></a>", kSource);
  const XmlNames names(plain);
  EXPECT_EQ(names.SpaceOf(plain.document_element()), XmlSpace::kNone);
  EXPECT_EQ(names.SpaceOf(plain.document_element().first_child()), XmlSpace::kWord);
}

TEST(OpcXml, NewNamesTakeThePrefixesOfTheDocument) {
  const std::string sheet(NamespaceUri(XmlSpace::kSheet));
  const std::pair<std::string, std::string> rows[] = {
      {"<d xmlns='" + sheet + "'/>", "c"},
      {"<s:d xmlns:s='" + sheet + "'/>", "s:c"},
      {"<s:d xmlns:s='" + sheet + "'><e xmlns='" + sheet + "'/></s:d>", "s:c"},
      {"<s:d xmlns:s='" + sheet + "' xmlns:t='" + sheet + "'><t:e xmlns:s='urn:other'/></s:d>", "t:c"},
  };
  for (const auto& [xml, name] : rows) {
    const pugi::xml_document document = ParseXml(xml, kSource);
    EXPECT_EQ(XmlNames(document).Qualified(XmlSpace::kSheet, "c"), name) << xml;
  }
}

TEST(OpcXml, EveryUnitSurvivesEscapingOrIsLeftOut) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const Text value{u'a', static_cast<char16_t>(unit), u'z'};
    const bool forbidden = (unit < 0x20 && unit != 9 && unit != 10 && unit != 13) || unit >= 0xFFFE;
    const bool lone = unit >= 0xD800 && unit < 0xE000;
    const Text expected = forbidden ? Text(u"az") : lone ? Text(u"a\uFFFDz") : value;
    std::string text;
    std::string attribute;
    AppendXmlText(text, value);
    AppendXmlAttribute(attribute, value);
    if (forbidden || lone || unit < 0x80) {  // the gate is the judge of these; of others, that they are plain UTF-8
      const pugi::xml_document document = ParseXml("<a b=\"" + attribute + "\">" + text + "</a>", kSource);
      ASSERT_EQ(FromUtf8(document.document_element().child_value()), expected) << unit;
      ASSERT_EQ(FromUtf8(document.document_element().attribute("b").value()), expected) << unit;
    } else {
      ASSERT_EQ(text, ToUtf8(value)) << unit;
    }
    ASSERT_EQ(XmlCharacters(value), ToUtf8(expected));
  }
  std::string xml;
  AppendXmlText(xml, TextView(u"\"\U0001F600\"\r\n]]>"));
  EXPECT_EQ(xml, "\"\xF0\x9F\x98\x80\"&#13;\n]]&gt;");
  xml.clear();
  AppendXmlAttribute(xml, std::string_view("\"\t\r\n\xFF"));
  EXPECT_EQ(xml, "&quot;&#9;&#13;&#10;\xEF\xBF\xBD");
}

TEST(OpcXml, ANewChildComesToItsPlaceOfTheSchema) {
  constexpr std::array<std::string_view, 4> kOrder = {"a", "b", "c", "d"};
  constexpr std::string_view kDeclared = R"(<w xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main")"
                                         R"( xmlns:o="urn:other">)";
  struct Row {
    const char* before;
    const char* wanted;
    const char* after;            ///< names as they are written; unknown ones come last
    const char* afterVocabulary;  ///< local names of the vocabulary; others have no place
  };
  const Row rows[] = {
      {"<a/><d/>", "c", "<a/><c/><d/>", "<a/><c/><d/>"},
      {"<a/><c/>", "c", "<a/><c/>", "<a/><c/>"},
      {"<c/><d/>", "b", "<b/><c/><d/>", "<b/><c/><d/>"},
      {"<a/>", "d", "<a/><d/>", "<a/><d/>"},
      {"<a/><z/>", "d", "<a/><d/><z/>", "<a/><d/><z/>"},
      {"<!--1--><a/><o:x/><c/>", "b", "<!--1--><a/><b/><o:x/><c/>", "<!--1--><a/><o:x/><b/><c/>"},
  };
  const auto inside = [](const pugi::xml_document& document) {
    std::string xml;
    for (const pugi::xml_node child : document.document_element().children()) xml += XmlBytes(child);
    return xml;
  };
  for (const Row& row : rows) {
    const std::string xml = std::string(kDeclared) + row.before + "</w>";
    pugi::xml_document document = ParseXml(xml, kSource);
    RequireChild(document.document_element(), row.wanted, kOrder);
    EXPECT_EQ(inside(document), row.after) << row.before;
    document = ParseXml(xml, kSource);
    RequireChild(document.document_element(), XmlNames(document), XmlSpace::kSheet, row.wanted, kOrder);
    EXPECT_EQ(inside(document), row.afterVocabulary) << row.before;
  }
}

}  // namespace
}  // namespace zorkanca::testing
