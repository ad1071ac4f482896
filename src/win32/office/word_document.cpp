#include "win32/office/word_objects.h"

namespace zorkanca::win32 {

namespace {

constexpr std::int32_t kPrimary = 1;  // the header or footer of all pages that have none of their own kind

std::unique_ptr<WordRange> RangeOf(LateObject range) {
  return std::make_unique<LateWordRange>(std::move(range));
}

}  // namespace

WordApplicationReference LateWordDocument::Application() {
  return std::make_shared<LateWordApplication>(object_.Child(u"Application"));
}

Text LateWordDocument::FullName() const {
  return AsText(object_.Get(u"FullName"));
}

std::unique_ptr<WordRange> LateWordDocument::Range(std::int32_t start, std::int32_t end) {
  return RangeOf(object_.Child(u"Range", start, end));
}

std::unique_ptr<WordRange> LateWordDocument::Content() {
  return RangeOf(object_.Child(u"Content"));
}

std::unique_ptr<WordRange> LateWordDocument::PrimaryHeader(std::int32_t section) {
  return RangeOf(object_.Item(u"Sections", section).Item(u"Headers", kPrimary).Child(u"Range"));
}

std::unique_ptr<WordRange> LateWordDocument::PrimaryFooter(std::int32_t section) {
  return RangeOf(object_.Item(u"Sections", section).Item(u"Footers", kPrimary).Child(u"Range"));
}

WordMailMerge& LateWordDocument::MailMerge() {
  if (!mailMerge_) mailMerge_ = std::make_unique<LateMailMerge>(object_.Child(u"MailMerge"));
  return *mailMerge_;
}

Text LateWordDocument::FormFieldResult(TextView name) {
  return AsText(object_.Item(u"FormFields", name).Get(u"Result"));
}

void LateWordDocument::FormFieldResult(TextView name, TextView result) {
  object_.Item(u"FormFields", name).Put(u"Result", result);
}

void LateWordDocument::Unprotect() {
  object_.Call(u"Unprotect");
}

void LateWordDocument::Protect(std::int32_t type) {
  object_.Call(u"Protect", type);
}

std::unique_ptr<WordPageSetup> LateWordDocument::PageSetup() {
  return std::make_unique<LateWordPageSetup>(object_.Child(u"PageSetup"));
}

std::unique_ptr<WordPageSetup> LateWordDocument::SectionPageSetup(std::int32_t section) {
  return std::make_unique<LateWordPageSetup>(object_.Item(u"Sections", section).Child(u"PageSetup"));
}

void LateWordDocument::Activate() {
  object_.Call(u"Activate");
}

std::int32_t LateWordDocument::WindowCount() const {
  return AsLong(object_.Child(u"Windows").Get(u"Count"));
}

WordWindowState LateWordDocument::WindowState() const {
  return static_cast<WordWindowState>(AsLong(object_.Child(u"ActiveWindow").Get(u"WindowState")));
}

void LateWordDocument::WindowState(WordWindowState state) {
  object_.Child(u"ActiveWindow").Put(u"WindowState", static_cast<std::int32_t>(state));
}

void LateWordDocument::SaveAs(TextView fileName, WordSaveFormat format) {
  object_.Call(u"SaveAs", fileName, static_cast<std::int32_t>(format));
}

void LateWordDocument::ExportAsFixedFormat(const ExportDocumentArguments& arguments) {
  object_.CallNamed(u"ExportAsFixedFormat",
                    {{u"OutputFileName", ToVariant(arguments.OutputFileName)},
                     {u"ExportFormat", ToVariant(arguments.ExportFormat)},
                     {u"OpenAfterExport", ToVariant(arguments.OpenAfterExport)},
                     {u"OptimizeFor", ToVariant(arguments.OptimizeFor)},
                     {u"Range", ToVariant(arguments.Range)},
                     {u"Item", ToVariant(arguments.Item)},
                     {u"IncludeDocProps", ToVariant(arguments.IncludeDocProps)},
                     {u"KeepIRM", ToVariant(arguments.KeepIRM)},
                     {u"CreateBookmarks", ToVariant(static_cast<std::int32_t>(arguments.CreateBookmarks))},
                     {u"DocStructureTags", ToVariant(arguments.DocStructureTags)},
                     {u"BitmapMissingFonts", ToVariant(arguments.BitmapMissingFonts)},
                     {u"UseISO19005_1", ToVariant(arguments.UseISO19005_1)}});
}

void LateWordDocument::Close(bool SaveChanges) {
  object_.Call(u"Close", SaveChanges);
}

void LateWordPageSetup::LeftMargin(float points) {
  object_.Put(u"LeftMargin", points);
}

void LateWordPageSetup::TopMargin(float points) {
  object_.Put(u"TopMargin", points);
}

}  // namespace zorkanca::win32
