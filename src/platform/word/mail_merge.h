// The mail merge of a main document over a data file.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

/// Kinds of main documents (`WdMailMergeMainDocType`).
enum class MainDocumentType : std::int32_t {
  kNotAMergeDocument = -1,
  kFormLetters = 0,
  kMailingLabels = 1,
  kEnvelopes = 2,
  kCatalog = 3,
};

/// `DataSource.LastRecord` that means the last record of the source.
inline constexpr std::int32_t kLastRecordOfSource = -16;

/// Arguments of `OpenDataSource`; the defaults are the object model's.
struct OpenDataSourceArguments {
  Text Name = {};
  bool ConfirmConversions = true;
  bool ReadOnly = false;
  bool LinkToSource = true;
  bool AddToRecentFiles = true;
  Text PasswordDocument = {};
  Text PasswordTemplate = {};
  Text WritePasswordDocument = {};
  Text WritePasswordTemplate = {};
  bool Revert = false;
  std::int32_t Format = 0;
  Text Connection = {};
  Text SQLStatement = {};
  Text SQLStatement1 = {};
};

class WordMailMerge {
 public:
  virtual ~WordMailMerge() = default;
  /// Attaches a delimited text file whose first line names the columns.
  /// Errors: 5174 when it is missing, 5 when it is no such file.
  virtual void OpenDataSource(const OpenDataSourceArguments& arguments) = 0;
  /// The kind of main document; setting it needs no data source.
  virtual zorkanca::MainDocumentType MainDocumentType() const = 0;
  virtual void MainDocumentType(zorkanca::MainDocumentType type) = 0;
  /// 0: into a new document; errors: 438 for any other destination.
  virtual void Destination(std::int32_t destination) = 0;
  virtual void MailAsAttachment(bool attach) = 0;
  virtual void MailAddressFieldName(TextView name) = 0;
  virtual void MailSubject(TextView subject) = 0;
  virtual void SuppressBlankLines(bool suppress) = 0;
  /// `DataSource.FirstRecord`, from 1.
  virtual void FirstRecord(std::int32_t record) = 0;
  /// `DataSource.LastRecord`; `kLastRecordOfSource` for all.
  virtual void LastRecord(std::int32_t record) = 0;
  /// `DataSource.RecordCount`; -1 when the application does not know.
  virtual std::int32_t RecordCount() { return -1; }
  virtual void ViewMailMergeFieldCodes(std::int32_t view) = 0;
  /// Merges into a new document, which becomes the active one.
  /// Errors: 5631 without a data source or records; 5 with a description for data that cannot be merged.
  virtual void Execute(bool Pause) = 0;
};

}  // namespace zorkanca
