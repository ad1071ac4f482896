#include "libreoffice/conversion_run.h"

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <string_view>
#include <utility>

#include "files/atomic_file.h"
#include "files/native_path.h"
#include "files/system_error.h"
#include "files/temporary_folder.h"
#include "libreoffice/child_group.h"
#include "libreoffice/fields/field_keeping.h"
#include "libreoffice/fields/field_return.h"
#include "libreoffice/office_profile.h"
#include "runtime/ascii.h"

namespace zorkanca {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPerPage(50);
constexpr std::uint64_t kBytesPerPage = 2048;  // rather too few: a page too many only waits longer
constexpr milliseconds kPerDocument(1500);
constexpr milliseconds kLongest = std::chrono::minutes(30);
constexpr std::size_t kLongestMessage = 600;
constexpr const char* kUnshare = "/usr/bin/unshare";

// The extension by which the program chooses among formats that begin alike; nothing that could be misread.
std::string SafeExtension(const std::string& path) {
  const std::string extension = AsciiLower(std::filesystem::path(path).extension().native());
  const bool safe =
      extension.size() > 1 && extension.size() <= 6 &&
      std::all_of(extension.begin() + 1, extension.end(), [](char c) { return (c >= 'a' && c <= 'z') || IsDigit(c); });
  return safe ? extension : std::string();
}

void CopyInto(const std::string& source, const std::string& target) {
  std::error_code failure;
  std::filesystem::copy_file(source, target, failure);
  if (failure) RaisePathError(failure.value(), source);
}

// What the program said, the end when it said much: without what it says each time on a computer without Java, without
// the names of our folder, on one line.
std::string ReadMessage(const std::string& path, const std::string& folder) {
  constexpr std::string_view kNoJava = "Warning: failed to launch javaldx";
  std::ifstream file(path, std::ios::binary);
  std::string message;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kNoJava)) continue;
    for (std::size_t at = line.find(folder); at != line.npos; at = line.find(folder, at)) line.erase(at, folder.size());
    if (!message.empty()) message += ' ';
    message += line;
    if (message.size() > 2 * kLongestMessage) message.erase(0, message.size() - kLongestMessage);
  }
  if (message.size() > kLongestMessage) message.erase(0, message.size() - kLongestMessage);
  return message;
}

// Whether a program may be started without any network; asked once, it is the same for the whole process.
bool NetworkCanBeIsolated(const std::string& folder) {
  static const bool allowed = [&] {
    if (access(kUnshare, X_OK) != 0) return false;
    const std::string proof = JoinPath(folder, "isolated");
    const std::string output = JoinPath(folder, "isolation");
    RunInGroup({.arguments = {kUnshare, "--map-root-user", "--net", "/usr/bin/touch", proof},
                .environment = {},
                .outputFile = output,
                .patience = std::chrono::seconds(5),
                .cancelled = {}});
    return access(proof.c_str(), F_OK) == 0;
  }();
  return allowed;
}

}  // namespace

ConversionRun::ConversionRun(const LibreOfficeConverter::Settings& settings, std::string program, OutputForm form)
    : settings_(settings), program_(std::move(program)), form_(std::move(form)), base_(settings.folder) {
  if (base_.empty()) base_ = JoinPath(PrivateTemporaryFolder(), "zorkanca-libreoffice-" + std::to_string(geteuid()));
  RequirePrivateFolder(base_);
  folder_ = JoinPath(base_, "run-XXXXXX");
  if (!mkdtemp(folder_.data())) RaisePathError(errno, folder_);
  for (const char* name : {"in", "marked", "out", "tmp"}) RequirePrivateFolder(JoinPath(folder_, name));
}

ConversionRun::~ConversionRun() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::size_t ConversionRun::Add(const std::string& source, const ConvertibleDocument& document) {
  const std::string name = std::to_string(documents_.size()) + SafeExtension(source);
  Document added{.source = source, .copy = JoinPath(folder_, "in/" + name), .size = document.size};
  CopyInto(source, added.copy);
  if (form_.keepsFields) {
    added.markedCopy = JoinPath(folder_, "marked/" + name);
    try {
      added.fields = MarkFields(added.copy, added.markedCopy);
      if (added.fields && added.fields->spoiled > 0) added.loss = u"some stand inside of form fields or objects";
    } catch (const Error& error) {
      added.loss = error.description();  // it is converted as it is
    }
  }
  documents_.push_back(std::move(added));
  return documents_.size() - 1;
}

void ConversionRun::WarnOfLosses(const Failures& failures) const {
  for (std::size_t number = 0; settings_.warn && number < documents_.size(); ++number) {
    const Document& document = documents_[number];
    if (failures[number] || document.loss.empty()) continue;
    settings_.warn(u"Fields of " + FromNativePath(document.source) + u" may have lost their formats and conditions: " +
                   document.loss + u".");
  }
}

bool ConversionRun::HasItsFields(std::size_t number) const {
  try {
    return ReturnFields(ResultOf(number), *documents_[number].fields);
  } catch (const Error&) {
    return false;  // what LibreOffice wrote is beyond our limits; the plain result will say so
  }
}

std::string ConversionRun::ResultOf(std::size_t number) const {
  return JoinPath(folder_, "out/" + std::to_string(number) + '.' + form_.extension);
}

bool ConversionRun::IsDone(std::size_t number) const {
  const std::string result = ResultOf(number);
  return form_.extension == "pdf" ? IsWholePdf(result) : IsWholePackage(result);
}

// A document that ends the program takes those after it along. So the first that is missing is tried alone, and the
// rest goes on without it; when neither gave anything, the program itself is at fault.
void ConversionRun::ConvertInto(Failures& failures, std::vector<std::size_t> left) const {
  while (!left.empty()) {
    const std::size_t before = left.size();
    Outcome outcome = Call(left);
    std::erase_if(left, [&](std::size_t number) { return IsDone(number); });
    if (left.empty()) break;
    bool progress = left.size() < before;
    const std::size_t suspect = left.front();
    if (before > 1) outcome = Call({&suspect, 1});
    if (IsDone(suspect)) {
      progress = true;
    } else {
      failures[suspect] = ReasonOf(outcome);
    }
    left.erase(left.begin());
    if (progress) continue;
    for (const std::size_t number : left) failures[number] = ReasonOf(outcome);
    break;
  }
}

std::vector<std::optional<std::string>> ConversionRun::Convert() {
  Failures failures(documents_.size());
  std::vector<std::size_t> all(documents_.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  ConvertInto(failures, all);
  std::erase_if(all, [&](std::size_t number) {
    return !documents_[number].fields || (!failures[number] && HasItsFields(number));
  });
  for (const std::size_t number : all) {
    std::error_code ignored;
    std::filesystem::remove(ResultOf(number), ignored);
    documents_[number].fields.reset();
    documents_[number].loss = u"LibreOffice did not bring them through";
    failures[number].reset();
  }
  ConvertInto(failures, std::move(all));
  WarnOfLosses(failures);
  return failures;
}

ConversionRun::Outcome ConversionRun::Call(std::span<const std::size_t> numbers) const {
  milliseconds patience = settings_.patience;
  for (const std::size_t number : numbers) {
    const auto pages = static_cast<std::int64_t>(documents_[number].size / kBytesPerPage);
    patience += std::min<milliseconds>(kLongest, kPerPage * pages);
  }
  if (numbers.size() > 1) patience += kPerDocument * static_cast<std::int64_t>(numbers.size());
  const std::string output = JoinPath(folder_, "said");
  std::error_code ignored;
  std::filesystem::remove(output, ignored);
  OfficeProfile profile(base_, settings_.localeTag);
  const ChildEnd end = RunInGroup({.arguments = CommandLine(profile.Url(), numbers),
                                   .environment = {"SAL_USE_VCLPLUGIN=svp", "TMPDIR=" + JoinPath(folder_, "tmp")},
                                   .outputFile = output,
                                   .patience = std::min<milliseconds>(patience, kLongest),
                                   .cancelled = settings_.cancelled});
  if (end != ChildEnd::kExited) profile.Discard();
  if (end == ChildEnd::kCancelled) Raise(RuntimeError::kUserInterrupt);
  return {.finished = end == ChildEnd::kExited, .said = ReadMessage(output, folder_)};
}

std::vector<std::string> ConversionRun::CommandLine(const std::string& profileUrl,
                                                    std::span<const std::size_t> numbers) const {
  std::vector<std::string> arguments;
  if (settings_.isolateNetwork && NetworkCanBeIsolated(folder_)) {
    arguments = {kUnshare, "--map-root-user", "--net"};
  }
  for (const std::string& argument :
       {program_, "-env:UserInstallation=" + profileUrl, std::string("--headless"), std::string("--norestore"),
        std::string("--nologo"), std::string("--nolockcheck"), std::string("--nodefault"), std::string("--convert-to"),
        form_.filter, std::string("--outdir"), JoinPath(folder_, "out")}) {
    arguments.push_back(argument);
  }
  for (const std::size_t number : numbers) {
    const Document& document = documents_[number];
    arguments.push_back(document.fields ? document.markedCopy : document.copy);
  }
  return arguments;
}

std::string ConversionRun::ReasonOf(const Outcome& outcome) const {
  std::string reason = outcome.finished ? "it left no usable result" : "it did not come to an end in time";
  if (!outcome.said.empty()) reason += " (it said: " + outcome.said + ")";
  return reason;
}

void ConversionRun::Deliver(std::size_t number, const std::string& target) const {
  constexpr std::size_t kBlock = 256 * 1024;
  if (form_.finish) form_.finish(documents_[number].copy, ResultOf(number));
  AtomicFile file(target, {});
  std::ifstream result(ResultOf(number), std::ios::binary);
  std::string block(kBlock, '\0');
  while (result.read(block.data(), static_cast<std::streamsize>(kBlock)), result.gcount() > 0) {
    file.Write({block.data(), static_cast<std::size_t>(result.gcount())});
  }
  if (result.bad() || !result.eof()) RaiseSystemError(EIO);
  file.Commit();
}

}  // namespace zorkanca
