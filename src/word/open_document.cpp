#include "word/open_document.h"

#include "files/native_path.h"
#include "opc/temporary_package.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "word/document/sections.h"
#include "word/forms/page_setup.h"
#include "word/forms/protection.h"
#include "word/xml/word_errors.h"

namespace zorkanca::word {

namespace {

// A header that its section does not have: an empty paragraph in which nothing is found.
class NoStory final : public StoryText {
 public:
  Position Length() override { return 1; }
  TextChunk ChunkAt(Position) override { return {0, TextView(&kParagraphEnd, 1)}; }
  void Delete(Interval) override {}
  void ReplaceAll(const std::vector<Interval>&, TextView) override {}
};

PdfBookmarks BookmarksOf(WdExportCreateBookmarks kind) {
  switch (kind) {
    case WdExportCreateBookmarks::wdExportCreateNoBookmarks:
      return PdfBookmarks::kNone;
    case WdExportCreateBookmarks::wdExportCreateHeadingBookmarks:
      return PdfBookmarks::kHeadings;
    case WdExportCreateBookmarks::wdExportCreateWordBookmarks:
      return PdfBookmarks::kNamedPlaces;
  }
  Raise(RuntimeError::kInvalidCall);
}

}  // namespace

OpenDocument::OpenDocument(std::unique_ptr<DocumentContent> content, Text name, DocumentHolder holder)
    : content_(std::move(content)),
      name_(std::move(name)),
      holder_(std::move(holder)),
      mailMerge_({[this]() -> WordPackage& {
                    if (!Opened().Body()) RaiseUnsupportedWordMember(u"Document.MailMerge of a merged document");
                    return Opened().Parts();
                  },
                  [this](const MergeOrder& order) {
                    MergeOrder reporting = order;
                    reporting.warn = holder_.warn;
                    reporting.cancelled = holder_.cancelled;
                    holder_.add(std::make_unique<MergedContent>(Opened().Parts(), reporting, holder_.locale));
                  }},
                 holder_.locale) {}

DocumentContent& OpenDocument::Opened() const {
  if (!content_) RaiseWordError(WordError::kObjectDeleted, u"Object has been deleted.");
  return *content_;
}

pugi::xml_node OpenDocument::RequireBody(TextView member) const {
  const pugi::xml_node body = Opened().Body();
  if (!body) RaiseUnsupportedWordMember(Text(member) + u" of a merged document");
  return body;
}

std::shared_ptr<WordApplication> OpenDocument::Application() {
  Opened();
  return holder_.application();
}

Text OpenDocument::FullName() const {
  Opened();
  return name_;
}

std::unique_ptr<WordRange> OpenDocument::Range(std::int32_t start, std::int32_t end) {
  Opened();
  return std::make_unique<StoryRange>([self = shared_from_this()]() -> StoryText& { return self->Opened().MainText(); },
                                      Interval{start, end});
}

std::unique_ptr<WordRange> OpenDocument::Content() {
  Opened();
  return std::make_unique<StoryRange>(
      [self = shared_from_this()]() -> StoryText& { return self->Opened().MainText(); });
}

std::unique_ptr<WordRange> OpenDocument::HeaderRange(std::int32_t section, HeaderKind kind) {
  Opened().HeaderText(section, kind);
  return std::make_unique<StoryRange>([self = shared_from_this(), section, kind]() -> StoryText& {
    static NoStory none;
    StoryText* story = self->Opened().HeaderText(section, kind);
    return story ? *story : none;
  });
}

std::unique_ptr<WordRange> OpenDocument::PrimaryHeader(std::int32_t section) {
  return HeaderRange(section, HeaderKind::kHeader);
}

std::unique_ptr<WordRange> OpenDocument::PrimaryFooter(std::int32_t section) {
  return HeaderRange(section, HeaderKind::kFooter);
}

WordMailMerge& OpenDocument::MailMerge() {
  RequireBody(u"Document.MailMerge");
  return mailMerge_;
}

FormFields& OpenDocument::Fields() {
  const pugi::xml_node body = RequireBody(u"Document.FormFields");
  WordPackage& package = Opened().Parts();
  if (!fields_ || fields_->stale() || fieldsVersion_ != Opened().Version()) {
    std::vector<FormFields::Part> others;
    for (const std::string& part : package.ControlParts()) {
      others.push_back({part, package.Tree(part).document_element()});
    }
    fields_.emplace(body, others);
  }
  // Looking for them splits runs, setting one changes the text.
  Opened().BodyChanged();
  fieldsVersion_ = Opened().Version();
  return *fields_;
}

Text OpenDocument::FormFieldResult(TextView name) {
  return Fields().Result(name);
}

void OpenDocument::FormFieldResult(TextView name, TextView result) {
  for (const std::string& part : Fields().SetResult(name, result, holder_.locale)) Opened().PartChanged(part);
  fieldsVersion_ = Opened().Version();
}

void OpenDocument::Unprotect() {
  word::Unprotect(Opened().Parts());
}

void OpenDocument::Protect(std::int32_t type) {
  word::Protect(Opened().Parts(), type);
}

std::unique_ptr<WordPageSetup> OpenDocument::PageSetup() {
  RequireBody(u"Document.PageSetup");
  return std::make_unique<SectionMargins>([self = shared_from_this()] { return SectionsOf(self->Opened().Body()); },
                                          [self = shared_from_this()] { self->Opened().BodyChanged(); });
}

std::unique_ptr<WordPageSetup> OpenDocument::SectionPageSetup(std::int32_t section) {
  const auto find = [self = shared_from_this(), section]() -> std::vector<pugi::xml_node> {
    const std::vector<pugi::xml_node> sections = SectionsOf(self->RequireBody(u"Section.PageSetup"));
    if (section < 1 || static_cast<std::size_t>(section) > sections.size()) {
      RaiseWordError(WordError::kMemberMissing, u"The requested member of the collection does not exist.");
    }
    return {sections[static_cast<std::size_t>(section) - 1]};
  };
  find();
  return std::make_unique<SectionMargins>(find, [self = shared_from_this()] { self->Opened().BodyChanged(); });
}

void OpenDocument::Activate() {
  Opened();
  holder_.activate(*this);
}

// There are no windows; those of all documents have the state of the application's.
WordWindowState OpenDocument::WindowState() const {
  Opened();
  return holder_.application()->WindowState();
}

void OpenDocument::WindowState(WordWindowState state) {
  Opened();
  holder_.application()->WindowState(state);
}

// A file that is to hold macros keeps them; the usual format has none.
Package OpenDocument::PackageFor(const std::string& path) {
  Package package = Opened().Written();
  const Text extension = LowerCase(GetExtensionName(FromNativePath(path)));
  if (extension != u"docm") RemoveMacros(package, Opened().Parts().mainPart());
  return package;
}

void OpenDocument::SaveAs(TextView fileName, WordSaveFormat format) {
  Opened();
  const std::string path = AbsolutePath(ToNativePath(fileName));
  if (format == WordSaveFormat::kPdf) {
    WritePdf(path, {});
    return;
  }
  if (format != WordSaveFormat::kDocumentXml) RaiseUnsupportedWordMember(u"Document.SaveAs in that format");
  PackageFor(path).SaveAs(path);
  name_ = FromNativePath(path);
}

void OpenDocument::WritePdf(const std::string& path, const PdfOptions& options) {
  const TemporaryPackage file(".docx");
  PackageFor(file.path()).SaveAs(file.path());
  holder_.converter.ToPdf(file.path(), path, options);
}

void OpenDocument::ExportAsFixedFormat(const ExportDocumentArguments& arguments) {
  Opened();
  constexpr std::int32_t kPdf = 17;
  if (arguments.ExportFormat != kPdf) RaiseUnsupportedWordMember(u"Document.ExportAsFixedFormat other than PDF");
  if (arguments.OpenAfterExport) RaiseUnsupportedWordMember(u"Document.ExportAsFixedFormat with OpenAfterExport");
  if (arguments.Range != 0) RaiseUnsupportedWordMember(u"Document.ExportAsFixedFormat with a range");
  if (arguments.Item != 0) RaiseUnsupportedWordMember(u"Document.ExportAsFixedFormat with markup");
  const std::string path = AbsolutePath(ToNativePath(arguments.OutputFileName));
  if (path == ToNativePath(name_)) Raise(RuntimeError::kPermissionDenied);  // a file is not open for others to replace
  WritePdf(path, {.archive = arguments.UseISO19005_1,
                  .bookmarks = BookmarksOf(arguments.CreateBookmarks),
                  .tagged = arguments.DocStructureTags});
}

void OpenDocument::Close(bool SaveChanges) {
  Opened();
  if (SaveChanges) RaiseUnsupportedWordMember(u"Document.Close that saves changes");
  content_.reset();
  holder_.close(*this);
}

}  // namespace zorkanca::word
