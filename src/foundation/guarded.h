// The one way in which operations of the library report a failure inside them:
//
//   Text StringRoutines::StrDup(std::int32_t number, TextView text) {
//     ...checks of arguments, whose errors reach the caller as they are...
//     return Guarded(u"StringRoutines.StrDup", ArgumentDetails({{u"number", number}, {u"text", text}}), [&] {
//       ...body...
//     });
//   }
//
// An error that crosses two guarded operations names both in its source, the outer one first. Operations whose body
// can raise nothing, short of the computer running out of memory, need no guard.
#pragma once

#include "foundation/unexpected_error.h"
#include "runtime/text.h"

namespace zorkanca {

/// Details of an operation that has no arguments.
inline Text NoArguments() {
  return {};
}

/// Runs the body and gives its result; whatever it raises is raised again as an internal error.
/// @param name     "Class.Operation", the prefix of the class as the error sources have it
/// @param details  called only after a failure; gives the text of the arguments
/// Errors: `UnexpectedErrorCode`, see `ErrData::RaiseAsInternalError`.
template <typename Details, typename Body>
auto Guarded(TextView name, const Details& details, const Body& body) -> decltype(body()) {
  try {
    return body();
  } catch (...) {
    UnexpectedError().RaiseCurrentErrorAsUnexpected(name, details());
  }
}

}  // namespace zorkanca
