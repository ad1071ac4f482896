#include "libreoffice/fields/marked_fields.h"

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

void RefuseFields(std::string_view reason) {
  Raise(RuntimeError::kInvalidCall, FromUtf8(reason));
}

}  // namespace zorkanca
