// What a client sets and asks for around a merge: what is taken, what is passed over, what is refused.
#include <functional>

#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

TEST(WordMergeMembers, TakeWhatAMergeIntoADocumentNeedsAndRefuseTheRest) {
  WordFixture bench;
  const WordDocumentReference main = bench.Add({.body = P(F("MERGEFIELD A"))});
  WordMailMerge& merge = main->MailMerge();
  struct Row {
    const char* what;
    std::int32_t error;  // 0 for none
    std::function<void()> call;
  };
  const Row rows[] = {
      {"to a new document", 0, [&] { merge.Destination(0); }},
      {"to a printer", 438, [&] { merge.Destination(1); }},
      {"no mail", 0, [&] { merge.MailAsAttachment(false); }},
      {"attached to mails", 438, [&] { merge.MailAsAttachment(true); }},
      {"no address", 0, [&] { merge.MailAddressFieldName(u""); }},
      {"an address", 438, [&] { merge.MailAddressFieldName(u"A"); }},
      {"no subject", 0, [&] { merge.MailSubject(u""); }},
      {"a subject", 438, [&] { merge.MailSubject(u"Upomínka"); }},
      {"the first record before all", 4608, [&] { merge.FirstRecord(0); }},
      {"the last record before all", 4608, [&] { merge.LastRecord(0); }},
      {"all records", 0, [&] { merge.LastRecord(kLastRecordOfSource); }},
      {"codes", 0, [&] { merge.ViewMailMergeFieldCodes(-1); }},
      {"codes, or results if those are seen", 0, [&] { merge.ViewMailMergeFieldCodes(9999998); }},
      {"a view that there is none of", 5, [&] { merge.ViewMailMergeFieldCodes(2); }},
      {"mails", 438, [&] { merge.MainDocumentType(static_cast<MainDocumentType>(4)); }},
      {"no merge", 438, [&] { merge.MainDocumentType(MainDocumentType::kNotAMergeDocument); }},
      {"with pauses", 438, [&] { merge.Execute(true); }},
      {"without data", 5631, [&] { merge.Execute(false); }},
  };
  for (const Row& row : rows) {
    if (row.error == 0) {
      EXPECT_NO_THROW(row.call()) << row.what;
    } else {
      EXPECT_EQ(ErrorOf(row.call).number(), row.error) << row.what;
    }
  }
  EXPECT_EQ(merge.MainDocumentType(), MainDocumentType::kNotAMergeDocument);  // nothing that was refused has stayed
  merge.OpenDataSource({.Name = bench.WriteData("A\r\n1\r\n2\r\n")});
  EXPECT_EQ(merge.MainDocumentType(), MainDocumentType::kFormLetters);
  merge.Execute(false);
  const WordDocumentReference merged = bench.Application()->ActiveDocument();
  EXPECT_EQ(Shown(merged->Content()->Text()), "1\f2\\r");
  EXPECT_EQ(ErrorOf([&] { merged->Content()->Find({.FindText = u"1", .ReplaceWith = u"3", .Replace = 2}); }).number(),
            438);
}

TEST(WordMergeMembers, TellTheKindThatTheTemplateWasMadeFor) {
  const std::pair<std::string, MainDocumentType> rows[] = {
      {"formLetters", MainDocumentType::kFormLetters}, {"mailingLabels", MainDocumentType::kMailingLabels},
      {"envelopes", MainDocumentType::kEnvelopes},     {"catalog", MainDocumentType::kCatalog},
      {"email", MainDocumentType::kFormLetters},       {"", MainDocumentType::kFormLetters},
  };
  WordFixture bench;
  for (const auto& [kind, type] : rows) {
    const std::string settings = "<w:mailMerge><w:mainDocumentType w:val=\"" + kind + "\"/></w:mailMerge>";
    const WordDocumentReference main = bench.Add({.body = P(""), .others = {{"settings", settings}}});
    EXPECT_EQ(main->MailMerge().MainDocumentType(), type) << kind;
    main->Close(false);
  }
}

TEST(WordMergeMembers, KeepDocumentsFromWhatNoEngineWrites) {
  WordFixture bench;
  const WordDocumentReference document = bench.Add({.body = P(R("x"))});
  const Text path = bench.folder.TextPath("out.pdf");
  const ExportDocumentArguments rows[] = {
      {.OutputFileName = path, .ExportFormat = 18},
      {.OutputFileName = path, .OpenAfterExport = true},
      {.OutputFileName = path, .Range = 1},
      {.OutputFileName = path, .Item = 7},
  };
  for (const ExportDocumentArguments& arguments : rows) {
    EXPECT_EQ(ErrorOf([&] { document->ExportAsFixedFormat(arguments); }).number(), 438);
  }
  EXPECT_EQ(ErrorOf([&] { document->SaveAs(path, static_cast<WordSaveFormat>(6)); }).number(), 438);
  EXPECT_EQ(ErrorOf([&] { document->PrimaryHeader(2); }).number(), 5941);
  EXPECT_FALSE(bench.folder.Has("out.pdf"));

  // A header that is not there is an empty paragraph, in which nothing is found and nothing can be put.
  const auto header = document->PrimaryHeader(1);
  EXPECT_EQ(Shown(header->Text()), "\\r");
  EXPECT_FALSE(header->Find({.FindText = u"x", .ReplaceWith = u"y", .Replace = 2}));
  header->Delete();
  EXPECT_EQ(CountOf(bench.SavedBody(*document), "headerReference"), 0u);
}

}  // namespace
}  // namespace zorkanca::testing
