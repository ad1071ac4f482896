// Errors about files come from the database, the engines and the system, each in its own words; the path is what stands
// between "The file" and "could not be found", or behind the last colon.
#include "cli/input_check.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "runtime/nearest_name.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostEntries = 10000;

std::string PathIn(const std::string& description) {
  constexpr std::string_view kEnd = " could not be found.";
  for (const std::string_view start : {"The file ", "The data source "}) {
    if (!description.starts_with(start) || !description.ends_with(kEnd)) continue;
    return description.substr(start.size(), description.size() - start.size() - kEnd.size());
  }
  const std::size_t colon = description.rfind(": ");
  if (colon == std::string::npos) return "";
  std::string path = description.substr(colon + 2);
  // A template is looked for in two places; the last one is the current folder.
  const std::size_t comma =
      description.starts_with("The template was not found") ? path.rfind(", ") : std::string::npos;
  return comma == std::string::npos ? path : path.substr(comma + 2);
}

// The name of an entry beside a file that is not there: of the same kind and nearly the same name, or of the same name
// and another kind.
std::string NearestBeside(const fs::path& wanted) {
  std::vector<std::string> stems;
  std::vector<std::string> names;  // of the stems
  std::string sameStem;
  std::error_code failure;
  std::size_t seen = 0;
  const fs::path folder = wanted.has_parent_path() ? wanted.parent_path() : fs::path(".");
  for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end && seen < kMostEntries;
       entry.increment(failure), ++seen) {
    const fs::path name = entry->path().filename();
    if (EqualsIgnoringCase(FromUtf8(name.extension().string()), FromUtf8(wanted.extension().string()))) {
      stems.push_back(name.stem().string());
      names.push_back(name.string());
    } else if (name.stem() == wanted.stem()) {
      sameStem = name.string();
    }
  }
  const std::string nearest = NearestName(wanted.stem().string(), stems, /*byBeginning=*/false);
  const auto place = std::find(stems.begin(), stems.end(), nearest);
  if (nearest.empty() || place == stems.end()) return sameStem;
  return names[static_cast<std::size_t>(place - stems.begin())];
}

}  // namespace

void RequireFile(const CommandContext& context, const Text& path) {
  FileSystem& files = context.platform.files;
  if (files.FolderExists(path)) Raise(RuntimeError::kPathFileAccess, u"A folder, not a file: " + path);
  if (!files.FileExists(path)) Raise(RuntimeError::kFileNotFound, u"File not found: " + path);
}

Text FileHint(const Error& error) {
  const std::string path = PathIn(ToUtf8(error.description()));
  std::error_code failure;
  if (path.empty() || fs::exists(path, failure) || failure) return {};
  return FromUtf8(DidYouMean(NearestBeside(path)));
}

}  // namespace zorkanca::cli
