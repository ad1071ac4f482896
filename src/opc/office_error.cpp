#include "opc/office_error.h"

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

void RaiseNotOfficeDocument(std::string_view file, std::string_view reason) {
  Raise(RuntimeError::kInvalidCall, FromUtf8(file) + u" is not an Office document: " + FromUtf8(reason));
}

void RaiseBadPart(std::string_view file, std::string_view part, std::string_view reason) {
  RaiseNotOfficeDocument(file, "part " + std::string(part) + ": " + std::string(reason));
}

}  // namespace zorkanca
