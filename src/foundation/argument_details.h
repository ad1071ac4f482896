// The details of a wrapped error: which arguments the failed operation was given.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <variant>

#include "runtime/text.h"

namespace zorkanca {

/// One argument of an operation, a text or a whole number.
struct NamedArgument {
  TextView name;
  std::variant<TextView, std::int64_t> value;
};

/// `text = "abc"; totalLength = -1`: texts in double quotes (inner ones not doubled), numbers bare.
Text ArgumentDetails(std::initializer_list<NamedArgument> arguments);

}  // namespace zorkanca
