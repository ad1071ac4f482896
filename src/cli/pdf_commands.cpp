// The command that writes documents and workbooks as PDF, several of them side by side.
#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "cli/command_line.h"
#include "cli/document_kinds.h"
#include "cli/export_run.h"
#include "cli/host_platform.h"
#include "cli/output_check.h"
#include "cli/output_file.h"
#include "export/office_pdf_convert.h"
#include "platform/paths.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

constexpr int kMostJobs = 64;

struct PdfOptions {
  std::vector<std::string> paths;  // sources, then the target
  int bookmarks = 0;
  bool archive = false;
  int jobs = 1;
};

struct PdfJob {
  Text source;
  Text target;
  bool isWorkbook = false;
};

bool IsSameFile(const Text& one, const Text& other) {
  std::error_code missing;
  return std::filesystem::equivalent(ToUtf8(one), ToUtf8(other), missing);
}

// What cannot be done is told before any work; equal names get a number.
// @param single  receives the one file that is written, unless a folder is
std::vector<PdfJob> JobsOf(const CommandContext& context, const PdfOptions& options,
                           std::optional<OutputFile>& single) {
  FileSystem& files = context.platform.files;
  const std::string& last = options.paths.back();
  const bool intoFolder = NamesFolder(context, last);
  if (options.paths.size() > 2 && !intoFolder)
    throw UsageError("several documents ask for a folder, DIR/, not " + last);
  const Text target = files.GetAbsolutePathName(FromUtf8(last));
  if (intoFolder) {
    RequireWritableFolder(context, target);
  } else if (LowerCase(GetExtensionName(target)) != u"pdf" && last != "-") {
    throw UsageError("the last one is TARGET, a .pdf file or a folder, DIR/, not " + last);
  }
  std::vector<PdfJob> jobs;
  std::map<Text, int> names;
  for (std::size_t index = 0; index + 1 < options.paths.size(); ++index) {
    const Text source = files.GetAbsolutePathName(FromUtf8(options.paths[index]));
    PdfJob job{.source = source, .target = target, .isWorkbook = IsForExcel(source)};
    if (intoFolder) {
      Text name(GetBaseName(source));
      const int count = ++names[LowerCase(name)];
      if (count > 1) name += u" (" + DecimalText(count) + u")";
      job.target = BuildPath(files, target, name + u".pdf");
    }
    if (IsSameFile(job.source, job.target)) throw UsageError("SOURCE and TARGET are the same file");
    if (job.isWorkbook && (options.archive || options.bookmarks != 0)) {
      throw UsageError("--pdf-a and --bookmarks are for Word documents, not for " + ToUtf8(source));
    }
    jobs.push_back(std::move(job));
  }
  if (!intoFolder) jobs.front().target = single.emplace(context, last, std::vector<Text>{u"pdf"}).path();
  for (const PdfJob& job : jobs) RequireNew(context, job.target);
  if (intoFolder && !files.FolderExists(target)) files.CreateFolder(target);
  return jobs;
}

// Takes one job after the other, until none is left. One that fails does not stop the others.
class PdfRun {
 public:
  PdfRun(const CommandContext& context, const PdfOptions& options)
      : context_(context), options_(options), jobs_(JobsOf(context, options, single_)) {}

  bool Run() {
    const std::size_t workers = std::min(jobs_.size(), static_cast<std::size_t>(options_.jobs));
    if (workers == 1) {
      Work(context_.platform);
    } else {
      std::vector<std::thread> threads;
      for (std::size_t worker = 0; worker < workers; ++worker) threads.emplace_back([this] { WorkOnOwnPlatform(); });
      for (std::thread& thread : threads) thread.join();
    }
    if (failure_) std::rethrow_exception(failure_);
    return failed_ == 0 && !context_.interrupted;
  }

 private:
  // The parts of a platform belong to one thread each.
  void WorkOnOwnPlatform() {
    try {
      const LinuxPlatform host(SettingsOf(context_.options, context_.interrupted, context_.report));
      ReportedUserInterface user(host.platform().userInterface, context_.report);
      Work(host.platform().With(user));
    } catch (...) {
      const std::lock_guard lock(mutex_);
      failure_ = std::current_exception();
    }
  }

  void Work(const Platform& platform) {
    cOfficePdfConvert convert(platform);
    ReportedExport listener(context_.report);
    convert.Listen(&listener);
    const auto bookmarks = static_cast<WdExportCreateBookmarks>(options_.bookmarks);
    for (std::size_t next = next_++; next < jobs_.size() && !context_.interrupted; next = next_++) {
      const PdfJob& job = jobs_[next];
      const bool done = job.isWorkbook
                            ? convert.XlExportToPdfFormat(job.source, job.target)
                            : convert.WdExportToPdfFormat(job.source, job.target, bookmarks, options_.archive);
      if (done && single_) {
        single_->Written(job.target);
      } else if (done) {
        context_.report.File(job.target);
      } else {
        ++failed_;
      }
    }
  }

  const CommandContext& context_;
  const PdfOptions& options_;
  std::optional<OutputFile> single_;
  const std::vector<PdfJob> jobs_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<int> failed_ = 0;
  std::mutex mutex_;
  std::exception_ptr failure_;
};

int RunPdf(const CommandContext& context, const PdfOptions& options) {
  if (options.paths.size() < 2) throw UsageError("pdf takes a document and the PDF file to write, or a folder: DIR/");
  const bool done = PdfRun(context, options).Run();
  return done ? kDone : context.interrupted ? kInterrupted : kFailed;
}

}  // namespace

void AddPdfCommands(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("pdf", "Write Word documents and Excel workbooks as PDF");
  const auto options = std::make_shared<PdfOptions>();
  command
      ->add_option(
          "SOURCE", options->paths,
          "documents and workbooks, and at last TARGET: the PDF file, or a folder, DIR/, where each gets its name")
      ->required();
  command
      ->add_option("--bookmarks", options->bookmarks,
                   "0: none, 1: of headings, 2: of Word's bookmarks (Word documents only)")
      ->check(CLI::IsMember({0, 1, 2}))
      ->capture_default_str();
  command->add_flag("--pdf-a", options->archive, "write PDF/A (ISO 19005-1; Word documents only)");
  command->add_option("--jobs", options->jobs, "how many are converted at the same time")
      ->check(CLI::Range(1, kMostJobs))
      ->capture_default_str();
  SetCallback(*command, chosen, options, RunPdf);
}

}  // namespace zorkanca::cli
