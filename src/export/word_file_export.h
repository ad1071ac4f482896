// WdExport_file: data that the caller has prepared in two files merged into a Word template.
#pragma once

#include <memory>

#include "barcode/bar_code.h"
#include "export/merge_data_file.h"
#include "export/prepared_file.h"
#include "export/word_export.h"

namespace zorkanca {

class WordFileExport {
 public:
  /// @param headersFileName, dataFileName  as in prepared_file.h; the header may end with a bar-code specification, for
  ///                                       which the last value of each record is encoded
  WordFileExport(ExportContext& context, TextView headersFileName, TextView dataFileName,
                 WordExportArguments& arguments)
      : context_(context),
        headersFileName_(headersFileName),
        dataFileName_(dataFileName),
        arguments_(arguments),
        session_(context) {}

  /// Runs the export from start to end; failures are shown to the user.
  /// @return true when the document was made; false, too, when the user chose no template
  bool Run();

 private:
  bool Export();
  std::vector<Text> ColumnsOf(TextView header) const;
  void WriteMergeData(Text header, const PreparedData& data);
  [[noreturn]] void RaiseShortLine(const PreparedData& data, TextView line, std::size_t values,
                                   std::size_t columns) const;
  void WriteRecords(MergeDataFile& file, const PreparedData& data, std::size_t columnCount);

  ExportContext& context_;
  Text headersFileName_;
  Text dataFileName_;
  WordExportArguments& arguments_;
  ExportSession session_;
  std::unique_ptr<cBarCode> barCode_;
};

}  // namespace zorkanca
