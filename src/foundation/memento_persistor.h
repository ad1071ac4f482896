// Where the states of objects are kept between two runs.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

class IMementoPersistor {
 public:
  virtual ~IMementoPersistor() = default;
  virtual void Save(TextView identifier, TextView data) = 0;
  /// @param defaultData  given when nothing is kept under the identifier
  virtual Text Read(TextView identifier, TextView defaultData) const = 0;
};

}  // namespace zorkanca
