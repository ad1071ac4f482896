#include "libreoffice/libreoffice_converter.h"

#include <unistd.h>

#include <cstdlib>
#include <map>
#include <string_view>
#include <utility>

#include "files/native_path.h"
#include "libreoffice/conversion_check.h"
#include "libreoffice/conversion_run.h"
#include "libreoffice/pdf_outline.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::size_t kDocumentsPerCall = 200;

constexpr TextView kMissing =
    u"LibreOffice, which converts documents to PDF and from earlier formats, is not installed. Install the packages "
    u"libreoffice-writer and libreoffice-calc, or put soffice into the search path.";

std::string ProgramOf(const LibreOfficeConverter::Settings& settings) {
  if (settings.program.empty()) return FindLibreOffice();
  if (access(settings.program.c_str(), X_OK) != 0) Raise(RuntimeError::kCannotCreateObject, Text(kMissing));
  return AbsolutePath(settings.program);
}

std::string BooleanOption(std::string_view name, bool value) {
  return ",\"" + std::string(name) + R"(":{"type":"boolean","value":")" + (value ? "true" : "false") + "\"}";
}

OutputForm PdfForm(DocumentFamily family, const PdfOptions& options) {
  const bool namedPlaces = options.bookmarks == PdfBookmarks::kNamedPlaces;
  std::string filter = family == DocumentFamily::kSheet ? "pdf:calc_pdf_Export:" : "pdf:writer_pdf_Export:";
  filter += R"({"SelectPdfVersion":{"type":"long","value":")";
  filter += options.archive ? '1' : '0';
  filter += "\"}";
  filter += BooleanOption("ExportBookmarks", options.bookmarks == PdfBookmarks::kHeadings);
  filter += BooleanOption("ExportBookmarksToPDFDestination", namedPlaces);
  filter += BooleanOption("UseTaggedPDF", options.tagged);
  filter += '}';
  OutputForm form{.extension = "pdf", .filter = std::move(filter)};
  if (namedPlaces) {
    form.finish = [](const std::string& source, const std::string& result) {
      AddOutline(result, VisibleBookmarks(source));
    };
  }
  return form;
}

OutputForm OpenXmlForm(DocumentFamily family) {
  if (family == DocumentFamily::kSheet) return {.extension = "xlsx", .filter = "xlsx:Calc MS Excel 2007 XML"};
  return {.extension = "docx", .filter = "docx:MS Word 2007 XML", .keepsFields = true};
}

Error ConversionError(const std::string& source, const std::string& reason) {
  return Error(static_cast<std::int32_t>(RuntimeError::kInvalidCall), Text(),
               u"LibreOffice could not convert " + FromUtf8(source) + u": " + FromUtf8(reason));
}

using Results = std::vector<std::optional<Error>>;

// Runs a step for one document; its failure is the document's result.
template <typename Step>
void Attempt(std::optional<Error>& result, Step step) {
  try {
    step();
  } catch (...) {
    result = ErrorBeingHandled();
  }
}

// Documents [first, last) of one family.
void ConvertGroup(const LibreOfficeConverter::Settings& settings, const std::string& program, OutputForm form,
                  std::span<const Conversion> all, std::span<const std::pair<std::size_t, ConvertibleDocument>> group,
                  Results& results) {
  ConversionRun run(settings, program, std::move(form));
  std::vector<std::size_t> added;  // place in `all` of each document of the run
  for (const auto& [place, document] : group) {
    Attempt(results[place], [&, number = place, &converted = document] {  // clang 14 captures no structured binding
      run.Add(all[number].source, converted);
      added.push_back(number);
    });
  }
  const std::vector<std::optional<std::string>> failures = run.Convert();
  for (std::size_t number = 0; number < added.size(); ++number) {
    const Conversion& conversion = all[added[number]];
    std::optional<Error>& result = results[added[number]];
    if (failures[number]) {
      result = ConversionError(conversion.source, *failures[number]);
    } else {
      Attempt(result, [&] { run.Deliver(number, conversion.target); });
    }
  }
}

template <typename FormOf>
Results ConvertAll(const LibreOfficeConverter::Settings& settings, std::span<const Conversion> documents,
                   FormOf formOf) {
  const std::string program = ProgramOf(settings);
  Results results(documents.size());
  std::map<DocumentFamily, std::vector<std::pair<std::size_t, ConvertibleDocument>>> families;
  for (std::size_t place = 0; place < documents.size(); ++place) {
    Attempt(results[place], [&] {
      const ConvertibleDocument document = RequireConvertible(documents[place].source);
      families[document.family].emplace_back(place, document);
    });
  }
  for (const auto& [family, members] : families) {
    for (std::size_t start = 0; start < members.size(); start += kDocumentsPerCall) {
      const std::span group = std::span(members).subspan(start, std::min(kDocumentsPerCall, members.size() - start));
      ConvertGroup(settings, program, formOf(family), documents, group, results);
    }
  }
  return results;
}

void RequireDone(const Results& results) {
  for (const std::optional<Error>& error : results) {
    if (error) throw Error(*error);
  }
}

}  // namespace

std::string FindLibreOffice() {
  const char* path = std::getenv("PATH");
  std::string folders = path ? path : "/usr/local/bin:/usr/bin";
  folders += ":/usr/lib/libreoffice/program";
  for (std::size_t start = 0; start < folders.size();) {
    const std::size_t end = std::min(folders.find(':', start), folders.size());
    const std::string folder = folders.substr(start, end - start);
    start = end + 1;
    if (!folder.starts_with('/')) continue;  // never a program of the folder that happens to be the current one
    std::string program = JoinPath(folder, "soffice");
    if (access(program.c_str(), X_OK) == 0) return program;
  }
  Raise(RuntimeError::kCannotCreateObject, Text(kMissing));
}

LibreOfficeConverter::LibreOfficeConverter() = default;

LibreOfficeConverter::LibreOfficeConverter(Settings settings) : settings_(std::move(settings)) {}

void LibreOfficeConverter::ToPdf(const std::string& source, const std::string& target,
                                 const PdfOptions& options) const {
  const Conversion one{source, target};
  RequireDone(ToPdf({&one, 1}, options));
}

void LibreOfficeConverter::ToOpenXml(const std::string& source, const std::string& target) const {
  const Conversion one{source, target};
  RequireDone(ToOpenXml({&one, 1}));
}

std::vector<std::optional<Error>> LibreOfficeConverter::ToPdf(std::span<const Conversion> documents,
                                                              const PdfOptions& options) const {
  return ConvertAll(settings_, documents, [&](DocumentFamily family) { return PdfForm(family, options); });
}

std::vector<std::optional<Error>> LibreOfficeConverter::ToOpenXml(std::span<const Conversion> documents) const {
  return ConvertAll(settings_, documents, OpenXmlForm);
}

}  // namespace zorkanca
