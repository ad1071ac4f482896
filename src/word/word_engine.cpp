#include "word/word_engine.h"

#include <sys/stat.h>

#include <iterator>
#include <list>

#include "files/native_path.h"
#include "opc/core_properties.h"
#include "opc/document_kind.h"
#include "opc/temporary_package.h"
#include "runtime/error.h"
#include "word/document/last_template.h"
#include "word/document/tree_content.h"
#include "word/merge/template_reading.h"
#include "word/open_document.h"
#include "word/xml/word_errors.h"

namespace zorkanca {

struct WordEngine::Environment {
  const Locale& locale;
  LibreOfficeConverter converter;
  Warn warn;
  std::function<bool()> cancelled;
};

// The application with its open documents, the one used last first.
class EngineWord final : public WordApplication, public std::enable_shared_from_this<EngineWord> {
 public:
  explicit EngineWord(std::shared_ptr<const WordEngine::Environment> environment)
      : environment_(std::move(environment)) {}

  WordDocumentReference AddDocument(TextView Template, bool NewTemplate) override;
  WordDocumentReference OpenDocument(const OpenDocumentArguments& arguments) override;
  WordDocumentReference Documents(std::int32_t index) override;
  std::int32_t DocumentCount() const override { return static_cast<std::int32_t>(documents_.size()); }
  WordDocumentReference ActiveDocument() override;

  Text Version() const override { return u"16.0"; }
  bool Visible() const override { return visible_; }
  void Visible(bool visible) override { visible_ = visible; }
  bool ScreenUpdating() const override { return screenUpdating_; }
  void ScreenUpdating(bool updating) override { screenUpdating_ = updating; }
  bool CheckLanguage() const override { return checkLanguage_; }
  void CheckLanguage(bool check) override { checkLanguage_ = check; }
  WordWindowState WindowState() const override { return windowState_; }
  void WindowState(WordWindowState state) override { windowState_ = state; }
  void ActiveWindowState(WordWindowState state) override;
  void Activate() override {}
  void ScreenRefresh() override {}

 private:
  word::WordPackage Read(const std::string& path) const;
  WordDocumentReference Add(std::unique_ptr<word::DocumentContent> content, Text name);
  Text FreshName() { return u"Document" + DecimalText(++lastNumber_); }
  void Remove(const WordDocument& document);
  void Activate(const WordDocument& document);

  std::shared_ptr<const WordEngine::Environment> environment_;
  std::list<WordDocumentReference> documents_;
  word::LastTemplate lastTemplate_;
  std::int64_t lastNumber_ = 0;
  bool visible_ = false;
  bool screenUpdating_ = true;
  bool checkLanguage_ = true;
  WordWindowState windowState_ = WordWindowState::kNormal;
};

namespace {

word::WordPackage OfToday(word::WordPackage package) {
  SetDayOfOrigin(package.package(), Today());
  return package;
}

void RequireFile(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return;
  RaiseWordError(WordError::kFileNotFound, u"The file " + FromNativePath(path) + u" could not be found.");
}

word::WordPackage ReadWith(const LibreOfficeConverter& converter, const std::string& path) {
  RequireFile(path);
  if (DocumentKindOf(path) == DocumentKind::kPackage) return word::WordPackage(Package::Open(path));
  const TemporaryPackage converted(".docx");  // the package keeps the file open
  converter.ToOpenXml(path, converted.path());
  return word::WordPackage(Package::Open(converted.path()));
}

}  // namespace

word::WordPackage EngineWord::Read(const std::string& path) const {
  return ReadWith(environment_->converter, path);
}

WordDocumentReference EngineWord::AddDocument(TextView Template, bool NewTemplate) {
  if (NewTemplate) RaiseUnsupportedWordMember(u"Documents.Add with NewTemplate");
  if (Template.empty()) return Add(std::make_unique<word::TreeContent>(word::WordPackage::Blank()), FreshName());
  const std::string path = AbsolutePath(ToNativePath(Template));
  const auto read = [&] { return OfToday(Read(path)); };
  return Add(std::make_unique<word::TreeContent>(lastTemplate_.Open(path, read)), FreshName());
}

WordDocumentReference EngineWord::OpenDocument(const OpenDocumentArguments& arguments) {
  if (arguments.ReadOnly) RaiseUnsupportedWordMember(u"Documents.Open with ReadOnly");
  if (arguments.Format != 0) RaiseUnsupportedWordMember(u"Documents.Open with a format");
  const std::string path = AbsolutePath(ToNativePath(arguments.FileName));
  return Add(std::make_unique<word::TreeContent>(Read(path)), FromNativePath(path));
}

WordDocumentReference EngineWord::Add(std::unique_ptr<word::DocumentContent> content, Text name) {
  const std::weak_ptr<EngineWord> weak = weak_from_this();
  const auto self = [weak] {
    std::shared_ptr<EngineWord> application = weak.lock();
    if (!application) RaiseWordError(WordError::kObjectDeleted, u"Object has been deleted.");
    return application;
  };
  word::DocumentHolder holder{
      [self] { return self(); },
      [self](const WordDocument& document) { self()->Activate(document); },
      [weak](const WordDocument& document) {
        if (const auto application = weak.lock()) application->Remove(document);
      },
      [self](std::unique_ptr<word::DocumentContent> merged) { self()->Add(std::move(merged), self()->FreshName()); },
      environment_->warn,
      environment_->cancelled,
      environment_->converter,
      environment_->locale};
  auto document = std::make_shared<word::OpenDocument>(std::move(content), std::move(name), std::move(holder));
  documents_.push_front(document);
  return document;
}

void EngineWord::Remove(const WordDocument& document) {
  documents_.remove_if([&](const WordDocumentReference& each) { return each.get() == &document; });
}

void EngineWord::Activate(const WordDocument& document) {
  for (auto place = documents_.begin(); place != documents_.end(); ++place) {
    if (place->get() == &document) return documents_.splice(documents_.begin(), documents_, place);
  }
}

WordDocumentReference EngineWord::Documents(std::int32_t index) {
  if (index < 1 || index > DocumentCount()) {
    RaiseWordError(WordError::kMemberMissing, u"The requested member of the collection does not exist.");
  }
  return *std::next(documents_.begin(), index - 1);
}

WordDocumentReference EngineWord::ActiveDocument() {
  if (documents_.empty()) {
    RaiseWordError(WordError::kNoOpenDocument, u"This command is not available because no document is open.");
  }
  return documents_.front();
}

void EngineWord::ActiveWindowState(WordWindowState state) {
  ActiveDocument();
  windowState_ = state;
}

WordEngine::WordEngine(const Locale& locale, LibreOfficeConverter converter, Warn warn, std::function<bool()> cancelled)
    : environment_(std::make_shared<const Environment>(
          Environment{locale, std::move(converter), std::move(warn), std::move(cancelled)})) {}

WordEngine::~WordEngine() = default;

WordApplicationReference WordEngine::AttachWord() {
  if (!running_) Raise(RuntimeError::kCannotCreateObject);
  return running_;
}

WordApplicationReference WordEngine::StartWord() {
  if (!running_) running_ = std::make_shared<EngineWord>(environment_);
  return running_;
}

WordDocumentReference WordEngine::GetDocument(TextView path) {
  const WordApplicationReference word = StartWord();
  const Text wanted = FromNativePath(AbsolutePath(ToNativePath(path)));
  for (std::int32_t index = 1; index <= word->DocumentCount(); ++index) {
    if (WordDocumentReference document = word->Documents(index); document->FullName() == wanted) return document;
  }
  return word->OpenDocument({.FileName = wanted});
}

std::vector<TemplateField> WordEngine::TemplateFields(TextView path) const {
  word::WordPackage package = ReadWith(environment_->converter, AbsolutePath(ToNativePath(path)));
  return word::ReadTemplateFields(package);
}

}  // namespace zorkanca
