#include "libreoffice/pdf_outline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/raw_zip.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// A PDF with these objects, numbered from 1, under one table; the last object is the catalog.
std::string Pdf(const std::vector<std::string>& objects) {
  std::string pdf = "%PDF-1.6\n";
  std::string table = "0000000000 65535 f \n";
  for (std::size_t i = 0; i < objects.size(); ++i) {
    const std::string place = std::to_string(pdf.size());
    table += std::string(10 - place.size(), '0') + place + " 00000 n \n";
    pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n\n";
  }
  const std::string size = std::to_string(objects.size() + 1);
  return pdf + "xref\n0 " + size + "\n" + table + "trailer\n<</Size " + size + "/Root " +
         std::to_string(objects.size()) + " 0 R\n/DocChecksum /ABC\n>>\nstartxref\n" + std::to_string(pdf.size()) +
         "\n%%EOF\n";
}

TEST(PdfOutline, PlacesFollowInTheOrderOfTheNames) {
  TemporaryFolder folder;
  const std::string before = Pdf(
      {"<</Type/Page>>", "<</a5F1[1 0 R/XYZ 10 20 0]\n/25C3259Aa2520b[1 0 R/XYZ 30 40 0]\n/hid[1 0 R/XYZ 0 0 0]\n>>",
       "<</Type/Catalog\n/Dests 2 0 R>>"});
  folder.Write("a.pdf", before);
  EXPECT_TRUE(AddOutline(folder.Path("a.pdf"), {"Úa b", "none", "a_1"}));
  const std::string after = folder.Read("a.pdf");
  EXPECT_THAT(after, StartsWith(before));
  const std::string added = after.substr(before.size());
  EXPECT_THAT(added, HasSubstr("3 0 obj\n<</Type/Catalog/Outlines 4 0 R/PageMode/UseOutlines\n/Dests 2 0 R>>\nendobj"));
  EXPECT_THAT(added, HasSubstr("4 0 obj\n<</Type/Outlines/First 5 0 R/Last 6 0 R/Count 2>>\nendobj"));
  EXPECT_THAT(added,
              HasSubstr("5 0 obj\n<</Title<FEFF00DA006100200062>/Dest[1 0 R/XYZ 30 40 0]/Next 6 0 R/Parent 4 0 R>>"));
  EXPECT_THAT(added,
              HasSubstr("6 0 obj\n<</Title<FEFF0061005F0031>/Dest[1 0 R/XYZ 10 20 0]/Prev 5 0 R/Parent 4 0 R>>"));
  const std::string table = std::to_string(after.find("xref\n3 1\n"));
  EXPECT_THAT(added,
              HasSubstr("trailer\n<</Size 7/Prev " + std::to_string(before.rfind("xref\n0 ")) + "/Root 3 0 R\n\n>>"));
  EXPECT_THAT(added, EndsWith("\nstartxref\n" + table + "\n%%EOF\n"));
  const std::string place = std::to_string(after.find("6 0 obj"));
  EXPECT_THAT(added, HasSubstr("\n6 1\n" + std::string(10 - place.size(), '0') + place + " 00000 n \n"));
}

TEST(PdfOutline, OtherFilesStayAsTheyAre) {
  TemporaryFolder folder;
  const std::string plain = Pdf({"<<>>", "<</Type/Catalog/Dests 1 0 R>>"});
  for (const std::string& pdf :
       {plain, std::string(), std::string("%PDF-1.6\nstartxref\n99999\n%%EOF"), plain.substr(plain.size() / 2),
        Pdf({"<</Type/Catalog>>"}), Pdf({"<</a[1]>>", "<</Type/Catalog/Dests 77 0 R>>"}),
        std::string("%PDF-1.6\nxref\n0 1\nstartxref\n9\n%%EOF"),
        std::string("xref\n0 9\ntrailer <</Size 9/Root 3>>startxref 0")}) {
    folder.Write("a.pdf", pdf);
    EXPECT_FALSE(AddOutline(folder.Path("a.pdf"), {"a"})) << pdf;
    EXPECT_EQ(folder.Read("a.pdf"), pdf);
  }
}

TEST(PdfOutline, HiddenBookmarksOfADocumentAreLeftOut) {
  TemporaryFolder folder;
  std::vector<RawEntry> entries = SmallDocument("x");
  entries[2].data =
      "<w:document xmlns:w='x'><w:bookmarkStart w:id=\"1\" w:name=\"Prvn\u00ed\"/><w:bookmarkEnd w:id=\"1\"/>"
      "<w:bookmarkStart w:name=\"_GoBack\" w:id=\"2\"/><w:bookmarkStart w:name=\"druh\u00e1\" "
      "w:id=\"3\"/></w:document>";
  folder.Write("a.docx", RawZip(entries));
  folder.Write("a.rtf", "{\\rtf1}");
  EXPECT_THAT(VisibleBookmarks(folder.Path("a.docx")), ElementsAre("Prvn\u00ed", "druh\u00e1"));
  EXPECT_THAT(VisibleBookmarks(folder.Path("a.rtf")), ElementsAre());
}

}  // namespace
}  // namespace zorkanca::testing
