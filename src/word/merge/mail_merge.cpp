#include "word/merge/mail_merge.h"

#include <algorithm>
#include <limits>

#include "files/native_path.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "word/merge/merge_settings.h"
#include "word/xml/word_errors.h"

namespace zorkanca::word {

namespace {

constexpr std::size_t kMostRecords = std::numeric_limits<std::int32_t>::max();

}  // namespace

void MailMerge::OpenDataSource(const OpenDataSourceArguments& arguments) {
  owner_.package();
  if (!arguments.Connection.empty() || !arguments.SQLStatement.empty() || !arguments.SQLStatement1.empty()) {
    RaiseUnsupportedWordMember(u"MailMerge.OpenDataSource with a query");
  }
  if (arguments.Format != 0) RaiseUnsupportedWordMember(u"MailMerge.OpenDataSource with a format");
  source_ = std::make_shared<const DataSource>(AbsolutePath(ToNativePath(arguments.Name)), *locale_.codePage);
}

// A document with a data source is a main document, of letters unless somebody says otherwise.
MainDocumentType MailMerge::MainDocumentType() const {
  if (type_) return *type_;
  const zorkanca::MainDocumentType own = ReadMergeSettings(owner_.package()).type;
  const bool undecided = own == zorkanca::MainDocumentType::kNotAMergeDocument && source_;
  return undecided ? zorkanca::MainDocumentType::kFormLetters : own;
}

void MailMerge::MainDocumentType(zorkanca::MainDocumentType type) {
  owner_.package();
  if (type < zorkanca::MainDocumentType::kFormLetters || type > zorkanca::MainDocumentType::kCatalog) {
    RaiseUnsupportedWordMember(u"MailMerge.MainDocumentType of that kind");
  }
  type_ = type;
}

void MailMerge::Destination(std::int32_t destination) {
  if (destination != 0) RaiseUnsupportedWordMember(u"MailMerge.Destination other than a new document");
}

void MailMerge::MailAsAttachment(bool attach) {
  if (attach) RaiseUnsupportedWordMember(u"MailMerge.MailAsAttachment");
}

void MailMerge::MailAddressFieldName(TextView name) {
  if (!name.empty()) RaiseUnsupportedWordMember(u"MailMerge.MailAddressFieldName");
}

void MailMerge::MailSubject(TextView subject) {
  if (!subject.empty()) RaiseUnsupportedWordMember(u"MailMerge.MailSubject");
}

void MailMerge::FirstRecord(std::int32_t record) {
  if (record < 1) RaiseWordError(WordError::kOutOfRange, u"Value out of range.");
  firstRecord_ = record;
}

void MailMerge::LastRecord(std::int32_t record) {
  if (record < 1 && record != kLastRecordOfSource) RaiseWordError(WordError::kOutOfRange, u"Value out of range.");
  lastRecord_ = record;
}

std::int32_t MailMerge::RecordCount() {
  if (!source_) RaiseWordError(WordError::kNoDataSource, u"The document has no data source.");
  return static_cast<std::int32_t>(std::min<std::size_t>(source_->records().count(), kMostRecords));
}

// Whether codes or results are seen on the screen: there is none, and results are what the text of a document has.
void MailMerge::ViewMailMergeFieldCodes(std::int32_t view) {
  constexpr std::int32_t kToggle = 9999998;
  owner_.package();
  if (view != kToggle && view != 0 && view != -1 && view != 1) Raise(RuntimeError::kInvalidCall);
}

void MailMerge::Execute(bool Pause) {
  if (Pause) RaiseUnsupportedWordMember(u"MailMerge.Execute that pauses");
  WordPackage& package = owner_.package();
  if (!source_) RaiseWordError(WordError::kNoDataSource, u"The document has no data source.");
  const std::size_t count = source_->records().count();
  MergeOrder order;
  order.source = source_;
  order.type = MainDocumentType();
  order.suppressBlankLines = suppressBlankLines_.value_or(ReadMergeSettings(package).suppressBlankLines);
  order.firstRecord = static_cast<std::size_t>(firstRecord_) - 1;
  order.endRecord = lastRecord_ == kLastRecordOfSource ? count : std::min(count, static_cast<std::size_t>(lastRecord_));
  if (order.firstRecord >= order.endRecord) {
    RaiseWordError(WordError::kNoDataSource,
                   u"The data source " + FromUtf8(source_->path()) + u" holds no record that could be merged.");
  }
  owner_.merge(order);
}

}  // namespace zorkanca::word
