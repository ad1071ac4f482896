// A server that is busy with something else: it is asked again.
#pragma once

#include "win32/system.h"

namespace zorkanca::win32 {

/// How long one asks again, in milliseconds.
struct Patience {
  DWORD pause = 100;
  DWORD atMost = 10'000;
};

/// What a call of automation ends with when the server did not take it: a dialog is open, a cell is being edited.
constexpr bool IsBusy(HRESULT result) {
  constexpr auto kCellIsEdited = static_cast<HRESULT>(0x800AC472);  // Excel's own
  return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER || result == kCellIsEdited;
}

/// Calls until the server takes the call, or patience ends. How messages are dealt with meanwhile is the business of
/// the client, whose thread this is: no message filter is set.
template <typename Call>
HRESULT CallWhileBusy(Call call, Patience patience = {}) {
  const ULONGLONG start = GetTickCount64();
  for (;;) {
    const HRESULT result = call();
    if (!IsBusy(result) || GetTickCount64() - start >= patience.atMost) return result;
    Sleep(patience.pause);
  }
}

}  // namespace zorkanca::win32
