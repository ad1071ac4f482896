// Whole files as bytes: those of the project, and any other.
#pragma once

#include <filesystem>
#include <string>

namespace zorkanca::testing {

/// Where a file of the project lies. @param path  from the project's folder
std::string ProjectPath(const std::string& path);
/// The bytes of a file; "" when it cannot be read.
std::string FileText(const std::filesystem::path& path);
/// The same of a file of the project, by its path from the project's folder. The test fails when it cannot be read.
std::string ProjectFileText(const std::string& path);

}  // namespace zorkanca::testing
