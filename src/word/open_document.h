// An open document of the engine under the members of the object model.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "libreoffice/libreoffice_converter.h"
#include "platform/word/word_application.h"
#include "word/document/document_content.h"
#include "word/forms/form_fields.h"
#include "word/merge/mail_merge.h"
#include "word/text/story_range.h"

namespace zorkanca::word {

/// What a document needs of the application that holds it.
struct DocumentHolder {
  std::function<std::shared_ptr<WordApplication>()> application;
  std::function<void(const WordDocument&)> activate;
  std::function<void(const WordDocument&)> close;
  std::function<void(std::unique_ptr<DocumentContent>)> add;  ///< opens what a merge made
  std::function<void(TextView)> warn;
  std::function<bool()> cancelled;
  const LibreOfficeConverter& converter;
  const Locale& locale;
};

class OpenDocument final : public WordDocument, public std::enable_shared_from_this<OpenDocument> {
 public:
  OpenDocument(std::unique_ptr<DocumentContent> content, Text name, DocumentHolder holder);

  std::shared_ptr<WordApplication> Application() override;
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
  std::int32_t WindowCount() const override { return Opened(), 1; }
  WordWindowState WindowState() const override;
  void WindowState(WordWindowState state) override;
  void SaveAs(TextView fileName, WordSaveFormat format) override;
  void ExportAsFixedFormat(const ExportDocumentArguments& arguments) override;
  void Close(bool SaveChanges) override;

 private:
  DocumentContent& Opened() const;
  /// The body's tree. Errors: 438 for a merged document.
  pugi::xml_node RequireBody(TextView member) const;
  std::unique_ptr<WordRange> HeaderRange(std::int32_t section, HeaderKind kind);
  FormFields& Fields();
  Package PackageFor(const std::string& path);
  void WritePdf(const std::string& path, const PdfOptions& options);

  std::unique_ptr<DocumentContent> content_;  // null after closing
  Text name_;
  DocumentHolder holder_;
  word::MailMerge mailMerge_;
  std::optional<FormFields> fields_;  // found in the body of that version
  std::uint64_t fieldsVersion_ = 0;
};

}  // namespace zorkanca::word
