// The mail merge of an open document.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/word/mail_merge.h"
#include "word/merge/merged_content.h"

namespace zorkanca::word {

class MailMerge final : public WordMailMerge {
 public:
  /// What the document gives it. The functions raise 5825 when it was closed.
  struct Owner {
    std::function<WordPackage&()> package;
    std::function<void(const MergeOrder&)> merge;  ///< makes the merged document
  };
  MailMerge(Owner owner, const Locale& locale) : owner_(std::move(owner)), locale_(locale) {}

  void OpenDataSource(const OpenDataSourceArguments& arguments) override;
  zorkanca::MainDocumentType MainDocumentType() const override;
  void MainDocumentType(zorkanca::MainDocumentType type) override;
  void Destination(std::int32_t destination) override;
  void MailAsAttachment(bool attach) override;
  void MailAddressFieldName(TextView name) override;
  void MailSubject(TextView subject) override;
  void SuppressBlankLines(bool suppress) override { suppressBlankLines_ = suppress; }
  void FirstRecord(std::int32_t record) override;
  void LastRecord(std::int32_t record) override;
  std::int32_t RecordCount() override;
  void ViewMailMergeFieldCodes(std::int32_t view) override;
  void Execute(bool Pause) override;

 private:
  Owner owner_;
  const Locale& locale_;
  std::shared_ptr<const DataSource> source_;
  std::optional<zorkanca::MainDocumentType> type_;  // set by the caller; else the template's own
  std::optional<bool> suppressBlankLines_;
  std::int32_t firstRecord_ = 1;
  std::int32_t lastRecord_ = kLastRecordOfSource;
};

}  // namespace zorkanca::word
