// Sections of merged letters and margins of sections, as trees before and after.
#include <gtest/gtest.h>

#include "support/short_word_xml.h"
#include "word/forms/page_setup.h"
#include "word/merge/section_assembly.h"

namespace zorkanca::testing {
namespace {

TEST(WordSections, SetCopiesApart) {
  struct Row {
    const char* body;
    bool restartPages;
    const char* separated;
  };
  const Row rows[] = {
      {"<p>(a)</p><sectPr><pgSz w=\"1\"/></sectPr>", false,
       "<p><pPr><zk:break><sectPr><type val=\"nextPage\"/><pgSz w=\"1\"/></sectPr></zk:break></pPr>(a)</p>"
       "<sectPr><type val=\"nextPage\"/><pgSz w=\"1\"/></sectPr>"},
      {"<p><pPr><jc val=\"left\"/><rPr/></pPr>(a)</p><sectPr/>", false,
       "<p><pPr><jc val=\"left\"/><rPr/><zk:break><sectPr><type val=\"nextPage\"/></sectPr></zk:break></pPr>(a)</p>"
       "<sectPr><type val=\"nextPage\"/></sectPr>"},
      {"<tbl/><sectPr/>", false,
       "<tbl/><zk:carrier><p><pPr><sectPr><type val=\"nextPage\"/></sectPr></pPr></p></zk:carrier>"
       "<sectPr><type val=\"nextPage\"/></sectPr>"},
      {"<p>(a)</p><sectPr><type val=\"continuous\"/></sectPr>", false,
       "<p><pPr><zk:break><sectPr><type val=\"nextPage\"/></sectPr></zk:break></pPr>(a)</p>"
       "<sectPr><type val=\"nextPage\"/></sectPr>"},
      {"<p>(a)</p><sectPr><pgSz w=\"1\"/><cols/></sectPr>", true,
       "<p><pPr><zk:break><sectPr><type val=\"nextPage\"/><pgSz w=\"1\"/><pgNumType "
       "start=\"1\"/><cols/></sectPr></zk:break></pPr>(a)</p>"
       "<sectPr><type val=\"nextPage\"/><pgSz w=\"1\"/><pgNumType start=\"1\"/><cols/></sectPr>"},
      {"<p>(a)</p><sectPr><pgNumType start=\"7\"/></sectPr>", true,
       "<p><pPr><zk:break><sectPr><type val=\"nextPage\"/><pgNumType start=\"7\"/></sectPr></zk:break></pPr>(a)</p>"
       "<sectPr><type val=\"nextPage\"/><pgNumType start=\"7\"/></sectPr>"},
      // the first section begins a copy, the last one ends it
      {"<p><pPr><sectPr><type val=\"continuous\"/></sectPr></pPr></p><p>(a)</p><sectPr><cols/></sectPr>", true,
       "<p><pPr><sectPr><type val=\"nextPage\"/><pgNumType start=\"1\"/></sectPr></pPr></p>"
       "<p><pPr><zk:break><sectPr><cols/></sectPr></zk:break></pPr>(a)</p><sectPr><cols/></sectPr>"},
  };
  for (const Row& row : rows) {
    const pugi::xml_document document = ShortXmlTree(row.body);
    word::SeparateCopies(document.document_element(), row.restartPages);
    EXPECT_EQ(InsideOf(document), row.separated) << row.body;
  }
}

TEST(WordSections, TakeMarginsInTwentiethsOfAPoint) {
  struct Row {
    const char* section;
    bool left;
    float points;
    const char* after;
  };
  const std::string rest = "right=\"1417\" bottom=\"1417\"";
  const Row rows[] = {
      {"<sectPr><pgMar left=\"1\" top=\"2\"/></sectPr>", true, 72, "<sectPr><pgMar left=\"1440\" top=\"2\"/></sectPr>"},
      {"<sectPr><pgMar left=\"1\" top=\"2\"/></sectPr>", false, 0.5F,
       "<sectPr><pgMar left=\"1\" top=\"10\"/></sectPr>"},
      {"<sectPr><pgMar left=\"1\" top=\"2\"/></sectPr>", true, 28.35F,
       "<sectPr><pgMar left=\"567\" top=\"2\"/></sectPr>"},
      {"<sectPr><pgSz w=\"9\"/><cols/></sectPr>", true, 10,
       "<sectPr><pgSz w=\"9\"/><pgMar top=\"1417\" right=\"1417\" bottom=\"1417\" left=\"200\" header=\"708\" "
       "footer=\"708\" gutter=\"0\"/><cols/></sectPr>"},
  };
  for (const Row& row : rows) {
    const pugi::xml_document document = ShortXmlTree(row.section);
    int changes = 0;
    word::SectionMargins margins([&] { return std::vector{document.document_element().first_child()}; },
                                 [&] { ++changes; });
    row.left ? margins.LeftMargin(row.points) : margins.TopMargin(row.points);
    EXPECT_EQ(InsideOf(document), row.after) << row.points;
    EXPECT_EQ(changes, 1);
  }
}

}  // namespace
}  // namespace zorkanca::testing
