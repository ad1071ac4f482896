// The list of content types: what each part is, and the list after each change.
#include "opc/content_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr const char* kStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">";

ContentTypes Types(const std::string& inside) {
  return ContentTypes::Parse(kStart + inside + "</Types>", "f.docx");
}

TEST(ContentTypes, TellWhatAPartIs) {
  const ContentTypes types = Types(
      R"(<Override PartName="/word/document.xml" ContentType="main"/><Default Extension="XML" ContentType="xml"/>)"
      R"(<!-- x --><Default Extension="png" ContentType="picture"/><Override PartName="/a b.xml" ContentType="&lt;"/>)");
  const std::pair<const char*, const char*> rows[] = {
      {"/word/document.xml", "main"},
      {"/WORD/Document.XML", "main"},
      {"/word/other.xml", "xml"},
      {"/word/other.xMl", "xml"},
      {"/media/a.PNG", "picture"},
      {"/media/a.jpeg", ""},
      {"/media/png", ""},
      {"/a.png/b", ""},
      {"/a b.xml", "<"},
      {"/media/a.b.png", "picture"},
      {"/word/document.xml.png", "picture"},
  };
  for (const auto& [part, type] : rows) EXPECT_EQ(types.TypeOf(part), type) << part;
}

TEST(ContentTypes, AreWrittenInTheirOrder) {
  const std::string png = "<Default Extension=\"png\" ContentType=\"p\"/>";
  const std::string xml = "<Default Extension=\"xml\" ContentType=\"x\"/>";
  const std::string a = "<Override PartName=\"/a.xml\" ContentType=\"1\"/>";
  const std::string b = "<Override PartName=\"/b.xml\" ContentType=\"2\"/>";
  using Change = std::function<bool(ContentTypes&)>;
  struct Row {
    const char* what;
    std::string before;
    Change change;
    bool changed;
    std::string after;
  };
  const auto set = [](const char* part, const char* type) {
    return [=](ContentTypes& types) { return types.SetOverride(part, type), true; };
  };
  const auto add = [](const char* extension) {
    return [=](ContentTypes& types) { return types.AddDefault(extension, "n"); };
  };
  const auto remove = [](const char* part) { return [=](ContentTypes& types) { return types.RemoveOverride(part); }; };
  const Row rows[] = {
      {"a new part", a, set("/b.xml", "2"), true, a + b},
      {"another type in place", a + b, set("/A.XML", "9"), true,
       "<Override PartName=\"/a.xml\" ContentType=\"9\"/>" + b},
      {"characters of XML", "", set("/a&b.xml", "<\">"), true,
       "<Override PartName=\"/a&amp;b.xml\" ContentType=\"&lt;&quot;&gt;\"/>"},
      {"a new extension goes before the parts", a + png, add("gif"), true,
       png + "<Default Extension=\"gif\" ContentType=\"n\"/>" + a},
      {"a known extension", png, add("PNG"), false, png},
      {"a part that goes", xml + a + b, remove("/A.xml"), true, xml + b},
      {"one that is none", xml + a, remove("/c.xml"), false, xml + a},
      {"one that went before", a,
       [&](ContentTypes& types) { return types.RemoveOverride("/a.xml") && types.RemoveOverride("/a.xml"); }, false,
       ""},
      {"one that comes back", a + b,
       [&](ContentTypes& types) { return types.RemoveOverride("/a.xml") && (types.SetOverride("/a.xml", "1"), true); },
       true, a + b},
  };
  for (const Row& row : rows) {
    ContentTypes types = Types(row.before);
    EXPECT_EQ(row.change(types), row.changed) << row.what;
    EXPECT_EQ(types.ToXml(), kStart + row.after + "</Types>") << row.what;
  }
}

TEST(ContentTypes, RefuseWhatIsNoList) {
  const std::pair<std::string, const char*> rows[] = {
      {"<Types/>", "it is no list of content types"},
      {"<a xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"/>", "it is no list of content types"},
      {kStart + std::string("<Default Extension=\"\" ContentType=\"x\"/></Types>"), "an entry is incomplete"},
      {kStart + std::string("<Override PartName=\"/a\"/></Types>"), "an entry is incomplete"},
      {kStart + std::string("<Override></Types>"), "f.docx"},
  };
  for (const auto& [xml, reason] : rows) {
    const Error error = ErrorOf([&] { ContentTypes::Parse(xml, "f.docx"); });
    EXPECT_EQ(error.number(), 5);
    EXPECT_THAT(ToUtf8(error.description()), ::testing::HasSubstr(reason)) << xml;
  }
}

}  // namespace
}  // namespace zorkanca::testing
