// The command that shows bar codes: the text for a bar-code font, or a picture for those who have no such font.
#include <cstdio>
#include <memory>

#include "barcode/bar_code.h"
#include "barcode/bar_code_drawing.h"
#include "cli/command_line.h"
#include "cli/query_arguments.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_database.h"

namespace zorkanca::cli {

namespace {

struct BarCodeOptions {
  std::string parameters;
  std::string value;
  std::string database;
  std::string select;
  std::string svg;
};

Text SvgOf(const cBarCode& barCode, TextView content, const Locale& locale) {
  return BarCodeSvg(
      DrawBarCode(SymbologyNamed(barCode.Symbology()), content, barCode.CheckCharacter(), *locale.codePage));
}

// A picture takes its place whole or not at all; it is ASCII, so that the encoding of the file is of no account.
void WritePicture(const CommandContext& context, TextView path, TextView svg) {
  FileSystem& files = context.platform.files;
  const std::unique_ptr<TextStream> stream = files.OpenTextFile(path, IoMode::kForWriting, true, TextFormat::kAnsi);
  stream->Write(svg);
  stream->Close();
  context.report.File(path);
}

int RunValue(const CommandContext& context, const BarCodeOptions& options) {
  const Platform& platform = context.platform;
  cBarCode barCode(platform.locale);
  barCode.ParseParameters(FromUtf8(options.parameters));
  const Value value = FromUtf8(options.value);
  if (options.svg.empty()) {
    context.report.Value(barCode.EncodeValue(value));
  } else {
    const Text path = platform.files.GetAbsolutePathName(FromUtf8(options.svg));
    WritePicture(context, path, SvgOf(barCode, barCode.ValueContent(value), platform.locale));
  }
  return kDone;
}

// The records of a query and the bar code that is made of each.
class BarCodeRecords {
 public:
  BarCodeRecords(const CommandContext& context, const BarCodeOptions& options)
      : context_(context),
        platform_(context.platform),
        barCode_(platform_.locale),
        database_(SqlitePath(options.database), &context.interrupted) {
    barCode_.ParseParameters(FromUtf8(options.parameters));
    QueryOptions query;
    query.select = options.select;
    recordset_ = database_.OpenRecordset(Statement(query), RecordsetType::kDynaset, 0);
    barCode_.SetRecordset(*recordset_);
  }

  void PrintTexts() {
    for (; !recordset_->Eof(); Next()) {
      context_.report.Value(OfRecord([this] { return barCode_.EncodeRecord(); }));
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
  SqliteDatabase database_;
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
  CLI::Option* value =
      command->add_option("--value", options->value, "value to encode; this, or --db and --select, is required");
  CLI::Option* database =
      command->add_option("--db", options->database, "SQLite database file (default: none)")->excludes(value);
  CLI::Option* select = command->add_option("--select", options->select,
                                            "SELECT statement; - reads it from standard input (default: none)");
  select->needs(database);
  database->needs(select);
  command->add_option("--svg", options->svg,
                      "draw into this file; several records: into this folder (default: print the text)");
  command->callback([&chosen, options, value, database] {
    const bool hasValue = value->count() > 0;
    if (!hasValue && database->count() == 0) throw UsageError("barcode needs --value, or --db and --select");
    chosen = [options, hasValue](const CommandContext& context) {
      return hasValue ? RunValue(context, *options) : RunRecords(context, *options);
    };
  });
}

}  // namespace zorkanca::cli
