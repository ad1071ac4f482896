#include "word/xml/word_errors.h"

#include "runtime/error.h"

namespace zorkanca {

void RaiseWordError(WordError error, TextView description) {
  throw Error(static_cast<std::int32_t>(error), u"Word", Text(description));
}

void RaiseUnsupportedWordMember(TextView member) {
  Raise(RuntimeError::kNotSupported, Text(u"not supported: Word.").append(member));
}

}  // namespace zorkanca
