// Word and its documents, driven by the names of their members.
#pragma once

#include <memory>

#include "platform/word/word_application.h"
#include "win32/automation/automation_object.h"

namespace zorkanca::win32 {

class LateWordRange final : public WordRange, public Automation {
 public:
  using Automation::Automation;
  std::int32_t Start() const override;
  std::int32_t End() const override;
  zorkanca::Text Text() override;
  void SetRange(std::int32_t start, std::int32_t end) override;
  void Delete() override;
  bool Find(const FindArguments& arguments) override;
};

class LateWordPageSetup final : public WordPageSetup, public Automation {
 public:
  using Automation::Automation;
  void LeftMargin(float points) override;
  void TopMargin(float points) override;
};

class LateMailMerge final : public WordMailMerge, public Automation {
 public:
  using Automation::Automation;
  void OpenDataSource(const OpenDataSourceArguments& arguments) override;
  zorkanca::MainDocumentType MainDocumentType() const override;
  void MainDocumentType(zorkanca::MainDocumentType type) override;
  void Destination(std::int32_t destination) override;
  void MailAsAttachment(bool attach) override;
  void MailAddressFieldName(TextView name) override;
  void MailSubject(TextView subject) override;
  void SuppressBlankLines(bool suppress) override;
  void FirstRecord(std::int32_t record) override;
  void LastRecord(std::int32_t record) override;
  void ViewMailMergeFieldCodes(std::int32_t view) override;
  void Execute(bool Pause) override;
};

class LateWordDocument final : public WordDocument, public Automation {
 public:
  using Automation::Automation;
  WordApplicationReference Application() override;
  Text FullName() const override;
  std::unique_ptr<WordRange> Range(std::int32_t start, std::int32_t end) override;
  std::unique_ptr<WordRange> Content() override;
  std::unique_ptr<WordRange> PrimaryHeader(std::int32_t section) override;
  std::unique_ptr<WordRange> PrimaryFooter(std::int32_t section) override;
  WordMailMerge& MailMerge() override;
  Text FormFieldResult(TextView name) override;
  void FormFieldResult(TextView name, TextView result) override;
  void Unprotect() override;
  void Protect(std::int32_t type) override;
  std::unique_ptr<WordPageSetup> PageSetup() override;
  std::unique_ptr<WordPageSetup> SectionPageSetup(std::int32_t section) override;
  void Activate() override;
  std::int32_t WindowCount() const override;
  WordWindowState WindowState() const override;
  void WindowState(WordWindowState state) override;
  void SaveAs(TextView fileName, WordSaveFormat format) override;
  void ExportAsFixedFormat(const ExportDocumentArguments& arguments) override;
  void Close(bool SaveChanges) override;

 private:
  std::unique_ptr<LateMailMerge> mailMerge_;  // once asked for
};

class LateWordApplication final : public WordApplication, public Automation {
 public:
  using Automation::Automation;
  WordDocumentReference AddDocument(TextView Template, bool NewTemplate) override;
  WordDocumentReference OpenDocument(const OpenDocumentArguments& arguments) override;
  WordDocumentReference Documents(std::int32_t index) override;
  std::int32_t DocumentCount() const override;
  WordDocumentReference ActiveDocument() override;
  Text Version() const override;
  bool Visible() const override;
  void Visible(bool visible) override;
  bool ScreenUpdating() const override;
  void ScreenUpdating(bool updating) override;
  bool CheckLanguage() const override;
  void CheckLanguage(bool check) override;
  WordWindowState WindowState() const override;
  void WindowState(WordWindowState state) override;
  void ActiveWindowState(WordWindowState state) override;
  void Activate() override;
  void ScreenRefresh() override;
};

}  // namespace zorkanca::win32
