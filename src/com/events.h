// The events of cZorOffice: who listens, and how they are told.
#pragma once

#include <utility>
#include <vector>

#include "com/module.h"
#include "com/type_library.h"
#include "export/zor_office_events.h"
#include "win32/automation/com_pointer.h"

namespace zorkanca::com {

/// The connection point of `__cZorOffice`: an object of its own that may outlive the one whose events it raises.
/// An event goes to those who listen when it is raised, one after the other; what goes wrong there is their business.
class EventSource final : public IConnectionPoint, public ZorOfficeEvents {
 public:
  /// @param container  whose events these are; not counted, see `Leave`
  explicit EventSource(IConnectionPointContainer* container) : container_(container) {}

  /// The container ends.
  void Leave() { container_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

  void ExportState(ExportStateValue state, TextView DefaultMessage) override;
  void PercentDone(float Percent, bool& Cancel) override;

 private:
  ~EventSource() override = default;
  void Fire(DISPID event, VARIANTARG* arguments, UINT count);

  const ModuleUse use_{};
  ULONG references_ = 1;
  IConnectionPointContainer* container_;
  std::vector<std::pair<DWORD, win32::ComPointer<IDispatch>>> sinks_;
  DWORD lastCookie_ = 0;
};

/// All connection points of an object that has but one.
HRESULT EnumerateConnectionPoints(IConnectionPoint* only, IEnumConnectionPoints** points);

}  // namespace zorkanca::com
