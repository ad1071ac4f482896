// Packages: parts, content types, relationships, and that nothing is lost of what nobody touched.
#include "opc/package.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "opc/core_properties.h"
#include "support/raw_zip.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kMain = "/word/document.xml";

class PackageTest : public ::testing::Test {
 protected:
  Package Open(const std::vector<RawEntry>& entries) {
    folder_.Write("a.docx", RawZip(entries));
    return Package::Open(folder_.Path("a.docx"));
  }
  Package SavedAndOpened(const Package& package) {
    package.SaveAs(folder_.Path("b.docx"));
    return Package::Open(folder_.Path("b.docx"));
  }
  std::string Refusal(const std::string& name) {
    const Error error = ErrorOf([&] { Package::Open(folder_.Path(name)).MainPart(); });
    EXPECT_EQ(error.number(), 5);
    return ToUtf8(error.description());
  }

  TemporaryFolder folder_;
};

TEST_F(PackageTest, UntouchedPartsStayByteForByteInTheirOrder) {
  std::vector<RawEntry> entries = SmallDocument("Ahoj");
  std::rotate(entries.begin(), entries.begin() + 1, entries.end());  // content types last
  DeflatedPart deflated;
  deflated.Append(std::string(5000, 'q'));
  deflated.Finish();
  std::string compressed;
  deflated.ReadCompressed([&](std::string_view piece) { compressed += piece; });
  entries.push_back({"word/", ""});
  entries.push_back({"word/unknown.bin", compressed, 8, 0, deflated.crc(), 5000});
  Package package = Open(entries);
  EXPECT_EQ(package.ContentTypeOf("/WORD/document.XML"), package.ContentTypeOf(kMain));
  EXPECT_EQ(package.ContentTypeOf("/docProps/app.xml"), "application/xml");
  EXPECT_EQ(package.ContentTypeOf("/word/unknown.bin"), "");

  package.ReplacePart("/Word/Document.xml", "<new/>");
  const Package saved = SavedAndOpened(package);
  EXPECT_THAT(saved.PartNames(), ElementsAre("/_rels/.rels", kMain, "/word/unknown.bin"));
  EXPECT_EQ(saved.ReadPart(kMain), "<new/>");
  EXPECT_EQ(saved.ReadPart("/_rels/.rels"), entries[0].data);
  EXPECT_EQ(saved.ReadPart("/[content_types].xml"), entries[2].data);
  const ZipReader zip(folder_.Path("b.docx"));
  EXPECT_EQ(zip.entries().front().name, "[Content_Types].xml");
  std::string copied;
  zip.ReadCompressed(zip.entries().back(), [&](std::string_view piece) { copied += piece; });
  EXPECT_EQ(copied, compressed);
}

TEST_F(PackageTest, PartsAreAddedChangedAndRemoved) {
  Package package = Open(SmallDocument("x"));
  package.SetContentType(kMain, "text/a&b");
  package.AddPart(package.FreshPartName("/word/header#.xml"), "h", "<h/>");
  const std::string second = package.FreshPartName("/word/header#.xml");
  EXPECT_EQ(second, "/word/header2.xml");
  const auto deflated = std::make_shared<DeflatedPart>();
  deflated->Append("<h2/>");
  deflated->Finish();
  package.AddPart(second, "h", deflated);
  package.AddPart("/word/streamed.xml", "s", [](PartSink& sink) { sink.Append("<s/>"); });
  Relationships relationships = package.RelationshipsOf(kMain);
  EXPECT_EQ(relationships.Add("t", second), "rId1");
  package.SetRelationships(relationships);
  EXPECT_EQ(package.ReadPart(second), "<h2/>");
  EXPECT_EQ(ErrorOf([&] { package.ReadPart("/word/streamed.xml"); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { package.AddPart("/WORD/header1.xml", "h", ""); }).number(), 5);
  for (const char* name : {"word/a.xml", "/a/../b.xml", "/a b.xml", "/a/", "/a\\b", "/", "/a."}) {
    EXPECT_EQ(ErrorOf([&] { package.AddPart(name, "h", ""); }).number(), 5) << name;
  }

  Package saved = SavedAndOpened(package);
  EXPECT_EQ(saved.ReadPart("/word/header1.xml"), "<h/>");
  EXPECT_EQ(saved.ReadPart("/word/streamed.xml"), "<s/>");
  EXPECT_EQ(saved.ContentTypeOf(second), "h");
  EXPECT_EQ(saved.ContentTypeOf(kMain), "text/a&b");
  EXPECT_EQ(saved.RelationshipsOf(kMain).Find("rId1")->target, "header2.xml");

  const Package before = saved;
  saved.RemovePart(kMain);
  saved.RemovePart("/nothing.xml");
  EXPECT_FALSE(saved.HasPart("/word/_rels/document.xml.rels"));
  EXPECT_EQ(SavedAndOpened(saved).ContentTypeOf(kMain), "application/xml");  // its extension's again
  EXPECT_EQ(saved.RelatedPart(Package::kRoot, "officeDocument"), std::nullopt);
  EXPECT_EQ(before.MainPart(), kMain);  // the copy has it all, from a file that was replaced meanwhile
  EXPECT_FALSE(before.ReadPart(kMain).empty());
}

TEST_F(PackageTest, AFailedSaveLeavesTheOldFile) {
  Package package = Open(SmallDocument("x"));
  package.ReplacePart(kMain, [](PartSink& sink) {
    sink.Append("<half");
    Raise(RuntimeError::kOverflow);
  });
  const std::string before = folder_.Read("a.docx");
  EXPECT_EQ(ErrorOf([&] { package.SaveAs(folder_.Path("a.docx")); }).number(), 6);
  EXPECT_EQ(folder_.Read("a.docx"), before);
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(PackageTest, CoreProperties) {
  constexpr const char* kPart = "/docProps/core.xml";
  constexpr std::string_view kRoot = "<c:coreProperties xmlns:c=\"cp\" xmlns:d=\"http://purl.org/dc/terms/\">";
  constexpr std::string_view kDates =
      "<dcterms:created xmlns:dcterms=\"http://purl.org/dc/terms/\" "
      "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
      "xsi:type=\"dcterms:W3CDTF\">2026-02-03T00:00:00Z</dcterms:created><dcterms:modified "
      "xmlns:dcterms=\"http://purl.org/dc/terms/\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
      "xsi:type=\"dcterms:W3CDTF\">2026-02-03T00:00:00Z</dcterms:modified>";
  const auto changed = [&](std::string_view properties) { return std::string(kRoot).append(properties); };
  const std::pair<std::string, std::string> rows[] = {
      {changed("<title>T</title><c:lastModifiedBy>x</c:lastModifiedBy><d:created>1999</d:created><d:modified/>"
               "<creator>A</creator></c:coreProperties>"),
       "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n" +
           changed("<title>T</title><creator>A</creator>").append(kDates).append("</c:coreProperties>")},
      {changed("<title>"), changed("<title>")},  // no XML: nothing is made worse
  };
  for (const auto& [before, after] : rows) {
    Package package = Open(SmallDocument("x"));
    SetDayOfOrigin(package, "2026-02-03");
    EXPECT_FALSE(package.HasPart(kPart));
    package.AddPart(kPart, "application/vnd.openxmlformats-package.core-properties+xml", before);
    Relationships relationships = package.RelationshipsOf(Package::kRoot);
    relationships.Add("http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties", kPart);
    package.SetRelationships(relationships);
    SetDayOfOrigin(package, "2026-02-03");
    EXPECT_EQ(SavedAndOpened(package).ReadPart(kPart), after);
  }
  EXPECT_THAT(Today(), ::testing::MatchesRegex("20[0-9]{2}-[01][0-9]-[0-3][0-9]"));
}

TEST_F(PackageTest, WhatIsNoPackageIsCalledByItsName) {
  folder_.Write("old.doc", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and so on");
  folder_.Write("a.odt", RawZip({{"mimetype", "application/vnd.oasis.opendocument.text"}}));
  folder_.Write("a.rtf", "{\\rtf1 x}");
  folder_.Write("a.zip", RawZip({{"a", "1"}}));
  folder_.Write("empty.docx", "");
  std::vector<RawEntry> noMain = SmallDocument("x");
  noMain.pop_back();
  folder_.Write("nomain.docx", RawZip(noMain));
  std::vector<RawEntry> badTypes = SmallDocument("x");
  badTypes[0].data = "<Types/>";
  folder_.Write("types.docx", RawZip(badTypes));
  const std::pair<const char*, const char*> rows[] = {
      {"old.doc", "old.doc is not an Office document: it is a binary document of an earlier version, or protected"},
      {"a.odt", "OpenDocument"},
      {"a.rtf", "rich text"},
      {"a.zip", "it has no list of content types"},
      {"empty.docx", "it is empty"},
      {"nomain.docx", "it has no main part"},
      {"types.docx", "part [Content_Types].xml: it is no list of content types"},
  };
  for (const auto& [name, reason] : rows) EXPECT_THAT(Refusal(name), HasSubstr(reason));
  EXPECT_EQ(ErrorOf([&] { Package::Open(folder_.Path("none.docx")); }).number(), 53);
}

TEST_F(PackageTest, TargetsAreResolvedWithinThePackage) {
  const struct {
    const char* source;
    const char* target;
    const char* part;  // null: leaves the package
  } rows[] = {
      {"/", "word/document.xml", "/word/document.xml"},
      {kMain, "media/a.png", "/word/media/a.png"},
      {kMain, "../customXml/./item1.xml", "/customXml/item1.xml"},
      {kMain, "/xl//b.xml#Sheet1", "/xl/b.xml"},
      {kMain, "#bookmark", kMain},
      {kMain, "../../a.xml", nullptr},
      {"/", "..", nullptr},
      {kMain, "http://a/b", nullptr},
  };
  for (const auto& [source, target, part] : rows) {
    const std::optional<std::string> resolved = ResolveTarget(source, target);
    EXPECT_EQ(resolved, part ? std::optional<std::string>(part) : std::nullopt) << target;
    if (!part) continue;
    EXPECT_EQ(ResolveTarget(source, RelativeTarget(source, part)), part) << target;
  }
  EXPECT_EQ(RelativeTarget("/xl/worksheets/sheet1.xml", "/xl/drawings/d1.xml"), "../drawings/d1.xml");
  EXPECT_EQ(RelativeTarget("/word/document.xml", "/wordy/a.xml"), "../wordy/a.xml");
  EXPECT_EQ(RelationshipsPartOf("/"), "/_rels/.rels");
  EXPECT_EQ(RelationshipsPartOf(kMain), "/word/_rels/document.xml.rels");
}

TEST_F(PackageTest, RelationshipsAreKeptWhateverTheirFamily) {
  const std::string strict = "http://purl.oclc.org/ooxml/officeDocument/relationships/";
  const std::string xml =
      R"(<p:Relationships xmlns:p="http://schemas.openxmlformats.org/package/2006/relationships">)"
      R"(<p:Relationship Id="rId3" Type=")" +
      strict +
      R"(header" Target="h&amp;1.xml"/>)"
      R"(<p:Relationship Id="x" Type="urn:header" Target="file:///c:/a.txt" TargetMode="External"/>)"
      R"(</p:Relationships>)";
  Relationships list = Relationships::Parse(xml, kMain, "f");
  ASSERT_EQ(list.all().size(), 2u);
  EXPECT_EQ(list.FirstOf("header")->id, "rId3");
  EXPECT_EQ(list.FirstOf("footer"), nullptr);
  EXPECT_EQ(list.PartOf(list.all()[0]), "/word/h&1.xml");
  EXPECT_EQ(list.PartOf(list.all()[1]), std::nullopt);
  EXPECT_EQ(list.AddExternal("t", "http://a/?b&c"), "rId4");
  list.SetPart("rId3", "/word/h2.xml");
  list.Remove("x");
  EXPECT_EQ(list.Add("t", "/docProps/app.xml"), "rId5");
  list.Remove("rId5");
  EXPECT_EQ(list.Add("t", "/docProps/app.xml"), "rId6");  // a number is never used again
  const Relationships again = Relationships::Parse(list.ToXml(), kMain, "f");
  ASSERT_EQ(again.all().size(), 3u);
  EXPECT_EQ(again.all()[0].target, "h2.xml");
  EXPECT_EQ(again.all()[1].target, "http://a/?b&c");
  EXPECT_TRUE(again.all()[1].external);
  EXPECT_EQ(again.PartOf(again.all()[2]), "/docProps/app.xml");

  const std::string twice = R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
                            R"(<Relationship Id="a" Type="t" Target="x"/><Relationship Id="a" Type="t" Target="y"/>)"
                            R"(</Relationships>)";
  EXPECT_THAT(ToUtf8(ErrorOf([&] { Relationships::Parse(twice, kMain, "f.docx"); }).description()),
              HasSubstr("f.docx is not an Office document: part /word/_rels/document.xml.rels: the id a occurs twice"));
}

}  // namespace
}  // namespace zorkanca::testing
