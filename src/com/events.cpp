#include "com/events.h"

#include <algorithm>
#include <array>

#include "com/enumerator.h"
#include "win32/automation/variant.h"

namespace zorkanca::com {

namespace {

constexpr DISPID kExportState = 1;
constexpr DISPID kPercentDone = 2;

VARIANTARG ByReference(VARTYPE type, void* place) {
  VARIANTARG argument{};
  argument.vt = static_cast<VARTYPE>(VT_BYREF | type);
  argument.byref = place;
  return argument;
}

// A listener may be a script that fails, or C++ code that throws: neither may end the export.
void Tell(IDispatch& sink, DISPID event, DISPPARAMS& arguments) noexcept {
  EXCEPINFO failure{};
  try {
    win32::Variant ignored;
    sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, ignored.Receive(), &failure,
                nullptr);
  } catch (...) {
    return;
  }
  SysFreeString(failure.bstrSource);
  SysFreeString(failure.bstrDescription);
  SysFreeString(failure.bstrHelpFile);
}

}  // namespace

HRESULT EventSource::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = id == IID_IUnknown || id == IID_IConnectionPoint ? static_cast<IConnectionPoint*>(this) : nullptr;
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG EventSource::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT EventSource::GetConnectionInterface(IID* id) {
  if (!id) return E_POINTER;
  *id = __uuidof(::__cZorOffice);
  return S_OK;
}

HRESULT EventSource::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  *container = win32::ComPointer<IConnectionPointContainer>(container_).Detach();
  return container_ ? S_OK : E_UNEXPECTED;
}

// Those who know no name for the events, as some hosts of scripts, are told by number all the same.
HRESULT EventSource::Advise(IUnknown* sink, DWORD* cookie) {
  if (!sink || !cookie) return E_POINTER;
  *cookie = 0;
  win32::ComPointer<IDispatch> listener;
  if (FAILED(sink->QueryInterface(__uuidof(::__cZorOffice), listener.ReceiveAny()))) {
    listener.Detach();
    if (FAILED(sink->QueryInterface(IID_IDispatch, listener.ReceiveAny()))) return CONNECT_E_CANNOTCONNECT;
  }
  try {
    sinks_.emplace_back(lastCookie_ + 1, std::move(listener));
  } catch (...) {
    return E_OUTOFMEMORY;
  }
  *cookie = ++lastCookie_;
  return S_OK;
}

HRESULT EventSource::Unadvise(DWORD cookie) {
  const auto sink = std::find_if(sinks_.begin(), sinks_.end(), [&](const auto& each) { return each.first == cookie; });
  if (sink == sinks_.end()) return CONNECT_E_NOCONNECTION;
  const auto released = std::move(sink->second);  // whose last call may come back here
  sinks_.erase(sink);
  return S_OK;
}

HRESULT EventSource::EnumConnections(IEnumConnections** connections) {
  if (!connections) return E_POINTER;
  *connections = nullptr;
  try {
    using Connections = Enumerator<IEnumConnections, std::pair<DWORD, win32::ComPointer<IDispatch>>, CONNECTDATA>;
    *connections = new Connections(sinks_);
    return S_OK;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

void EventSource::ExportState(ExportStateValue state, TextView DefaultMessage) {
  long number = static_cast<long>(state);
  win32::Variant message = win32::TextToVariant(DefaultMessage);
  VARIANT text = message.Detach();
  std::array<VARIANTARG, 2> arguments{ByReference(VT_BSTR, &text.bstrVal), ByReference(VT_I4, &number)};
  Fire(kExportState, arguments.data(), 2);
  VariantClear(&text);
}

void EventSource::PercentDone(float Percent, bool& Cancel) {
  VARIANT_BOOL cancel = Cancel ? VARIANT_TRUE : VARIANT_FALSE;
  std::array<VARIANTARG, 2> arguments{ByReference(VT_BOOL, &cancel), ByReference(VT_R4, &Percent)};
  Fire(kPercentDone, arguments.data(), 2);
  Cancel = cancel != VARIANT_FALSE;
}

// Arguments stand from the last to the first. The list is copied: handlers may end their listening, or that of others.
void EventSource::Fire(DISPID event, VARIANTARG* arguments, UINT count) {
  const auto sinks = sinks_;
  for (const auto& [cookie, sink] : sinks) {
    DISPPARAMS parameters{.rgvarg = arguments, .rgdispidNamedArgs = nullptr, .cArgs = count, .cNamedArgs = 0};
    Tell(*sink.get(), event, parameters);
  }
}

HRESULT EnumerateConnectionPoints(IConnectionPoint* only, IEnumConnectionPoints** points) {
  if (!points) return E_POINTER;
  *points = nullptr;
  try {
    using Points = Enumerator<IEnumConnectionPoints, win32::ComPointer<IConnectionPoint>, IConnectionPoint*>;
    *points = new Points({win32::ComPointer<IConnectionPoint>(only)});
    return S_OK;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace zorkanca::com
