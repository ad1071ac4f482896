// The pointer of a program that is at work.
#pragma once

#include "platform/user_interface.h"

namespace zorkanca {

/// Shows the hourglass as long as it lives, the default pointer after that.
class Hourglass {
 public:
  explicit Hourglass(UserInterface& user) : user_(user) { user_.SetMousePointer(MousePointer::kHourglass); }
  ~Hourglass() { user_.SetMousePointer(MousePointer::kDefault); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  UserInterface& user_;
};

}  // namespace zorkanca
