#include "export/text_markup.h"

#include <gtest/gtest.h>

#include <random>

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
      {u"A{<h}{<h}BC{h>}D{h>}", u"A"},  // blocks in one another: the second one begins before the first one's end
      {u"{<p}A{<p}BC{p>}{p>}D", u"D"},
      {u"{<{<h}h}x{h>}y{h>}z", u"z"},  // the second marker comes together by the first deletion
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

// The rule itself, however long it takes.
Text NaiveBlocks(Text text) {
  const auto heading = [&](std::size_t from) { return text.find(u"{<h}", from); };
  if (const std::size_t start = heading(0); start != Text::npos) {
    text.erase(start, 4);
    if (const std::size_t end = text.find(u"{h>}", start); end != Text::npos) text.erase(end, 4);
    for (std::size_t next; (next = heading(0)) != Text::npos;) {
      const std::size_t end = text.find(u"{h>}", next + 4);
      if (end == Text::npos) break;
      text.erase(next, end + 4 - next);
    }
  }
  const auto openingBefore = [&](std::size_t end) { return end < 4 ? Text::npos : text.rfind(u"{<p}", end - 4); };
  if (const std::size_t end = text.rfind(u"{p>}"); end != Text::npos) {
    text.erase(end, 4);
    if (const std::size_t start = openingBefore(end); start != Text::npos) text.erase(start, 4);
    for (std::size_t last; (last = text.rfind(u"{p>}")) != Text::npos;) {
      const std::size_t start = openingBefore(last);
      if (start == Text::npos) break;
      text.erase(start, last + 4 - start);
    }
  }
  return text;
}

TEST_F(TextMarkupTest, BlocksAreThoseOfTheRule) {
  constexpr TextView kPieces[] = {u"{<h}", u"{h>}", u"{<p}", u"{p>}", u"{<", u"h}", u"{h", u">}", u"{", u"p>}", u"a"};
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    Text text;
    for (auto left = random() % 14; left > 0; --left) text += kPieces[random() % std::size(kPieces)];
    const WordDocumentReference document = Open(text);
    ApplyBlockMarkup(*document);
    ASSERT_EQ(Shown(document->Content()->Text()), Shown(NaiveBlocks(text))) << Shown(text);
    document->Close(false);
  }
}

TEST_F(TextMarkupTest, ManyBlocksAreSearchedOnce) {
  Text text;
  for (int record = 0; record < 1000; ++record) text += u"{<h}head{h>}detail{<p}foot{p>}";
  const WordDocumentReference document = Open(text);
  ApplyBlockMarkup(*document);
  EXPECT_EQ(document->Content()->Text().size(), 4 + 6 * 1000 + 4u);
  EXPECT_LT(computer.word.unitsSearched, 3 * text.size());
}

TEST_F(TextMarkupTest, HeaderAndFooterTakeTheFirstRecord) {
  MemoryDatabase database;
  database.columns = {{u"kod", FieldType::kText},
                      {u"nazev", FieldType::kText},
                      {u"cena", FieldType::kDouble},
                      {u"prazdne", FieldType::kText},
                      {u"odkaz", FieldType::kText}};
  database.rows = {{Text(u"K1"), Text(u"«NAZEV»«cena»«nazev»"), 1.5, Null(), Text(u"«x»")},
                   {Text(u"K2"), Text(u"x"), 2.5, Null(), Null()}};
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
      {u"«odkaz» «b«odkaz» a", u"«x» «b«x» a"},        // of which nothing is the author's: the search comes round
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
