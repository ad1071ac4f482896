#include "tabular/file_fault.h"

#include "runtime/utf8.h"

namespace zorkanca {

Error FaultAt(std::int32_t number, TextView source, const std::string& path, const FilePlace& place,
              const Text& reason) {
  Text description = FromUtf8(path) + u", line " + DecimalText(place.line);
  if (*place.unit != 0) description.append(u", ").append(place.unit).append(u" ") += DecimalText(place.number);
  return {number, Text(source), description + u": " + reason};
}

}  // namespace zorkanca
