// Writes a ZIP package from front to back: entries copied as they are, and entries compressed while they are produced.
// All entries carry the same time, so that the same content gives the same bytes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "opc/deflated_part.h"
#include "opc/deflater.h"
#include "opc/part_sink.h"
#include "opc/zip_reader.h"
#include "textfiles/byte_sink.h"

namespace zorkanca {

/// How much a streamed entry may become; the local header must say it before the first byte.
enum class StreamedSize {
  kUpTo4GB,
  kLarger,  ///< Zip64 from the start; some readers expect that only where it is needed
};

class ZipWriter {
 public:
  /// @param sink  takes the package; its `Commit` stays with the caller
  explicit ZipWriter(ByteSink& sink);
  ~ZipWriter();
  ZipWriter(const ZipWriter&) = delete;
  ZipWriter& operator=(const ZipWriter&) = delete;

  /// Copies an entry of another package without inflating it.
  void Copy(const ZipReader& source, const ZipEntry& entry);
  /// Adds what was compressed ahead.
  void Add(std::string_view name, const DeflatedPart& part);
  /// Adds bytes at hand.
  void Add(std::string_view name, std::string_view bytes);
  /// Begins an entry that is compressed while it is produced. The sink is valid until `End`; one entry at a time.
  PartSink& Begin(std::string_view name, StreamedSize size = StreamedSize::kUpTo4GB);
  /// Ends that entry. Errors: 5 when it grew beyond 4 GB without having been announced as larger.
  void End();
  /// Writes the directory; the last call. Errors: those of the sink.
  void Finish();

 private:
  class Output;  // counts what goes to the sink
  struct Streamed;
  struct Entry;

  void WriteLocalHeader(const Entry& entry);
  void WriteDirectoryEntry(const Entry& entry);

  std::unique_ptr<Output> output_;
  std::unique_ptr<Streamed> streamed_;
  std::vector<Entry> entries_;
};

}  // namespace zorkanca
