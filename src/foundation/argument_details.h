// The details of a wrapped error: which arguments the failed operation was given.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <variant>

#include "runtime/text.h"

namespace zorkanca {

/// One argument of an operation, a text or a whole number.
struct NamedArgument {
  TextView name;
  std::variant<TextView, std::int64_t> value;
};

/// The arguments of one call, turned into text only when it is asked for:
/// `text = "abc"; totalLength = -1`, texts in double quotes (inner ones not doubled), numbers bare.
///
/// It refers to the list that it is made of and therefore lives within one expression, as an argument of `Guarded`.
class ArgumentDetails {
 public:
  ArgumentDetails(std::initializer_list<NamedArgument> arguments) : arguments_(arguments.begin(), arguments.size()) {}

  Text operator()() const;

 private:
  std::span<const NamedArgument> arguments_;
};

}  // namespace zorkanca
