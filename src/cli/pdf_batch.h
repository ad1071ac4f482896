// Documents on their way to PDF: gathered as temporary files and converted many at a time.
#pragma once

#include <atomic>
#include <list>
#include <string>

#include "host/libreoffice/libreoffice_converter.h"
#include "host/word/document/temporary_file.h"
#include "platform/word/word_document.h"
#include "runtime/locale.h"

namespace zorkanca::cli {

class PdfBatch {
 public:
  /// @param interrupted  stops a conversion once it is set; outlives the batch
  /// @param locale  of the numbers and dates that documents show
  PdfBatch(const Locale& locale, const std::atomic<bool>& interrupted);

  /// Saves the document as it is now; the batch is converted when it is full. Errors: those of saving and `Convert`.
  void Add(WordDocument& document, const Text& target);

  /// Converts what was gathered and prints the path of each PDF.
  /// Errors: the first document's that could not be converted, after all others were; 18 when interrupted.
  void Convert();

 private:
  struct Waiting {
    word::TemporaryDocument file;
    Text target;
  };

  LibreOfficeConverter converter_;
  std::list<Waiting> waiting_;
};

}  // namespace zorkanca::cli
