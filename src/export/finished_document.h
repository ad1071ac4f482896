// A document of an export that makes several, as its caller gets it.
#pragma once

#include <functional>
#include <optional>

#include "platform/word/word_document.h"

namespace zorkanca {

struct FinishedDocument {
  WordDocumentReference document;
  /// What the record of the document has in a column, as it went into the document; nothing for an unknown column. The
  /// case of the name is of no account.
  std::function<std::optional<Text>(TextView column)> valueOf;
};

}  // namespace zorkanca
