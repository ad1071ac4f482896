// A counted reference to an object of COM.
#pragma once

#include <utility>

#include "win32/system.h"

namespace zorkanca::win32 {

template <typename Interface>
class ComPointer {
 public:
  ComPointer() = default;
  /// One more reference to the object; null is allowed.
  explicit ComPointer(Interface* shared) : pointer_(shared) {
    if (pointer_) pointer_->AddRef();
  }
  ComPointer(const ComPointer& other) : ComPointer(other.pointer_) {}
  ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ~ComPointer() { Reset(); }
  ComPointer& operator=(ComPointer other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }

  /// Takes over a reference that somebody else counted.
  static ComPointer Owning(Interface* counted) {
    ComPointer pointer;
    pointer.pointer_ = counted;
    return pointer;
  }

  Interface* get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }

  /// Where a function puts a reference that it counted; what was held before is released.
  Interface** Receive() {
    Reset();
    return &pointer_;
  }
  void** ReceiveAny() { return reinterpret_cast<void**>(Receive()); }
  /// Gives the counted reference away.
  Interface* Detach() { return std::exchange(pointer_, nullptr); }
  void Reset() {
    if (Interface* const released = std::exchange(pointer_, nullptr)) released->Release();
  }

  /// Another interface of the object; null when it has none.
  template <typename Other>
  ComPointer<Other> As() const {
    ComPointer<Other> other;
    if (!pointer_ || FAILED(pointer_->QueryInterface(__uuidof(Other), other.ReceiveAny()))) other.Detach();
    return other;
  }

 private:
  Interface* pointer_ = nullptr;
};

}  // namespace zorkanca::win32
