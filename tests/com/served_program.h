// A stand-in for an office application, as other programs find it: registered, running, ready to be started.
#pragma once

#include <string>

#include "com/server_under_test.h"
#include "win32/fake_automation.h"

namespace zorkanca::testing {

class ServedProgram {
 public:
  /// @param name  "Word.Application" or "Excel.Application"
  explicit ServedProgram(const std::wstring& name);
  ~ServedProgram() { Stop(); }
  ServedProgram(const ServedProgram&) = delete;
  ServedProgram& operator=(const ServedProgram&) = delete;

  /// It is not found any more. Clients that hold objects of it need it to live on.
  void Stop();

  FakeWorld world{};

 private:
  std::wstring name_;
  LateObject root_;
  DWORD started_ = 0;
  DWORD running_ = 0;
};

}  // namespace zorkanca::testing
