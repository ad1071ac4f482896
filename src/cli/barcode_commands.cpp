// The command that shows bar codes: the text for a bar-code font, or a picture for those who have no such font.
#include <memory>
#include <vector>

#include "barcode/bar_code.h"
#include "barcode/bar_code_drawing.h"
#include "cli/bar_code_arguments.h"
#include "cli/command_line.h"
#include "cli/output_check.h"
#include "cli/query_arguments.h"
#include "cli/query_database.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

struct BarCodeOptions {
  std::string parameters;
  std::string value;
  QueryOptions query;
  std::string svg;
};

Text SvgOf(const cBarCode& barCode, TextView content, const Locale& locale) {
  return BarCodeSvg(
      DrawBarCode(SymbologyNamed(barCode.Symbology()), content, barCode.CheckCharacter(), *locale.codePage));
}

// A picture takes its place whole or not at all; it is ASCII, so that the encoding of the file is of no account.
void WritePicture(const CommandContext& context, TextView path, TextView svg) {
  RequireNew(context, Text(path));
  const std::unique_ptr<TextStream> stream =
      context.platform.files.OpenTextFile(path, IoMode::kForWriting, true, TextFormat::kAnsi);
  stream->Write(svg);
  stream->Close();
  context.report.File(path);
}

void RequireCarried(const cBarCode& barCode, TextView content) {
  if (!barCode.Lost()) return;
  Raise(RuntimeError::kInvalidCall, barCode.Symbology() + u" cannot carry \"" + Text(content) + u"\"");
}

int RunValue(const CommandContext& context, const BarCodeOptions& options) {
  const Platform& platform = context.platform;
  cBarCode barCode(platform.locale);
  RequireBarCode(options.parameters, platform.locale);
  barCode.ParseParameters(FromUtf8(options.parameters));
  const Value value = FromUtf8(options.value);
  const Text text = barCode.EncodeValue(value);
  const Text content = barCode.ValueContent(value);
  if (options.svg.empty()) RequireCarried(barCode, content.empty() ? FromUtf8(options.value) : content);
  if (content.empty() && !options.value.empty()) {
    throw UsageError("PARAM has no place for the value: an item NAME,trim takes it");
  }
  if (options.svg.empty()) {
    context.report.Value(text);
  } else {
    const Text path = platform.files.GetAbsolutePathName(FromUtf8(options.svg));
    WritePicture(context, path, SvgOf(barCode, content, platform.locale));
  }
  return kDone;
}

// The records of a query and the bar code that is made of each.
class BarCodeRecords {
 public:
  BarCodeRecords(const CommandContext& context, const BarCodeOptions& options)
      : context_(context), platform_(context.platform), barCode_(platform_.locale), database_(context, options.query) {
    database_.Require("PARAM", ColumnsOfBarCode(options.parameters, platform_.locale));
    barCode_.ParseParameters(FromUtf8(options.parameters));
    recordset_ = database_.OpenRecordset(Statement(options.query), RecordsetType::kDynaset, 0);
    barCode_.SetRecordset(*recordset_);
  }

  void PrintTexts() {
    for (; !recordset_->Eof(); Next()) {
      context_.report.Value(OfRecord([this] { return EncodedRecord(); }));
      context_.report.Records(1);
    }
  }

  /// Draws the only record. Errors: 3021 without any; `UsageError` when there are several.
  void DrawInto(const std::string& file) {
    if (recordset_->Eof()) Raise(RuntimeError::kNoCurrentRecord, u"There is nothing to draw: the query has no record");
    const Text svg = Picture();
    Next();
    if (!recordset_->Eof()) throw UsageError("the query has several records; --svg must name a folder: " + file + "/");
    WritePicture(context_, platform_.files.GetAbsolutePathName(FromUtf8(file)), svg);
  }

  /// Draws each record into a file of its own, 0001.svg and so on.
  void DrawIntoFolder(TextView folder) {
    FileSystem& files = platform_.files;
    if (!files.FolderExists(folder)) files.CreateFolder(folder);
    for (; !recordset_->Eof(); Next()) {
      WritePicture(context_, BuildPath(files, folder, NumberedName(number_, u".svg")), Picture());
    }
  }

 private:
  void Next() {
    recordset_->MoveNext();
    ++number_;
  }

  Text EncodedRecord() {
    const Text text = barCode_.EncodeRecord();
    if (barCode_.Lost()) RequireCarried(barCode_, barCode_.RecordContent());
    return text;
  }

  Text Picture() {
    return OfRecord([this] { return SvgOf(barCode_, barCode_.RecordContent(), platform_.locale); });
  }

  // What fails in a record says in which.
  template <typename Body>
  Text OfRecord(Body body) const {
    try {
      return body();
    } catch (const Error& error) {
      throw Error(error.number(), error.source(), u"record " + DecimalText(number_) + u": " + error.description());
    }
  }

  const CommandContext& context_;
  const Platform& platform_;
  cBarCode barCode_;
  QueryDatabase database_;
  std::unique_ptr<Recordset> recordset_;
  std::int64_t number_ = 1;
};

int RunRecords(const CommandContext& context, const BarCodeOptions& options) {
  const Text path = context.platform.files.GetAbsolutePathName(FromUtf8(options.svg));
  BarCodeRecords records(context, options);
  if (options.svg.empty()) {
    records.PrintTexts();
  } else if (options.svg.ends_with('/') || context.platform.files.FolderExists(path)) {
    records.DrawIntoFolder(path);
  } else {
    records.DrawInto(options.svg);
  }
  return kDone;
}

}  // namespace

void AddBarcodeCommands(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("barcode", "Print the text of a bar code, or draw it");
  const auto options = std::make_shared<BarCodeOptions>();
  command->add_option("PARAM", options->parameters, "symbology;items;output column;check flag")->required();
  CLI::Option* value = command->add_option("--value", options->value, "value to encode; this or --db is required");
  AddQueryOptions(*command, options->query);
  CLI::Option* database = command->get_option("--db")->required(false)->excludes(value);
  database->description(
      "where the records come from, as for html, for a bar code of each; in place of --value (default: none)");
  command->remove_option(command->get_option("--step"));
  command->add_option("--svg", options->svg,
                      "draw into this file; several records: into this folder (default: print the text)");
  command->callback([&chosen, options, value, database] {
    const bool hasValue = value->count() > 0;
    if (!hasValue && database->count() == 0)
      throw UsageError("barcode needs --value, or --db with --select or --sql-file");
    chosen = [options, hasValue](const CommandContext& context) {
      return hasValue ? RunValue(context, *options) : RunRecords(context, *options);
    };
  });
}

}  // namespace zorkanca::cli
