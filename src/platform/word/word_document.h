// One open Word document: its text, mail merge, form fields, sections, and how it is saved.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/word/mail_merge.h"
#include "platform/word/word_range.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

class WordApplication;

/// Window states (`WdWindowState`).
enum class WordWindowState : std::int32_t { kNormal = 0, kMaximize = 1, kMinimize = 2 };

/// File formats of `SaveAs` (`WdSaveFormat`).
enum class WordSaveFormat : std::int32_t { kDocumentXml = 12, kPdf = 17 };

/// Bookmarks of a PDF (`WdExportCreateBookmarks`).
enum class WdExportCreateBookmarks : std::int32_t {
  wdExportCreateNoBookmarks = 0,
  wdExportCreateHeadingBookmarks = 1,
  wdExportCreateWordBookmarks = 2,
};

/// Arguments of `ExportAsFixedFormat`; the defaults are the object model's.
struct ExportDocumentArguments {
  Text OutputFileName = {};
  std::int32_t ExportFormat = 17;  ///< PDF
  bool OpenAfterExport = false;
  std::int32_t OptimizeFor = 0;  ///< for print
  std::int32_t Range = 0;        ///< the whole document
  std::int32_t Item = 0;         ///< its content, without markup
  bool IncludeDocProps = false;
  bool KeepIRM = true;
  WdExportCreateBookmarks CreateBookmarks = WdExportCreateBookmarks::wdExportCreateNoBookmarks;
  bool DocStructureTags = true;
  bool BitmapMissingFonts = true;
  bool UseISO19005_1 = false;  ///< PDF/A
};

/// Margins in points.
class WordPageSetup {
 public:
  virtual ~WordPageSetup() = default;
  virtual void LeftMargin(float points) = 0;
  virtual void TopMargin(float points) = 0;
};

class WordDocument : public Object {
 public:
  virtual std::shared_ptr<WordApplication> Application() = 0;
  /// Full path of its file; "DocumentN" while it was never saved.
  virtual Text FullName() const = 0;

  /// `Range(Start, End)`: a part of the main text. Errors: 4608 outside the text.
  virtual std::unique_ptr<WordRange> Range(std::int32_t start, std::int32_t end) = 0;
  /// The whole main text.
  virtual std::unique_ptr<WordRange> Content() = 0;
  /// `Sections(section).Headers(1).Range`: primary header, sections from 1. Errors: 5941 for a section that is not
  /// there.
  virtual std::unique_ptr<WordRange> PrimaryHeader(std::int32_t section) = 0;
  /// `Sections(section).Footers(1).Range`.
  virtual std::unique_ptr<WordRange> PrimaryFooter(std::int32_t section) = 0;

  /// The document as the main document of a mail merge; lives as long as the document.
  virtual WordMailMerge& MailMerge() = 0;

  /// `FormFields(name).Result`. Errors: 5941 when there is no such field.
  virtual Text FormFieldResult(TextView name) = 0;
  virtual void FormFieldResult(TextView name, TextView result) = 0;
  /// Takes the protection away. Errors: 4605 when the document is not protected, 5485 for a wrong password.
  virtual void Unprotect() = 0;
  /// Protects for the filling of forms only (type 2). Errors: 4605 for another type or when it is protected already.
  virtual void Protect(std::int32_t type) = 0;

  /// `PageSetup`: of all sections.
  virtual std::unique_ptr<WordPageSetup> PageSetup() = 0;
  /// `Sections(section).PageSetup`, sections from 1. Errors: 5941.
  virtual std::unique_ptr<WordPageSetup> SectionPageSetup(std::int32_t section) = 0;

  virtual void Activate() = 0;
  /// `Windows.Count`: of those that show this document.
  virtual std::int32_t WindowCount() const = 0;
  /// `ActiveWindow.WindowState`.
  virtual WordWindowState WindowState() const = 0;
  virtual void WindowState(WordWindowState state) = 0;
  /// Writes the document to a file, whole or not at all; it then has that name. Errors: those of files; 438 for another
  /// format.
  virtual void SaveAs(TextView fileName, WordSaveFormat format) = 0;
  virtual void ExportAsFixedFormat(const ExportDocumentArguments& arguments) = 0;
  /// Closes the document; every other member then raises 5825. Errors: 438 when changes are to be saved.
  virtual void Close(bool SaveChanges) = 0;
};
using WordDocumentReference = std::shared_ptr<WordDocument>;

}  // namespace zorkanca
