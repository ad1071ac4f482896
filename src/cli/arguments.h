// Arguments that begin with "-" and are values all the same ("number P -5", "--select -", "--id -7").
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace zorkanca::cli {

/// The arguments in a form that the option parser reads as meant: the value of an option is joined to it by "=", and
/// what begins with "-" but names no option of the command follows "--" together with the command's other values.
/// @param arguments  without the program's name
std::vector<std::string> WithValuesMarked(const CLI::App& app, const std::vector<std::string>& arguments);

}  // namespace zorkanca::cli
