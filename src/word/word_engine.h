// Our own engine in Word's place: it opens, merges and writes real Word documents without Word. What it supports and
// how it decided where Word's behaviour is in doubt stands in docs/formats/word.md.
#pragma once

#include <functional>
#include <memory>

#include "libreoffice/libreoffice_converter.h"
#include "platform/template_fields.h"
#include "platform/word/word_application.h"
#include "runtime/locale.h"

namespace zorkanca {

class WordEngine final {
 public:
  /// Told in English of what a merge left as it was (an unknown field, a switch).
  using Warn = std::function<void(TextView)>;

  /// @param locale     of numbers, dates and ANSI data files; outlives the engine
  /// @param converter  makes PDF and reads documents of other formats
  /// @param cancelled  asked now and then during long work, which ends with error 18 then; may be empty
  explicit WordEngine(const Locale& locale, LibreOfficeConverter converter = {}, Warn warn = {},
                      std::function<bool()> cancelled = {});
  ~WordEngine();

  /// The application that this engine started; it runs until the engine is gone. Errors: 429 before.
  WordApplicationReference AttachWord();
  /// One application runs at a time: a second start gives the running one.
  WordApplicationReference StartWord();
  /// The open document of that file, which is opened if need be. Errors: as `WordApplication::OpenDocument`.
  WordDocumentReference GetDocument(TextView path);
  /// What the file asks for as a template, see merge/template_reading.h. Errors: as `WordApplication::AddDocument`.
  std::vector<TemplateField> TemplateFields(TextView path) const;

 private:
  struct Environment;

  std::shared_ptr<const Environment> environment_;
  WordApplicationReference running_;

  friend class EngineWord;
};

}  // namespace zorkanca
