// Documents on their way to PDF: gathered as temporary files and converted many at a time.
#pragma once

#include <functional>
#include <list>

#include "libreoffice/libreoffice_converter.h"
#include "opc/temporary_package.h"
#include "platform/word/word_document.h"
#include "runtime/locale.h"

namespace zorkanca {

class PdfBatch {
 public:
  struct Settings {
    std::function<bool()> cancelled{};     ///< asked now and then; true ends a conversion
    std::function<void(TextView)> made{};  ///< told the path of each PDF as it is ready
  };

  /// @param locale  of the numbers and dates that documents show
  PdfBatch(const Locale& locale, Settings settings);

  /// Saves the document as it is now; the batch is converted when it is full. Errors: those of saving and `Convert`.
  void Add(WordDocument& document, const Text& target);

  /// Converts what was gathered.
  /// Errors: the first document's that could not be converted, after all others were; 18 when cancelled.
  void Convert();

 private:
  struct Waiting {
    TemporaryPackage file{".docx"};
    Text target;
  };

  LibreOfficeConverter converter_;
  std::function<void(TextView)> made_;
  std::list<Waiting> waiting_;
};

}  // namespace zorkanca
