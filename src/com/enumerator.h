// The system's enumerators: all of one shape, over a list that was taken when the enumerator was made.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "com/module.h"
#include "win32/automation/com_pointer.h"
#include "win32/system.h"

namespace zorkanca::com {

/// How an element is given to the client, who then owns it.
inline void GiveElement(const win32::ComPointer<IDispatch>& element, VARIANT& place) {
  place.vt = VT_DISPATCH;
  place.pdispVal = win32::ComPointer<IDispatch>(element).Detach();
}
inline void GiveElement(const win32::ComPointer<IConnectionPoint>& element, IConnectionPoint*& place) {
  place = win32::ComPointer<IConnectionPoint>(element).Detach();
}
inline void GiveElement(const std::pair<DWORD, win32::ComPointer<IDispatch>>& element, CONNECTDATA& place) {
  place.dwCookie = element.first;
  place.pUnk = win32::ComPointer<IDispatch>(element.second).Detach();
}

/// @tparam Interface  IEnumVARIANT and its kin
/// @tparam Element    what is held
/// @tparam Given      what the client gets of it
template <typename Interface, typename Element, typename Given>
class Enumerator final : public Interface {
 public:
  explicit Enumerator(std::vector<Element> elements)
      : elements_(std::make_shared<const std::vector<Element>>(std::move(elements))) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = id == IID_IUnknown || id == __uuidof(Interface) ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* places, ULONG* given) override {
    if (given) *given = 0;
    if (!places || (count > 1 && !given)) return E_POINTER;
    ULONG done = 0;
    for (; done < count && position_ < elements_->size(); ++done) GiveElement((*elements_)[position_++], places[done]);
    if (given) *given = done;
    return done == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = elements_->size() - position_;
    position_ += count < left ? count : left;
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    position_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override {
    if (!copy) return E_POINTER;
    *copy = new (std::nothrow) Enumerator(*this);
    return *copy ? S_OK : E_OUTOFMEMORY;
  }

 private:
  Enumerator(const Enumerator& other) : elements_(other.elements_), position_(other.position_) {}
  ~Enumerator() = default;

  const ModuleUse use_{};
  ULONG references_ = 1;
  std::shared_ptr<const std::vector<Element>> elements_;
  std::size_t position_ = 0;
};

using ObjectEnumerator = Enumerator<IEnumVARIANT, win32::ComPointer<IDispatch>, VARIANT>;

}  // namespace zorkanca::com
