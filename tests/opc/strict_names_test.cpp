// Strict packages read and are written as if they were in the usual namespaces.
#include "opc/strict_names.h"

#include <gtest/gtest.h>

#include "opc/package.h"
#include "support/raw_zip.h"
#include "support/temporary_folder.h"

namespace zorkanca::testing {
namespace {

std::string Translated(std::string_view xml, std::size_t piece) {
  std::string result;
  StrictTranslator translator([&](std::string_view bytes) { result += bytes; });
  for (std::size_t at = 0; at < xml.size(); at += piece) translator.Append(xml.substr(at, piece));
  translator.Finish();
  return result;
}

TEST(StrictNames, AreTranslatedInAttributesAlone) {
  const std::string s = "http://purl.oclc.org/ooxml/";
  const std::string t = "http://schemas.openxmlformats.org/";
  const std::string longValue = s + std::string(300, 'x');
  const std::pair<std::string, std::string> rows[] = {
      {"<w:d xmlns:w=\"" + s + "wordprocessingml/main\" w:conformance=\"strict\"><w:p/></w:d>",
       "<w:d xmlns:w=\"" + t + "wordprocessingml/2006/main\" w:conformance=\"transitional\"><w:p/></w:d>"},
      {"<x xmlns = '" + s + "spreadsheetml/main'  conformance='strict'/>",
       "<x xmlns = '" + t + "spreadsheetml/2006/main'  conformance='transitional'/>"},
      {"<R Type=\"" + s + "officeDocument/relationships/extendedProperties\"/>",
       "<R Type=\"" + t + "officeDocument/2006/relationships/extended-properties\"/>"},
      {"<a:graphicData uri='" + s + "drawingml/picture'>", "<a:graphicData uri='" + t + "drawingml/2006/picture'>"},
      {"<P xmlns='" + s + "officeDocument/customProperties'/>",
       "<P xmlns='" + t + "officeDocument/2006/custom-properties'/>"},
      {"<!-- <a b='" + s + "x/y'> --><?p x='" + s + "x/y'?><![CDATA[<a b='" + s + "x/y'>]]>", ""},
      {"<t a='>' b=\"'\">\"" + s + "x/y\" ='" + s + "x/y'</t>", ""},
      {"<t val='strict' a='" + s + "main' b='" + longValue + "' c=' " + s + "x/y'/>", ""},
      {"<t a=\"" + s, ""},
      {std::string("\xFF\xFE<\0a\0", 6), ""},
  };
  for (const auto& [strict, translated] : rows) {
    for (const std::size_t piece : {1u, 7u, 4096u}) {
      EXPECT_EQ(Translated(strict, piece), translated.empty() ? strict : translated) << piece;
    }
  }
}

TEST(StrictNames, GoWithTheWholePackage) {
  const TemporaryFolder folder;
  std::vector<RawEntry> entries = SmallDocument("text");
  for (RawEntry& entry : entries) {
    for (const auto& [usual, strict] :
         {std::pair{"schemas.openxmlformats.org/officeDocument/2006/", "purl.oclc.org/ooxml/officeDocument/"},
          std::pair{"schemas.openxmlformats.org/wordprocessingml/2006/", "purl.oclc.org/ooxml/wordprocessingml/"}}) {
      if (const std::size_t at = entry.data.find(usual); at != std::string::npos) {
        entry.data.replace(at, std::string_view(usual).size(), strict);
      }
    }
  }
  const std::string picture = "\"http://purl.oclc.org/ooxml/a/b\" in a picture";
  entries.push_back({"word/media/a.png", picture});
  folder.Write("strict.docx", RawZip(entries));
  const Package package = Package::Open(folder.Path("strict.docx"));
  package.SaveAs(folder.Path("saved.docx"));
  const ZipReader saved(folder.Path("saved.docx"));
  const std::vector<RawEntry> usual = SmallDocument("text");
  for (std::size_t i = 0; i < usual.size(); ++i) {
    EXPECT_EQ(saved.Read(saved.entries()[i]), usual[i].data);
    EXPECT_EQ(package.ReadPart('/' + usual[i].name), usual[i].data);
  }
  EXPECT_EQ(package.ReadPart("/word/media/a.png"), picture);
  EXPECT_EQ(Package::Open(folder.Path("saved.docx")).MainPart(), "/word/document.xml");
}

}  // namespace
}  // namespace zorkanca::testing
