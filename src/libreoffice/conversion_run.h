// One batch of documents on its way through LibreOffice.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "libreoffice/conversion_check.h"
#include "libreoffice/fields/marked_fields.h"
#include "libreoffice/libreoffice_converter.h"

namespace zorkanca {

/// What is to be made of a document.
struct OutputForm {
  std::string extension;  ///< "pdf", of the file that the program leaves
  std::string filter;     ///< the program's option: "pdf:writer_pdf_Export:{...}"
  /// Changes a result in place before it is delivered, given the document and the result; may be empty.
  std::function<void(const std::string&, const std::string&)> finish{};
  bool keepsFields = false;  ///< the result is a Word package that has the fields of the document
};

/// Converts documents that go through the same filter. The private folder of the run is gone at its end.
class ConversionRun {
 public:
  /// @param program  absolute path of soffice
  ConversionRun(const LibreOfficeConverter::Settings& settings, std::string program, OutputForm form);
  ~ConversionRun();
  ConversionRun(const ConversionRun&) = delete;
  ConversionRun& operator=(const ConversionRun&) = delete;

  /// Copies a checked document in. @return its number, from 0
  std::size_t Add(const std::string& source, const ConvertibleDocument& document);
  /// Converts all; again, what lost its fields on the way. Warns of those that could not be kept. @return for each
  /// document why it failed, or nothing
  std::vector<std::optional<std::string>> Convert();
  /// Finishes the result of a document that did not fail and moves it to its place. Errors: those of the file system.
  void Deliver(std::size_t number, const std::string& target) const;

 private:
  // What one call of the program came to.
  struct Outcome {
    bool finished = true;
    std::string said;
  };
  struct Document {
    std::string source;
    std::string copy;
    std::string markedCopy{};              // converted in its place, while there is one
    std::optional<MarkedFields> fields{};  // of that
    Text loss{};                           // why what its fields say is lost
    std::uint64_t size = 0;
  };
  using Failures = std::vector<std::optional<std::string>>;

  void WarnOfLosses(const Failures& failures) const;
  bool HasItsFields(std::size_t number) const;
  void ConvertInto(Failures& failures, std::vector<std::size_t> left) const;
  Outcome Call(std::span<const std::size_t> numbers) const;
  std::vector<std::string> CommandLine(const std::string& profileUrl, std::span<const std::size_t> numbers) const;
  std::string ReasonOf(const Outcome& outcome) const;
  std::string ResultOf(std::size_t number) const;
  bool IsDone(std::size_t number) const;

  const LibreOfficeConverter::Settings& settings_;
  std::string program_;
  OutputForm form_;
  std::string base_;    // private folder of all runs
  std::string folder_;  // of this one
  std::vector<Document> documents_;
};

}  // namespace zorkanca
