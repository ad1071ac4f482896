// A text file being read.
#pragma once

#include <string>

#include "host/files/file_descriptor.h"
#include "platform/file_system.h"
#include "runtime/code_page.h"

namespace zorkanca {

/// Reads and decodes a file piece by piece; holds no more of it than a piece and the line asked for.
/// The file is locked as being in use until the reader is closed.
class TextReader final : public TextStream {
 public:
  /// @param codePage  used with `TextFormat::kAnsi`; outlives the reader
  /// Errors: 53, 70, 75 for a folder, 76.
  TextReader(const std::string& path, TextFormat format, const CodePage& codePage);

  void Write(TextView text) override;
  void WriteLine(TextView text) override { Write(text); }
  Text ReadLine() override;
  Text ReadAll() override;
  Text Read(std::int32_t characters) override;
  bool AtEndOfStream() override { return !FillPiece(); }
  void Close() override;

 private:
  bool FillPiece();
  void Decode(std::string_view bytes);

  FileDescriptor file_;
  TextFormat format_;
  const CodePage& codePage_;
  std::string bytes_;  // room for what the system reads; with UTF-16 a half unit may wait at its start
  std::size_t held_ = 0;
  bool atStart_ = true;
  Text piece_;
  std::size_t position_ = 0;  // of the next unit in piece_
};

}  // namespace zorkanca
