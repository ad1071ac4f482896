#include "runtime/error.h"

#include <new>
#include <utility>

#include "runtime/utf8.h"

namespace zorkanca {

Error::Error(std::int32_t number, Text source, Text description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {
  what_ = std::to_string(number_) + " - " + ToUtf8(description_);
}

TextView DescriptionOf(RuntimeError error) {
  switch (error) {
    case RuntimeError::kInvalidCall:
      return u"Invalid procedure call or argument";
    case RuntimeError::kOverflow:
      return u"Overflow";
    case RuntimeError::kOutOfMemory:
      return u"Out of memory";
    case RuntimeError::kSubscriptOutOfRange:
      return u"Subscript out of range";
    case RuntimeError::kTypeMismatch:
      return u"Type mismatch";
    case RuntimeError::kUserInterrupt:
      return u"User interrupt occurred";
    case RuntimeError::kBadFileName:
      return u"Bad file name or number";
    case RuntimeError::kFileNotFound:
      return u"File not found";
    case RuntimeError::kDeviceIo:
      return u"Device I/O error";
    case RuntimeError::kFileExists:
      return u"File already exists";
    case RuntimeError::kDiskFull:
      return u"Disk full";
    case RuntimeError::kPastEndOfFile:
      return u"Input past end of file";
    case RuntimeError::kPermissionDenied:
      return u"Permission denied";
    case RuntimeError::kPathFileAccess:
      return u"Path/File access error";
    case RuntimeError::kPathNotFound:
      return u"Path not found";
    case RuntimeError::kObjectNotSet:
      return u"Object variable or With block variable not set";
    case RuntimeError::kInvalidPattern:
      return u"Invalid pattern string";
    case RuntimeError::kInvalidUseOfNull:
      return u"Invalid use of Null";
    case RuntimeError::kCannotCreateObject:
      return u"ActiveX component can't create object";
    case RuntimeError::kNotSupported:
      return u"Object doesn't support this property or method";
    case RuntimeError::kNoCurrentRecord:
      return u"No current record.";
    case RuntimeError::kItemNotFound:
      return u"Item not found in this collection.";
  }
  return u"Application-defined or object-defined error";
}

void Raise(RuntimeError error) {
  Raise(error, Text(DescriptionOf(error)));
}

void Raise(RuntimeError error, Text description) {
  throw Error(static_cast<std::int32_t>(error), Text(), std::move(description));
}

std::optional<Error> ErrorBeingHandled() {
  const std::exception_ptr current = std::current_exception();
  if (!current) return std::nullopt;
  const auto runtime = [](RuntimeError error, Text description) {
    return Error(static_cast<std::int32_t>(error), Text(), std::move(description));
  };
  try {
    std::rethrow_exception(current);
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return runtime(RuntimeError::kOutOfMemory, Text(DescriptionOf(RuntimeError::kOutOfMemory)));
  } catch (const std::exception& error) {
    return runtime(RuntimeError::kInvalidCall, FromUtf8(error.what()));
  } catch (...) {
    return runtime(RuntimeError::kInvalidCall, Text(DescriptionOf(RuntimeError::kInvalidCall)));
  }
}

}  // namespace zorkanca
