#include "support/fake_word.h"

#include <algorithm>
#include <cstdio>

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

namespace {

class FakeRange final : public WordRange {
 public:
  FakeRange(zorkanca::Text& story, std::int32_t start, std::int32_t end, std::size_t& searched)
      : story_(story), start_(start), end_(end), searched_(searched) {}

  std::int32_t Start() const override { return start_; }
  std::int32_t End() const override { return end_; }
  zorkanca::Text Text() override { return story_.substr(At(start_), At(end_ - start_)); }
  void SetRange(std::int32_t start, std::int32_t end) override {
    start_ = start;
    end_ = end;
  }
  void Delete() override {
    story_.erase(At(start_), At(end_ - start_));
    end_ = start_;
  }
  bool Find(const FindArguments& arguments) override {
    if (arguments.Replace == 2) return ReplaceAll(arguments.FindText, *arguments.ReplaceWith);
    const zorkanca::Text within = arguments.Wrap == 1 ? story_ : story_.substr(0, At(end_));
    const std::size_t from = arguments.Wrap == 1 ? 0 : At(start_);
    if (arguments.MatchWildcards) return FindPlaceholder(At(end_)) || (arguments.Wrap == 1 && FindPlaceholder(0));
    std::size_t hit = arguments.Forward ? within.find(arguments.FindText, from) : within.rfind(arguments.FindText);
    const bool isFound = hit != zorkanca::Text::npos && hit >= from;
    Pass(!isFound ? within.size() - from : arguments.Forward ? hit - from : within.size() - hit);
    if (!isFound) return false;
    SetRange(static_cast<std::int32_t>(hit), static_cast<std::int32_t>(hit + arguments.FindText.size()));
    return true;
  }

 private:
  static std::size_t At(std::int32_t position) { return static_cast<std::size_t>(position); }

  void Pass(std::size_t units) {
    searched_ += units;
    if (searched_ > 10'000'000) Raise(RuntimeError::kUserInterrupt);
  }
  bool ReplaceAll(TextView from, TextView to) {
    const zorkanca::Text wanted = LowerCase(from);
    std::size_t at = 0;
    while ((at = LowerCase(story_).find(wanted, at)) != zorkanca::Text::npos) {
      story_.replace(at, from.size(), to);
      at += to.size();
    }
    return true;
  }
  bool FindPlaceholder(std::size_t from) {
    const std::size_t open = story_.find(u'«', from);
    const std::size_t close = story_.find(u'»', open);
    Pass(std::min(close, story_.size()) - from + 1);
    if (close == TextView::npos) return false;
    SetRange(static_cast<std::int32_t>(open), static_cast<std::int32_t>(close + 1));
    return true;
  }

  zorkanca::Text& story_;
  std::int32_t start_;
  std::int32_t end_;
  std::size_t& searched_;
};

class FakePageSetup final : public WordPageSetup {
 public:
  FakePageSetup(Journal& journal, std::string section) : journal_(journal), section_(std::move(section)) {}

  void LeftMargin(float points) override { Note("left", points); }
  void TopMargin(float points) override { Note("top", points); }

 private:
  void Note(const char* side, float points) {
    char text[64];
    std::snprintf(text, sizeof text, "word %s%s %.5f", side, section_.c_str(), static_cast<double>(points));
    journal_.emplace_back(text);
  }

  Journal& journal_;
  std::string section_;
};

}  // namespace

class FakeDocument final : public WordDocument, public WordMailMerge {
 public:
  FakeDocument(FakeWord& word, Text name, Text content)
      : word_(word), name_(std::move(name)), text(std::move(content)) {}

  std::shared_ptr<WordApplication> Application() override { return word_.application; }
  Text FullName() const override { return name_; }
  std::unique_ptr<WordRange> Range(std::int32_t start, std::int32_t end) override {
    return std::make_unique<FakeRange>(text, start, end, word_.unitsSearched);
  }
  std::unique_ptr<WordRange> Content() override { return Range(0, static_cast<std::int32_t>(text.size())); }
  std::unique_ptr<WordRange> PrimaryHeader(std::int32_t) override {
    return std::make_unique<FakeRange>(word_.headerText, 0, 0, word_.unitsSearched);
  }
  std::unique_ptr<WordRange> PrimaryFooter(std::int32_t) override {
    return std::make_unique<FakeRange>(word_.footerText, 0, 0, word_.unitsSearched);
  }
  WordMailMerge& MailMerge() override { return *this; }

  Text FormFieldResult(TextView) override { Raise(RuntimeError::kNotSupported); }
  void FormFieldResult(TextView name, TextView result) override {
    if (!word_.formFields.contains(Text(name))) throw Error(5941, Text(), u"no such field");
    Note("field " + ToUtf8(name) + "=" + ToUtf8(result));
  }
  void Unprotect() override {
    Note("unprotect");
    throw Error(4605, Text(), u"not protected");
  }
  void Protect(std::int32_t type) override { Note("protect " + std::to_string(type)); }
  std::unique_ptr<WordPageSetup> PageSetup() override { return std::make_unique<FakePageSetup>(word_.journal, ""); }
  std::unique_ptr<WordPageSetup> SectionPageSetup(std::int32_t section) override {
    if (section > word_.sections) throw Error(5941, Text(), u"no such section");
    return std::make_unique<FakePageSetup>(word_.journal, std::to_string(section));
  }
  void SaveAs(TextView, WordSaveFormat) override { Raise(RuntimeError::kNotSupported); }
  void ExportAsFixedFormat(const ExportDocumentArguments& arguments) override {
    Note("export " + ToUtf8(arguments.OutputFileName));
    word_.exported = arguments;
    if (word_.refusesToExport) throw Error(5, Text(), u"no room");
  }

  void Activate() override { Note("activate " + ToUtf8(name_)); }
  std::int32_t WindowCount() const override { return word_.windowCount; }
  WordWindowState WindowState() const override { return word_.documentState; }
  void WindowState(WordWindowState state) override { word_.documentState = state; }
  void Close(bool) override {
    Note("close " + ToUtf8(name_));
    std::erase_if(word_.documents, [&](const auto& each) { return each.get() == this; });
  }

  void OpenDataSource(const OpenDataSourceArguments& arguments) override { Note("source " + ToUtf8(arguments.Name)); }
  zorkanca::MainDocumentType MainDocumentType() const override { return type_; }
  void MainDocumentType(zorkanca::MainDocumentType type) override {
    if (word_.refusesKind) throw Error(4605, Text(), u"not available");
    type_ = type;
    Note("kind " + std::to_string(static_cast<int>(type)));
  }
  void Destination(std::int32_t) override {}
  void MailAsAttachment(bool) override {}
  void MailAddressFieldName(TextView) override {}
  void MailSubject(TextView) override {}
  void SuppressBlankLines(bool) override {}
  void FirstRecord(std::int32_t) override {}
  void LastRecord(std::int32_t) override {}
  void ViewMailMergeFieldCodes(std::int32_t) override { Raise(RuntimeError::kNotSupported); }
  void Execute(bool) override {
    Note("execute");
    const Text merged = word_.merge ? word_.merge(text) : text;
    word_.documents.push_back(std::make_shared<FakeDocument>(word_, u"merged", merged));
  }

 private:
  void Note(std::string line) { word_.journal.push_back("word " + std::move(line)); }

  FakeWord& word_;
  Text name_;
  zorkanca::MainDocumentType type_ = zorkanca::MainDocumentType::kNotAMergeDocument;

 public:
  Text text;
};

namespace {

class FakeApplication final : public WordApplication {
 public:
  explicit FakeApplication(FakeWord& word) : word_(word) {}

  WordDocumentReference AddDocument(TextView Template, bool) override { return Make("add ", Template); }
  WordDocumentReference OpenDocument(const OpenDocumentArguments& arguments) override {
    return Make("open ", arguments.FileName);
  }
  WordDocumentReference Documents(std::int32_t index) override {
    return word_.documents.at(word_.documents.size() - static_cast<std::size_t>(index));
  }
  std::int32_t DocumentCount() const override { return static_cast<std::int32_t>(word_.documents.size()); }
  WordDocumentReference ActiveDocument() override { return Documents(1); }
  Text Version() const override { return word_.version; }
  bool Visible() const override { return visible_; }
  void Visible(bool visible) override { Set("visible ", visible_, visible); }
  bool ScreenUpdating() const override { return updating_; }
  void ScreenUpdating(bool updating) override { Set("updating ", updating_, updating); }
  bool CheckLanguage() const override { return checks_; }
  void CheckLanguage(bool check) override { Set("checks ", checks_, check); }
  WordWindowState WindowState() const override { return word_.windowState; }
  void WindowState(WordWindowState state) override {
    if (word_.refusedLine == "maximised") throw Error(5, Text(), u"refused");
    word_.windowState = state;
    if (state == WordWindowState::kMaximize) word_.journal.push_back("word maximised");
  }
  void ActiveWindowState(WordWindowState) override {}
  void Activate() override { word_.journal.push_back("word activate"); }
  void ScreenRefresh() override { word_.journal.push_back("word refresh"); }

 private:
  WordDocumentReference Make(const char* how, TextView path) {
    word_.journal.push_back("word " + std::string(how) + ToUtf8(path));
    if (word_.refusesToOpen) throw Error(5174, Text(), u"no such file");
    word_.documents.push_back(std::make_shared<FakeDocument>(word_, Text(path), word_.templateText));
    return word_.documents.back();
  }
  // Only changes are of interest.
  void Set(const char* what, bool& property, bool value) {
    const std::string line = std::string(what) + (value ? "on" : "off");
    if (word_.refusedLine == line) throw Error(5, Text(), u"refused");
    if (property != value) word_.journal.push_back("word " + line);
    property = value;
  }

  FakeWord& word_;
  bool visible_ = false;
  bool updating_ = true;
  bool checks_ = true;
};

}  // namespace

WordApplicationReference FakeWord::AttachWord() {
  if (ends && application.use_count() == 1) running = false;
  if (!running || !isFound) throw Error(attachError ? attachError : 429, Text(), u"no Word");
  return application;
}

WordDocumentReference FakeWord::GetDocument(TextView path) {
  if (!running) StartWord();
  return application->OpenDocument({.FileName = Text(path)});
}

WordApplicationReference FakeWord::StartWord() {
  journal.push_back("word start");
  running = true;
  application = std::make_shared<FakeApplication>(*this);
  return application;
}

}  // namespace zorkanca::testing
