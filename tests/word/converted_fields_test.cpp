// Templates in earlier formats, read through the real LibreOffice and merged.
#include <gmock/gmock.h>

#include "support/converted_documents.h"
#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

using ::testing::HasSubstr;

const std::string kLong = "MERGEFIELD " + std::string(60, 'x');
const std::string kResult(40, 'y');

std::string LongField() {
  return F(kLong, kResult);
}

// Eight fields: four in the text, two neighbours that will be one, and one each in a text box, the header and a note.
void WriteModel(const std::string& path) {
  const std::string box =
      "<w:r><w:pict><v:shape xmlns:v=\"urn:schemas-microsoft-com:vml\" style=\"position:absolute;width:200pt;"
      "height:50pt\"><v:textbox><w:txbxContent>" +
      P(LongField()) + "</w:txbxContent></v:textbox></v:shape></w:pict></w:r>";
  const std::string form =
      "<w:r><w:fldChar w:fldCharType=\"begin\"><w:ffData><w:name w:val=\"Jmeno\"/><w:enabled/><w:textInput>"
      "<w:default w:val=\"Novák\"/></w:textInput></w:ffData></w:fldChar></w:r><w:r><w:instrText> FORMTEXT "
      "</w:instrText>"
      "</w:r>" +
      FieldCharacter("separate") + R("Novák") + FieldCharacter("end");
  WriteWordFile(path, {.body = P(R("Číslo ") + LongField()) + P(LongField()) +
                               P(LongField() + R(std::string(30, '.')) + LongField()) + P(LongField()) + P(form) +
                               P(box) + P(R("Pozn") + "<w:r><w:footnoteReference w:id=\"2\"/></w:r>") +
                               "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rId2\"/></w:sectPr>",
                       .others = {{"footnotes", "<w:footnote w:id=\"2\">" + P(LongField()) + "</w:footnote>"},
                                  {"header", P(LongField())}}});
}

class ConvertedFields : public ::testing::Test {
 protected:
  ConvertedFields()
      : converter_({.program = {},
                    .folder = folder_.Path("private"),
                    .localeTag = {},
                    .cancelled = {},
                    .warn = [this](TextView text) { warnings_ += ToUtf8(text) + "\n"; }}) {}

  TemporaryFolder folder_;
  std::string warnings_;
  LibreOfficeConverter converter_;
};

TEST_F(ConvertedFields, BinaryTemplatesKeepTheirCodes) {
  WriteModel(folder_.Path("t.docx"));
  MakeWithLibreOffice(folder_, "t.docx", "doc");
  std::string bytes = folder_.Read("t.doc");
  {
    OverwrittenFields fields(bytes);
    fields.Code(0, u" MERGEFIELD Cislo \\# \"0000\" ", 59);
    fields.Code(1, u" MERGEFIELD Den \\@ \"d. M. yyyy\" ", 59);
    fields.Nest(2, u" IF ", 7, u" MERGEFIELD Kc ", u" > 5 \"velká\" \"malá\" ");
    fields.Code(4, u" NEXTIF 1 = 1 ", 42);
    fields.Code(6, u" MERGEFIELD Kc \\# 0,00 ", 59);
    fields.Code(7, u" DATUM \\@ yyyy ", 31);
    fields.Code(8, u" MERGEFIELD Den \\* Upper ", 59);
  }
  folder_.Write("t.dot", bytes);
  converter_.ToOpenXml(folder_.Path("t.dot"), folder_.Path("t.out"));
  const Package package = Package::Open(folder_.Path("t.out"));
  EXPECT_EQ(FieldsOf(package, "/word/document.xml"),
            "{ MERGEFIELD Cislo \\# \"0000\" |}{ MERGEFIELD Den \\@ \"d. M. yyyy\" |}"
            "{ IF { MERGEFIELD Kc |} &gt; 5 \"velká\" \"malá\" |}{ NEXTIF 1 = 1 |}{ FORMTEXT |}"
            "{ MERGEFIELD Den \\* Upper |}{ MERGEFIELD Den \\* Upper |}");  // text boxes stand there twice
  EXPECT_EQ(FieldsOf(package, "/word/footnotes.xml"), "{ MERGEFIELD Kc \\# 0,00 |}");
  EXPECT_EQ(FieldsOf(package, "/word/header1.xml"), "{ DATE \\@ yyyy |}");
  EXPECT_THAT(package.ReadPart("/word/document.xml"), HasSubstr("<w:name w:val=\"Jmeno\"/>"));

  std::string narrow = bytes;
  WriteTextInBytes(narrow);
  folder_.Write("t.doc", narrow);
  WordEngine engine(*FindLocale(u"cs-CZ"), converter_, [](TextView) {});
  const WordDocumentReference main = engine.StartWord()->AddDocument(folder_.TextPath("t.doc"), false);
  folder_.Write("data.txt", "Cislo;Den;Kc\r\n12;24.11.2026;6\r\n");
  main->MailMerge().OpenDataSource({.Name = folder_.TextPath("data.txt")});
  main->MailMerge().Execute(false);
  EXPECT_THAT(Shown(engine.StartWord()->ActiveDocument()->Content()->Text()),
              HasSubstr("Císlo 0012\\r24. 11. 2026\\rvelká\\r"));
  EXPECT_EQ(warnings_, "");

  bytes[bytes.find(std::string("\x13\0 ", 3))] = 'x';  // no character of a field, as its table has it
  folder_.Write("t.doc", bytes);
  converter_.ToOpenXml(folder_.Path("t.doc"), folder_.Path("t.out"));
  EXPECT_EQ(warnings_,
            "Fields of " + folder_.Path("t.doc") +
                " may have lost their formats and conditions: the table of its fields contradicts its text.\n");
}

TEST_F(ConvertedFields, TextFormatsKeepTheirCodes) {
  folder_.Write(
      "t.rtf",
      "{\\rtf1\\ansi\\ansicpg1250\\deff0{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}}\\pard\\uc0 \\'c8 "
      "{\\b {\\field\\fldedit{\\*\\fldinst {MERGEFIELD }{\\u268 islo \\\\# \"0000\"}}{\\fldrslt {7}}}}\\par\n"
      "{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst MERGEFIELD Kc }{\\fldrslt 6}}>5 \"a\\u269 \" \"b\"}{\\fldrslt "
      "x}}{\\field{\\*\\fldinst NEXTIF 1 = 2 }}{\\field\\fldlock{\\*\\fldinst DATE }{\\fldrslt x}}\\par\n"
      "{\\field{\\*\\fldinst PAGE }{\\fldrslt 1}}{\\f1{\\field{\\*\\fldinst MERGEFIELD Kod }{\\fldrslt 6}}}\\par}");
  folder_.Write("t.xml",
                "<?xml version=\"1.0\"?><?mso-application progid=\"Word.Document\"?><w:wordDocument "
                "xmlns:w=\"http://schemas.microsoft.com/office/word/2003/wordml\" xml:space=\"preserve\"><w:body><w:p>"
                "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText> IF </w:instrText></w:r><w:fldSimple "
                "w:instr=\" MERGEFIELD Kc \\@ d \"><w:r><w:t>1</w:t></w:r></w:fldSimple><w:r><w:instrText> = 5 \"á\" "
                "</w:instrText>"
                "</w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r><w:r><w:t>x</w:t></w:r><w:r><w:fldChar "
                "w:fldCharType=\"end\"/></w:r></w:p></w:body></w:wordDocument>");
  const std::vector<Conversion> conversions = {{folder_.Path("t.rtf"), folder_.Path("rtf.out")},
                                               {folder_.Path("t.xml"), folder_.Path("xml.out")}};
  for (const std::optional<Error>& error : converter_.ToOpenXml(conversions)) EXPECT_FALSE(error) << error->what();
  EXPECT_EQ(warnings_, "");
  const Package rtf = Package::Open(folder_.Path("rtf.out"));
  EXPECT_EQ(FieldsOf(rtf, "/word/document.xml"),
            "{MERGEFIELD Čislo \\# \"0000\"|}{IF {MERGEFIELD Kc |}&gt;5 \"ač\" \"b\"|}{NEXTIF 1 = 2 }{DATE |}{ PAGE |}"
            "{MERGEFIELD Kod |}");
  EXPECT_EQ(CountOf(rtf.ReadPart("/word/document.xml"), "w:fldLock"), 1U);
  EXPECT_EQ(FieldsOf(Package::Open(folder_.Path("xml.out")), "/word/document.xml"),
            "{ IF { MERGEFIELD Kc \\@ d |} = 5 \"á\" |}");
}

}  // namespace
}  // namespace zorkanca::testing
