// What may follow on a command line that is still being typed, for the shells that ask.
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace zorkanca::cli {

/// The first argument with which a shell asks; the words behind the program's name follow, the unfinished one last.
inline constexpr const char* kCompleteCommand = "complete";

/// Prints a line for each word that may stand there, with a tab and its description where it has one. A last line
/// ":files" or ":folders" asks the shell for paths as well.
void PrintCompletions(const CLI::App& app, const std::vector<std::string>& words);

/// Script that makes a shell ask. @param shell  bash, zsh or fish
std::string CompletionScript(const std::string& shell);

}  // namespace zorkanca::cli
