// What a caller may ask of cZorOffice beside the published arguments. The defaults are what clients have always got.
#pragma once

namespace zorkanca {

/// How the bytes of a prepared file or of a data file are read.
enum class DataEncoding {
  kAnsi,    ///< by the ANSI page of the locale
  kByMark,  ///< by the byte-order mark, without one as ANSI
  kUtf8,
  kUtf16,  ///< little-endian
};

struct ExportPreferences {
  bool namesOfRecordset = false;  ///< columns without names of the caller are called as in the recordset
  bool currentFolder = false;     ///< a bare template name is looked up in the current folder, too
  bool strict = false;            ///< a warning about the template stops the export before anything is written
  bool unicode = false;           ///< HTML is UTF-8 and says so; Excel gets every character
  DataEncoding dataEncoding = DataEncoding::kAnsi;
};

}  // namespace zorkanca
