// The checks run on the library's own services, so that a check and an export say the same.
#include "cli/check.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <vector>

#include "cli/document_kinds.h"
#include "cli/export_run.h"
#include "cli/query_database.h"
#include "export/bar_code_specification.h"
#include "export/column_names.h"
#include "export/data_encoding.h"
#include "export/export_failure.h"
#include "export/prepared_file.h"
#include "export/query_reader.h"
#include "export/template_reading.h"
#include "foundation/ignore_errors.h"
#include "platform/paths.h"
#include "runtime/utf8.h"
#include "xmltemplate/template_markers.h"

namespace zorkanca::cli {

namespace {

class Check {
 public:
  Check(const CommandContext& context, const CheckOrder& order)
      : context_(context),
        order_(order),
        warnings_(context.report),
        told_(context.platform),
        export_{.platform = context.platform, .preferences = PreferencesOf(order.query, order.fromTemplate.strict)} {
    told_.Listen(&warnings_);
    export_.report = &told_;
  }

  int Run() {
    const bool isPrepared = !order_.headers.empty() || !order_.data.empty();
    Attempt([&] { isPrepared ? LookAtFiles() : LookAtQuery(); });
    if (order_.hasTemplate) Attempt([&] { LookAtTemplate(); });
    Attempt([&] {
      order_.tryOutput();
      Ok(u"the output can be written");
    });
    const bool strictlyFailed = order_.fromTemplate.strict && context_.report.HasWarnings();
    return failed_ || strictlyFailed ? kFailed : kDone;
  }

 private:
  template <typename Body>
  void Attempt(Body body) {
    try {
      body();
    } catch (const Error& error) {
      const std::optional<Error> cause = HiddenCause();
      context_.report.Failure(cause ? *cause : error);
      failed_ = true;
    }
  }

  void Ok(const Text& text) { context_.report.Value(u"ok: " + text); }

  void LookAtQuery() {
    QueryDatabase database(context_, order_.query);
    if (order_.require) order_.require(database);
    const Text select = Statement(order_.query);
    const auto recordset = database.OpenRecordset(select, RecordsetType::kDynaset, order_.query.options);
    if (database.sources().sqliteFile) Ok(u"the database " + FromUtf8(*database.sources().sqliteFile));
    for (const LoadedTable& table : database.LoadedTables()) Ok(Description(table));
    if (recordset->Eof() && recordset->Bof()) context_.report.Warning(u"The query gives no records.");
    Text names = NamesOf(order_.query);
    if (const auto barCode = TakeBarCode(names, context_.platform.locale)) barCode_ = barCode->BarCodeField();
    const ColumnNameSource source = ChooseColumnNames(select, names, export_.preferences.namesOfRecordset);
    // Cells and form fields are looked up in the recordset itself.
    const bool byList = order_.use == TemplateUse::kMerge;
    columns_ = ColumnNamesOf(byList ? source : ColumnNameSource::kFieldNames, names, *recordset);
    WarnOfNameCount(export_, columns_->size(), recordset->FieldCount());
    Ok(u"the query, columns " + Join(*columns_, u";"));
    if (!barCode_.empty()) columns_->push_back(barCode_);
  }

  void LookAtFiles() {
    FileSystem& files = context_.platform.files;
    const Text data = files.GetAbsolutePathName(FromUtf8(order_.data));
    if (order_.headers.empty()) {
      const TextFormat format = EncodingOfFile(export_, data);
      const auto stream = files.OpenTextFile(data, IoMode::kForReading, /*create=*/false, format);
      SetColumns(stream->AtEndOfStream() ? Text() : stream->ReadLine());
    } else {
      Text header = ReadPreparedHeader(export_, files.GetAbsolutePathName(FromUtf8(order_.headers)));
      if (const auto barCode = TakeBarCode(header, context_.platform.locale)) barCode_ = barCode->BarCodeField();
      SetColumns(header);
      PreparedData(export_, data);
      if (!barCode_.empty()) columns_->push_back(barCode_);
    }
    Ok(u"the data " + data + u", columns " + Join(*columns_, u";"));
  }

  // "the table zbozi of zbozi.csv, columns kod text, cena decimal"
  static Text Description(const LoadedTable& table) {
    std::vector<Text> columns;
    for (const auto& [name, type] : table.columns) columns.push_back(FromUtf8(name + " " + type));
    return u"the table " + FromUtf8(table.name) + u" of " + FromUtf8(table.path) + u", columns " + Join(columns, u", ");
  }

  void SetColumns(TextView header) {
    columns_.emplace();
    SplitColumnsFromDataRow(header, *columns_);
  }

  void LookAtTemplate() {
    TemplateArguments arguments;
    SetTemplate(arguments, order_.fromTemplate);
    const ApplOffice kind = order_.use == TemplateUse::kCells ? ApplOffice::MSExcel : ApplOffice::MSWord;
    const TemplateChoice choice(export_, kind, arguments);
    choice.RequireExisting();
    if (!choice.IsFile()) return Ok(u"the template is chosen from a list when the export runs");
    const Text& path = arguments.rsTemplate;
    const std::vector<TemplateField> fields = ReadTemplateFields(context_.platform, kind, path);
    Ok(u"the template " + path);
    if (!columns_) return;
    for (const Text& warning : TemplateWarnings(order_.use, fields, *columns_, path)) context_.report.Warning(warning);
  }

  const CommandContext& context_;
  const CheckOrder& order_;
  ReportedExport warnings_;
  ExportReport told_;
  ExportContext export_;
  std::optional<std::vector<Text>> columns_;  // nothing while they are not known
  Text barCode_;
  bool failed_ = false;
};

struct FieldsOptions {
  std::string templateFile;
  bool json = false;
};

const char* NameOf(TemplateFieldKind kind) {
  constexpr const char* kNames[] = {"field", "region", "form", "picture", "barcode", "cell", "marker"};
  return kNames[static_cast<std::size_t>(kind)];
}

std::vector<TemplateField> FieldsOf(const CommandContext& context, const Text& path) {
  const Text extension = LowerCase(GetExtensionName(path));
  if (extension == u"xml") {
    if (!IsSpreadsheetXml(BytesOf(ToUtf8(path))))
      Raise(RuntimeError::kInvalidCall, u"No template in spreadsheet XML: " + path);
    return MarkersOf(
        context.platform.files.OpenTextFile(path, IoMode::kForReading, /*create=*/false, TextFormat::kAnsi)->ReadAll());
  }
  const bool isWorkbook = extension.starts_with(u"xl") || extension == u"ods";
  return ReadTemplateFields(context.platform, isWorkbook ? ApplOffice::MSExcel : ApplOffice::MSWord, path);
}

int RunFields(const CommandContext& context, const FieldsOptions& options) {
  const ExportContext looking{.platform = context.platform, .preferences = {.currentFolder = true}};
  TemplateArguments arguments;
  arguments.rsTemplate = FromUtf8(options.templateFile);
  const TemplateChoice choice(looking, ApplOffice::MSWord, arguments);
  if (!choice.IsFile()) {
    try {
      choice.RequireExisting();
    } catch (const Error&) {
      throw Error(HiddenCause().value());
    }
    throw UsageError("TEMPLATE is a path or the name of a file, not a list: " + options.templateFile);
  }
  nlohmann::ordered_json array = nlohmann::ordered_json::array();
  for (const TemplateField& field : FieldsOf(context, arguments.rsTemplate)) {
    if (options.json) {
      array.push_back({{"kind", NameOf(field.kind)}, {"name", ToUtf8(field.name)}, {"count", field.count}});
    } else {
      context.report.Value(FromUtf8(NameOf(field.kind)) + u"\t" + field.name + u"\t" + DecimalText(field.count));
    }
  }
  if (options.json)
    context.report.Value(FromUtf8(array.dump(2, ' ', false, decltype(array)::error_handler_t::replace)));
  return kDone;
}

}  // namespace

int RunCheck(const CommandContext& context, const CheckOrder& order) {
  return Check(context, order).Run();
}

void WarnOfNoField(const CommandContext& context, const Text& path) {
  IgnoreErrors([&] {  // the merge says in its own words what is wrong with the template
    const std::vector<TemplateField> fields = ReadTemplateFields(context.platform, ApplOffice::MSWord, path);
    std::vector<Text> columns;
    for (const TemplateField& field : fields) columns.push_back(field.name);
    for (const Text& warning : TemplateWarnings(TemplateUse::kMerge, fields, columns, path)) {
      context.report.Warning(warning);
    }
  });
}

void AddFieldsCommand(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("fields", "Tell what a template asks for");
  const auto options = std::make_shared<FieldsOptions>();
  command->add_option("TEMPLATE", options->templateFile, "Word or Excel template, or spreadsheet XML")->required();
  command->add_flag("--json", options->json, "print it as JSON");
  SetCallback(*command, chosen, options, RunFields);
}

}  // namespace zorkanca::cli
