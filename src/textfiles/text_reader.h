// A text file being read.
#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "runtime/code_page.h"
#include "textfiles/byte_source.h"

namespace zorkanca {

/// Reads and decodes a file piece by piece; holds no more of it than a piece and the line asked for.
class TextReader final : public TextStream {
 public:
  /// @param source    given up when the reader is closed
  /// @param codePage  used with `TextFormat::kAnsi`; outlives the reader
  TextReader(std::unique_ptr<ByteSource> source, TextFormat format, const CodePage& codePage);

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
  void DecodeUtf8(std::string_view bytes);

  std::unique_ptr<ByteSource> source_;  // null once closed
  TextFormat format_;
  const CodePage& codePage_;
  std::string bytes_;  // room for what the source gives; an unfinished unit or character may wait at its start
  std::size_t held_ = 0;
  bool atStart_ = true;
  Text piece_;
  std::size_t position_ = 0;  // of the next unit in piece_
};

}  // namespace zorkanca
