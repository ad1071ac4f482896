// A text file being written.
#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"
#include "runtime/code_page.h"
#include "textfiles/byte_sink.h"

namespace zorkanca {

/// Encodes texts into a buffer and hands full buffers to a sink.
class TextWriter final : public TextStream {
 public:
  /// @param sink      gets the bytes; a byte-order mark is its maker's business
  /// @param codePage  used with `TextFormat::kAnsi`; outlives the writer
  TextWriter(std::unique_ptr<ByteSink> sink, TextFormat format, const CodePage& codePage);

  void Write(TextView text) override;
  void WriteLine(TextView text) override;
  Text ReadLine() override;
  Text ReadAll() override;
  Text Read(std::int32_t characters) override;
  bool AtEndOfStream() override { return true; }
  void Close() override;
  std::int64_t LostCharacters() const override { return lost_; }

 private:
  void Encode(TextView piece);
  void Flush();

  std::unique_ptr<ByteSink> sink_;  // null once closed
  TextFormat format_;
  const CodePage& codePage_;
  std::string buffer_;
  std::int64_t lost_ = 0;
};

}  // namespace zorkanca
