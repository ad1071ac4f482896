// The one shape of the errors about files that are not what their name says.
#pragma once

#include <string>
#include <string_view>

namespace zorkanca {

/// Raises error 5 "FILE is not an Office document: REASON".
/// @param file    path of the package, UTF-8
/// @param reason  an English clause without full stop
[[noreturn]] void RaiseNotOfficeDocument(std::string_view file, std::string_view reason);

/// The same with the part that is to blame: "FILE is not an Office document: part PART: REASON".
[[noreturn]] void RaiseBadPart(std::string_view file, std::string_view part, std::string_view reason);

}  // namespace zorkanca
