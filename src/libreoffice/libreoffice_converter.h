// PDF documents and the legacy formats, by the LibreOffice that is installed on the computer.
//
// The program is started apart, on a private profile and on copies in a private folder; it is judged by what it leaves
// there, because its exit code is 0 for failures too. A document never sees the network nor other files.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "runtime/error.h"

namespace zorkanca {

/// What the outline of a PDF, its bookmarks, is made of.
enum class PdfBookmarks {
  kNone,
  kHeadings,
  kNamedPlaces  ///< bookmarks of the document, which are named destinations of the PDF as well
};

/// What the PDF is to be like.
struct PdfOptions {
  bool archive = false;  ///< PDF/A-1 (ISO 19005-1), for keeping
  PdfBookmarks bookmarks = PdfBookmarks::kHeadings;
  bool tagged = false;  ///< tells programs that read aloud what is a heading, a paragraph, a table
};

/// One document and where the result goes; native paths, of any characters.
struct Conversion {
  std::string source;
  std::string target;
};

/// Path of the installed soffice: that of the search path, else where the packages put it. Errors: 429 with the
/// packages to install.
std::string FindLibreOffice();

class LibreOfficeConverter {
 public:
  struct Settings {
    std::string program;  ///< path of soffice; searched for when empty
    std::string folder;   ///< private folder for profiles and copies; one below the temporary folder when empty
    /// How long a call may take whatever it converts; more is added for large documents.
    std::chrono::milliseconds patience = std::chrono::seconds(30);
    bool isolateNetwork = true;            ///< runs in an empty network namespace where the system allows it
    std::string localeTag;                 ///< of numbers and dates in documents, "cs-CZ"; LibreOffice's own when empty
    std::function<bool()> cancelled;       ///< asked now and then while the program runs; may be empty
    std::function<void(TextView)> warn{};  ///< told in English of what a document lost on the way; may be empty
  };

  LibreOfficeConverter();
  explicit LibreOfficeConverter(Settings settings);

  /// Writes a document as PDF. The target is replaced whole, or stays as it was.
  /// Errors: 429 when LibreOffice is not installed; 5 when the source is no document or could not be converted, with
  /// what the program said; 18 when cancelled; those of the file system.
  void ToPdf(const std::string& source, const std::string& target, const PdfOptions& options = {}) const;
  /// Writes a document of an earlier or another format (.doc, .dot, .rtf, .odt; .xls, .xlt, .ods) as .docx or .xlsx:
  /// text documents as the one, workbooks as the other, whatever the target is called. The fields of .doc, .dot, .rtf
  /// and Word's XML of 2003 keep all that they say. Errors: as above.
  void ToOpenXml(const std::string& source, const std::string& target) const;

  /// Several documents by as few calls as possible: each further one takes a tenth of the time of the first.
  /// One that fails does not stop the others.
  /// @return for each document its error, or nothing when it is done
  /// Errors: 429 and 18, as above.
  std::vector<std::optional<Error>> ToPdf(std::span<const Conversion> documents, const PdfOptions& options = {}) const;
  std::vector<std::optional<Error>> ToOpenXml(std::span<const Conversion> documents) const;

 private:
  Settings settings_;
};

}  // namespace zorkanca
