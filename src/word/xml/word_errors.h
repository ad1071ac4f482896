// The application's own errors, with the numbers of its object model.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

enum class WordError : std::int32_t {
  kNoOpenDocument = 4248,
  kNotAvailable = 4605,  ///< the member makes no sense in this state
  kOutOfRange = 4608,
  kTextTooLong = 4609,
  kFileNotFound = 5174,
  kWrongPassword = 5485,
  kNoDataSource = 5631,   ///< no data source, or no records in it
  kObjectDeleted = 5825,  ///< the document was closed
  kMemberMissing = 5941,  ///< no such member of a collection
};

[[noreturn]] void RaiseWordError(WordError error, TextView description);
/// Error 438 "not supported: Word.MEMBER".
[[noreturn]] void RaiseUnsupportedWordMember(TextView member);

}  // namespace zorkanca
