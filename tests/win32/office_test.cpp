// Word and Excel driven by names: every member of the interfaces, and what arrives of it at the other side.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "support/text_support.h"
#include "win32/fake_automation.h"
#include "win32/office/excel_objects.h"
#include "win32/office/installed_office.h"
#include "win32/office/word_objects.h"

namespace zorkanca::testing {
namespace {

class OfficeMembers : public ::testing::Test {
 protected:
  OfficeMembers() {
    for (const char* number : {"Count", "WindowState", "Start", "End", "MainDocumentType"}) {
      world_.values[number] = ToVariant(2);
    }
    for (const char* text : {"Version", "FullName", "Name", "Text", "Result"}) world_.values[text] = ToVariant(u"ž");
    for (const char* truth : {"Visible", "ScreenUpdating", "CheckLanguage"}) world_.values[truth] = ToVariant(true);
  }
  ~OfficeMembers() override { EXPECT_EQ(world_.living, 0) << "a reference was not given back"; }

  FakeWorld world_;
};

TEST_F(OfficeMembers, OfWordsApplication) {
  win32::LateWordApplication word(world_.Root());
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { word.AddDocument(u"C:\\š.dot", false)->FullName(); }, "Documents.Add(\"C:\\š.dot\", False).FullName"},
      {[&] { word.AddDocument(u"", false)->FullName(); }, "Documents.Add.FullName"},
      {[&] {
         word.OpenDocument({.FileName = u"a.doc", .ConfirmConversions = false, .AddToRecentFiles = false})->FullName();
       },
       "Documents.Open(FileName:=\"a.doc\", ConfirmConversions:=False, ReadOnly:=False, AddToRecentFiles:=False, "
       "PasswordDocument:=\"\", PasswordTemplate:=\"\", Revert:=False, WritePasswordDocument:=\"\", "
       "WritePasswordTemplate:=\"\", Format:=0).FullName"},
      {[&] { word.Documents(1)->Activate(); }, "Documents(1).Activate()"},
      {[&] { EXPECT_EQ(word.DocumentCount(), 2); }, "Documents.Count"},
      {[&] { word.ActiveDocument()->Activate(); }, "ActiveDocument.Activate()"},
      {[&] { EXPECT_EQ(word.Version(), u"ž"); }, "Version"},
      {[&] { EXPECT_TRUE(word.Visible()); }, "Visible"},
      {[&] { word.Visible(false); }, "Visible = False"},
      {[&] { EXPECT_TRUE(word.ScreenUpdating()); }, "ScreenUpdating"},
      {[&] { word.ScreenUpdating(true); }, "ScreenUpdating = True"},
      {[&] { EXPECT_TRUE(word.CheckLanguage()); }, "CheckLanguage"},
      {[&] { word.CheckLanguage(false); }, "CheckLanguage = False"},
      {[&] { EXPECT_EQ(word.WindowState(), WordWindowState::kMinimize); }, "WindowState"},
      {[&] { word.WindowState(WordWindowState::kMaximize); }, "WindowState = 1"},
      {[&] { word.ActiveWindowState(WordWindowState::kNormal); }, "ActiveWindow.WindowState = 0"},
      {[&] { word.Activate(); }, "Activate()"},
      {[&] { word.ScreenRefresh(); }, "ScreenRefresh()"},
  };
  for (const auto& [call, expected] : rows) EXPECT_EQ((call(), world_.Lines()), expected);
}

TEST_F(OfficeMembers, OfWordsDocuments) {
  win32::LateWordDocument document(world_.Root());
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { document.Application()->Version(); }, "Application.Version"},
      {[&] { EXPECT_EQ(document.FullName(), u"ž"); }, "FullName"},
      {[&] { document.Range(0, 4)->Delete(); }, "Range(0, 4).Delete()"},
      {[&] { EXPECT_EQ(document.Content()->Text(), u"ž"); }, "Content.Text"},
      {[&] { EXPECT_EQ(document.Content()->Start(), 2); }, "Content.Start"},
      {[&] { EXPECT_EQ(document.Content()->End(), 2); }, "Content.End"},
      {[&] { document.Content()->SetRange(3, 4); }, "Content.SetRange(3, 4)"},
      {[&] { document.PrimaryHeader(2)->Delete(); }, "Sections(2).Headers(1).Range.Delete()"},
      {[&] { document.PrimaryFooter(1)->Delete(); }, "Sections(1).Footers(1).Range.Delete()"},
      {[&] { document.FormFieldResult(u"pole"); }, "FormFields(\"pole\").Result"},
      {[&] { document.FormFieldResult(u"pole", u"á"); }, "FormFields(\"pole\").Result = \"á\""},
      {[&] { document.Unprotect(); }, "Unprotect()"},
      {[&] { document.Protect(2); }, "Protect(2)"},
      {[&] { document.PageSetup()->LeftMargin(1.5F); }, "PageSetup.LeftMargin = 1.5!"},
      {[&] { document.SectionPageSetup(3)->TopMargin(2.25F); }, "Sections(3).PageSetup.TopMargin = 2.25!"},
      {[&] { document.Activate(); }, "Activate()"},
      {[&] { EXPECT_EQ(document.WindowCount(), 2); }, "Windows.Count"},
      {[&] { document.WindowState(); }, "ActiveWindow.WindowState"},
      {[&] { document.WindowState(WordWindowState::kMaximize); }, "ActiveWindow.WindowState = 1"},
      {[&] { document.SaveAs(u"a.docx", WordSaveFormat::kDocumentXml); }, "SaveAs(\"a.docx\", 12)"},
      {[&] {
         document.ExportAsFixedFormat({.OutputFileName = u"a.pdf",
                                       .IncludeDocProps = true,
                                       .CreateBookmarks = WdExportCreateBookmarks::wdExportCreateWordBookmarks,
                                       .UseISO19005_1 = true});
       },
       "ExportAsFixedFormat(OutputFileName:=\"a.pdf\", ExportFormat:=17, OpenAfterExport:=False, OptimizeFor:=0, "
       "Range:=0, Item:=0, IncludeDocProps:=True, KeepIRM:=True, CreateBookmarks:=2, DocStructureTags:=True, "
       "BitmapMissingFonts:=True, UseISO19005_1:=True)"},
      {[&] { document.Close(false); }, "Close(False)"},
  };
  world_.values["ExportAsFixedFormat"] = Variant();
  for (const auto& [call, expected] : rows) EXPECT_EQ((call(), world_.Lines()), expected);
}

TEST_F(OfficeMembers, OfSearches) {
  world_.values["Execute"] = ToVariant(true);
  win32::LateWordRange range(world_.Root());
  EXPECT_TRUE(range.Find({.FindText = u"«*»", .MatchWildcards = true, .Wrap = 1}));
  EXPECT_EQ(world_.Lines(),
            "Find.ClearFormatting() | Find.Execute(\"«*»\", False, False, True, False, False, True, 1, False)");
  EXPECT_TRUE(range.Find({.FindText = u"a", .ReplaceWith = u"b", .Replace = 2}));
  EXPECT_EQ(world_.Lines(),
            "Find.ClearFormatting() | "
            "Find.Execute(\"a\", False, False, False, False, False, True, 0, False, \"b\", 2)");
}

TEST_F(OfficeMembers, OfMailMerges) {
  win32::LateWordDocument document(world_.Root());
  WordMailMerge& merge = document.MailMerge();
  EXPECT_EQ(&document.MailMerge(), &merge);
  world_.values["OpenDataSource"] = Variant();
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { merge.OpenDataSource({.Name = u"d.txt", .ConfirmConversions = false, .LinkToSource = false}); },
       "MailMerge.OpenDataSource(Name:=\"d.txt\", ConfirmConversions:=False, ReadOnly:=False, LinkToSource:=False, "
       "AddToRecentFiles:=True, PasswordDocument:=\"\", PasswordTemplate:=\"\", WritePasswordDocument:=\"\", "
       "WritePasswordTemplate:=\"\", Revert:=False, Format:=0, Connection:=\"\", SQLStatement:=\"\", "
       "SQLStatement1:=\"\")"},
      {[&] { EXPECT_EQ(merge.MainDocumentType(), MainDocumentType::kEnvelopes); }, "MailMerge.MainDocumentType"},
      {[&] { merge.MainDocumentType(MainDocumentType::kNotAMergeDocument); }, "MailMerge.MainDocumentType = -1"},
      {[&] { merge.Destination(0); }, "MailMerge.Destination = 0"},
      {[&] { merge.MailAsAttachment(false); }, "MailMerge.MailAsAttachment = False"},
      {[&] { merge.MailAddressFieldName(u""); }, "MailMerge.MailAddressFieldName = \"\""},
      {[&] { merge.MailSubject(u"x"); }, "MailMerge.MailSubject = \"x\""},
      {[&] { merge.SuppressBlankLines(true); }, "MailMerge.SuppressBlankLines = True"},
      {[&] { merge.FirstRecord(1); }, "MailMerge.DataSource.FirstRecord = 1"},
      {[&] { merge.LastRecord(kLastRecordOfSource); }, "MailMerge.DataSource.LastRecord = -16"},
      {[&] { merge.ViewMailMergeFieldCodes(0); }, "MailMerge.ViewMailMergeFieldCodes = 0"},
      {[&] { merge.Execute(false); }, "MailMerge.Execute(False)"},
  };
  for (const auto& [call, expected] : rows) EXPECT_EQ((call(), world_.Lines()), expected);
}

TEST_F(OfficeMembers, OfExcelsApplication) {
  win32::LateExcelApplication excel(world_.Root());
  OpenTextArguments text{.Filename = u"d.txt", .Other = true, .OtherChar = u";"};
  const std::string plain =
      "Workbooks.OpenText(\"d.txt\", 2, 1, 1, 1, False, False, False, False, False, True, \";\", ";
  const std::string pairs = "{0 to 1; {0 to 1; 1; 2}; {0 to 1; 2; 1}}";
  EXPECT_EQ((excel.OpenText(text), world_.Lines()), plain + "-)");
  text.FieldInfo = {{.column = 1, .type = ExcelColumnType::kText}, {.column = 2}};
  EXPECT_EQ((excel.OpenText(text), world_.Lines()), plain + pairs + ")");
  text.DecimalSeparator = u",";
  EXPECT_EQ((excel.OpenText(text), world_.Lines()), plain + pairs + ", -, \",\", -)");
  text.ThousandsSeparator = u" ";
  EXPECT_EQ((excel.OpenText(text), world_.Lines()), plain + pairs + ", -, \",\", \" \")");

  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { excel.AddWorkbook(u"a.xlt")->Name(); }, "Workbooks.Add(\"a.xlt\").Name"},
      {[&] { excel.AddWorkbook(u"")->Name(); }, "Workbooks.Add.Name"},
      {[&] { excel.Workbooks(u"d.txt")->FullName(); }, "Workbooks(\"d.txt\").FullName"},
      {[&] { excel.ActiveWorkbook()->Activate(); }, "ActiveWorkbook.Activate()"},
      {[&] { EXPECT_TRUE(excel.Visible()); }, "Visible"},
      {[&] { excel.Visible(true); }, "Visible = True"},
      {[&] { EXPECT_TRUE(excel.ScreenUpdating()); }, "ScreenUpdating"},
      {[&] { excel.ScreenUpdating(false); }, "ScreenUpdating = False"},
      {[&] { excel.Interactive(false); }, "Interactive = False"},
      {[&] { excel.CutCopyMode(false); }, "CutCopyMode = False"},
      {[&] { excel.WindowState(); }, "WindowState"},
      {[&] { excel.WindowState(ExcelWindowState::kMaximized); }, "WindowState = -4137"},
      {[&] { excel.ActiveWindowState(); }, "ActiveWindow.WindowState"},
      {[&] { excel.ActiveWindowState(ExcelWindowState::kNormal); }, "ActiveWindow.WindowState = -4143"},
      {[&] { excel.WindowVisible(u"a", true); }, "Windows(\"a\").Visible = True"},
  };
  for (const auto& [call, expected] : rows) EXPECT_EQ((call(), world_.Lines()), expected);
  world_.nothing = {"ActiveWorkbook"};
  EXPECT_EQ(ErrorOf([&] { excel.ActiveWorkbook(); }).number(), 91);
}

TEST_F(OfficeMembers, OfWorkbooksAndSheets) {
  win32::LateExcelWorkbook workbook(world_.Root());
  const ExcelWorksheetReference sheet = workbook.Sheets(2);
  world_.values["ExportAsFixedFormat"] = Variant();
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { workbook.Application()->Interactive(true); }, "Application.Interactive = True"},
      {[&] { EXPECT_EQ(workbook.Name(), u"ž"); }, "Name"},
      {[&] { EXPECT_EQ(workbook.FullName(), u"ž"); }, "FullName"},
      {[&] { workbook.ActiveSheet()->Paste(); }, "ActiveSheet.Paste()"},
      {[&] { workbook.Activate(); }, "Activate()"},
      {[&] { workbook.SaveAs(u"a.xlsx", ExcelSaveFormat::kWorkbookXml); }, "SaveAs(\"a.xlsx\", 51)"},
      {[&] { workbook.ExportAsFixedFormat({.fileName = u"a.pdf"}); },
       "ExportAsFixedFormat(Type:=0, fileName:=\"a.pdf\", Quality:=0, IncludeDocProperties:=True, "
       "IgnorePrintAreas:=False, OpenAfterPublish:=False)"},
      {[&] { workbook.Close(false); }, "Close(False)"},
      {[&] { sheet->Range(u"A1")->Select(); }, "Sheets(2).Range(\"A1\").Select()"},
      {[&] { sheet->Rows(u"1:1")->FontBold(true); }, "Sheets(2).Rows(\"1:1\").Font.Bold = True"},
      {[&] { sheet->Columns(3)->HorizontalAlignment(ExcelAlignment::kRight); },
       "Sheets(2).Columns(3).HorizontalAlignment = -4152"},
      {[&] { EXPECT_EQ(sheet->ShapeCount(), 2); }, "Sheets(2).Shapes.Count"},
      {[&] { sheet->Activate(); }, "Sheets(2).Activate()"},
  };
  for (const auto& [call, expected] : rows) EXPECT_EQ((call(), world_.Lines()), expected);
}

TEST_F(OfficeMembers, OfRanges) {
  win32::LateExcelRange range(world_.Root());
  CellGrid grid(1, 2);
  grid.At(0, 0) = Text(u"=A1");
  const std::unique_ptr<ExcelRange> target = range.Offset(1, 0);
  world_.values["FormulaR1C1"] = ToVariant(u"x");
  world_.values["Value2"] = ToVariant(1.5);
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { EXPECT_EQ(range.RowCount(), 2); }, "Rows.Count"},
      {[&] { EXPECT_EQ(range.ColumnCount(), 2); }, "Columns.Count"},
      {[&] { range.CurrentRegion()->AutoFitColumns(); }, "CurrentRegion.Columns.AutoFit()"},
      {[&] { range.Resize(2, 3)->Select(); }, "Resize(2, 3).Select()"},
      {[&] { EXPECT_EQ(range.Text(), u"ž"); }, "Text"},
      {[&] { range.Formula(u"á"); }, "Formula = \"á\""},
      {[&] { EXPECT_EQ(range.FormulaR1C1().At(0, 0), Value(Text(u"x"))); }, "FormulaR1C1"},
      {[&] { range.FormulaR1C1(grid); }, "FormulaR1C1 = {1 to 1, 1 to 2; \"=A1\"; Empty}"},
      {[&] { EXPECT_EQ(range.Value2().At(0, 0), Value(1.5)); }, "Value2"},
      {[&] { range.Copy(); }, "Copy()"},
      {[&] { range.Copy(*target); }, "Copy([Offset(1, 0)])"},
      {[&] { range.PasteSpecial({.Paste = ExcelPasteType::kFormulas}); }, "PasteSpecial(-4123, -4142, False, False)"},
  };
  for (const auto& [call, expected] : rows) EXPECT_EQ((call(), world_.Lines()), expected);
}

// An Office that ends in the middle of its work, and one that refuses.
TEST_F(OfficeMembers, FailuresOfOfficeComeOut) {
  win32::LateExcelApplication excel(world_.Root());
  world_.failures["Add"] = RPC_E_DISCONNECTED;
  world_.reports["OpenText"] = {.wCode = 1004, .source = L"Microsoft Excel", .description = L"Nelze"};
  EXPECT_EQ(ErrorOf([&] { excel.AddWorkbook(u""); }).number(), 462);
  EXPECT_EQ(ErrorOf([&] { excel.OpenText({}); }).number(), 1004);
  world_.rejections = 1;
  excel.Visible(true);
  EXPECT_EQ(world_.Lines(), "Visible = True");
  win32::LateExcelRange range(world_.Root());
  world_.missing = {"Value2"};
  EXPECT_EQ(ErrorOf([&] { range.Value2(); }).number(), 438);
}

// Puts an object of the test where the running applications are looked for.
class RunningObject {
 public:
  RunningObject(const wchar_t* program, IUnknown* object) {
    const Text key = Text(FromWide(program)).append(u"\\CLSID");
    const wchar_t id[] = L"{5F1CBA7A-9C31-4B8C-9F4E-0B1A7C0E55D1}";
    RegSetKeyValueW(HKEY_CLASSES_ROOT, win32::Wide(key), nullptr, REG_SZ, id, sizeof id);
    CLSID classId{};
    EXPECT_EQ(CLSIDFromString(id, &classId), S_OK);
    EXPECT_EQ(RegisterActiveObject(object, classId, ACTIVEOBJECT_STRONG, &token_), S_OK);
    key_ = Text(FromWide(program));
  }
  ~RunningObject() {
    RevokeActiveObject(token_, nullptr);
    RegDeleteTreeW(HKEY_CLASSES_ROOT, win32::Wide(key_));
  }

 private:
  DWORD token_ = 0;
  Text key_;
};

TEST_F(OfficeMembers, ApplicationsAreFoundStartedAndMissed) {
  ASSERT_EQ(OleInitialize(nullptr), S_OK);
  win32::InstalledOffice office;
  for (const bool registered : {false, true}) {
    const LateObject root = world_.Root();
    std::optional<RunningObject> running;
    if (registered) running.emplace(L"Excel.Application", root.dispatch());
    if (registered) {
      office.AttachExcel()->Interactive(true);
      EXPECT_EQ(world_.Lines(), "Interactive = True");
    } else {
      EXPECT_EQ(ErrorOf([&] { office.AttachExcel(); }).number(), 429);
    }
    EXPECT_EQ(ErrorOf([&] { office.StartExcel(); }).number(), 429) << "registered, but no program behind it";
  }
  EXPECT_EQ(ErrorOf([&] { office.AttachWord(); }).number(), 429);
  EXPECT_EQ(ErrorOf([&] { office.StartWord(); }).number(), 429);
  for (const TextView path : {u"C:\\none\\a.doc", u""}) {
    EXPECT_NE(ErrorOf([&] { office.GetDocument(path); }).number(), 0);
    EXPECT_NE(ErrorOf([&] { office.GetWorkbook(path); }).number(), 0);
  }
  EXPECT_EQ(ErrorOf([&] { office.WordTemplateFields(u"a.dot"); }).number(), 438);
  OleUninitialize();
}

}  // namespace
}  // namespace zorkanca::testing
