// The system's arrays: made, owned, and entered for as long as one works in them.
#pragma once

#include <cstddef>
#include <initializer_list>

#include "win32/automation/variant.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// Entrance to the elements of an array; they lie one after the other, the first dimension fastest.
class SafeArrayAccess {
 public:
  /// Errors: 13 when the array lets nobody in.
  explicit SafeArrayAccess(SAFEARRAY* array);
  ~SafeArrayAccess() { SafeArrayUnaccessData(array_); }
  SafeArrayAccess(const SafeArrayAccess&) = delete;
  SafeArrayAccess& operator=(const SafeArrayAccess&) = delete;

  std::byte* data() const { return static_cast<std::byte*>(data_); }
  /// All elements as such; the caller knows that they are.
  template <typename Element>
  Element* As() const {
    return static_cast<Element*>(data_);
  }
  std::size_t elements() const { return elements_; }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
  std::size_t elements_ = 1;
};

/// An array of our own.
class SafeArray {
 public:
  /// @param bounds  size and lower bound of each dimension. Errors: 7.
  SafeArray(VARTYPE elementType, std::initializer_list<SAFEARRAYBOUND> bounds);
  ~SafeArray() {
    if (array_) SafeArrayDestroy(array_);
  }
  SafeArray(const SafeArray&) = delete;
  SafeArray& operator=(const SafeArray&) = delete;

  SafeArrayAccess Access() const { return SafeArrayAccess(array_); }
  /// Gives the array away as a variant.
  Variant Detach();

 private:
  VARTYPE elementType_;
  SAFEARRAY* array_;
};

}  // namespace zorkanca::win32
