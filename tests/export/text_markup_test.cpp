#include "export/text_markup.h"

#include <gtest/gtest.h>

#include "export/export_session.h"
#include "export/word_opening.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class TextMarkupTest : public ::testing::Test {
 protected:
  WordDocumentReference Open(TextView text) {
    computer.word.templateText = text;
    GetOpenDocArguments opening;
    EXPECT_TRUE(OpenWordDocument(context, opening));
    return opening.roRetDoc;
  }

  MemoryPlatform computer;
  ExportContext context{.platform = computer.platform};
};

TEST_F(TextMarkupTest, MarkersAreFoundToTheLetter) {
  const struct {
    TextView text, marker;
    bool found;
    TextView left;
  } kRows[] = {
      {u"{<A>}x{<A>}", u"{<A>}", true, u"x{<A>}"},
      {u"x{<A>}", u"{<A>}", true, u"x"},
      {u"x{<a>}", u"{<A>}", false, u"x{<a>}"},
      {u"{<h}x", u"{<h}", true, u"{<h}x"},
      {u"", u"{<A>}", false, u""},
  };
  for (const auto& row : kRows) {
    const WordDocumentReference document = Open(row.text);
    EXPECT_EQ(FindMarker(*document, row.marker), row.found) << Shown(row.text);
    EXPECT_EQ(Shown(document->Content()->Text()), Shown(row.left));
  }
}

TEST_F(TextMarkupTest, BlocksAreKeptOnce) {
  const struct {
    TextView text, left;
  } kRows[] = {
      {u"{<h}H{h>}1{<p}P{p>}{<h}H{h>}2{<p}P{p>}{<h}H{h>}3{<p}P{p>}", u"H123P"},
      {u"a{<h}H{h>}b", u"aHb"},
      {u"a{<p}P{p>}b", u"aPb"},
      {u"{<h}H", u"H"},
      {u"P{p>}", u"P"},
      {u"h>} p>} plain {h>}", u"h>} p>} plain {h>}"},
      {u"", u""},
  };
  for (const auto& row : kRows) {
    const WordDocumentReference document = Open(row.text);
    for (const bool updating : {true, false}) {
      document->Application()->ScreenUpdating(updating);
      ApplyBlockMarkup(*document);
      EXPECT_EQ(document->Application()->ScreenUpdating(), updating);
      EXPECT_EQ(Shown(document->Content()->Text()), Shown(row.left)) << Shown(row.text);
    }
  }
}

TEST_F(TextMarkupTest, HeaderAndFooterTakeTheFirstRecord) {
  MemoryDatabase database;
  database.columns = {{u"kod", FieldType::kText},
                      {u"nazev", FieldType::kText},
                      {u"cena", FieldType::kDouble},
                      {u"prazdne", FieldType::kText}};
  database.rows = {{Text(u"K1"), Text(u"«NAZEV»«cena»«nazev»"), 1.5, Null()}, {Text(u"K2"), Text(u"x"), 2.5, Null()}};
  const WordDocumentReference document = Open(u"x");
  computer.word.headerText = u"«kod»";
  FillHeaderFooterPlaceholders(context, *document);
  EXPECT_EQ(Shown(computer.word.headerText), "«kod»") << "no export runs";

  ExportSession session(context);
  session.Hold(database.OpenRecordset(u"", RecordsetType::kDynaset, 0));
  const struct {
    TextView story, filled;
  } kRows[] = {
      {u"«kod» «KOD» «cena» «cena»", u"K1 K1 1,5 1,5"},
      {u"«chybi» «kod»", u"«chybi» «kod»"},  // the first that names no column ends it
      {u"«kod» «chybi» «kod» «cena»", u"K1 «chybi» K1 «cena»"},
      {u"«prazdne» «kod»", u"«prazdne» «kod»"},        // Null is no text
      {u"«nazev» «kod»", u"«NAZEV»«cena»«nazev» K1"},  // placeholders of a value stay
      {u"«» «kod»", u"«» «kod»"},
      {u"» « text", u"» « text"},
  };
  for (const auto& row : kRows) {
    session.recordset().MoveLast();
    computer.word.headerText = row.story;
    computer.word.footerText = u"strana «kod»";
    FillHeaderFooterPlaceholders(context, *document);
    EXPECT_EQ(Shown(computer.word.headerText), Shown(row.filled));
    EXPECT_EQ(Shown(computer.word.footerText), "strana K1") << "each is filled on its own";
  }
}

}  // namespace
}  // namespace zorkanca::testing
