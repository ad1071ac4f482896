// Calls by name: `IDispatch::Invoke` of all our objects.
#pragma once

#include "com/member.h"

namespace zorkanca::com {

/// One call as a client makes it, after `IDispatch::Invoke`.
struct LateCall {
  DISPID id = DISPID_UNKNOWN;
  LCID language = LOCALE_USER_DEFAULT;
  WORD flags = 0;
  DISPPARAMS* arguments = nullptr;
  VARIANT* result = nullptr;      ///< may be null
  EXCEPINFO* failure = nullptr;   ///< may be null
  UINT* wrongArgument = nullptr;  ///< may be null
};

/// Turns the arguments into the types of the member's parameters, calls it, and gives outputs back into the client's
/// variables. Omitted arguments have the library's default, else zero or an empty text; an omitted Variant stays one.
/// Raises nothing.
HRESULT Invoke(InterfaceDescription& description, IDispatch* object, const LateCall& call) noexcept;

}  // namespace zorkanca::com
