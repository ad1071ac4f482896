// Texts in tests: UTF-16 literals shown as UTF-8 in failures, and short conversions.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

/// The text as UTF-8, line ends and tabs visible, so that a failed comparison can be read.
inline std::string Shown(TextView text) {
  std::string result;
  for (const char byte : ToUtf8(text)) {
    if (byte == '\r') {
      result += "\\r";
    } else if (byte == '\n') {
      result += "\\n";
    } else if (byte == '\t') {
      result += "\\t";
    } else {
      result.push_back(byte);
    }
  }
  return result;
}

/// Runs the body and returns the error that it raised; the test fails when it raised none.
template <typename Body>
Error ErrorOf(Body body) {
  try {
    body();
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "no error was raised";
  return Error(0, Text(), Text());
}

}  // namespace zorkanca::testing
